#include "controls/bitmaps/DibSection.h"

#include "base/Error.h"
#include "base/Utf8.h"
#include "controls/bitmaps/BlockCopy.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <chrono>
#include <cmath>
#include <cstdio>
#include <limits>
#include <memory>
#include <new>
#include <random>
#include <system_error>
#include <utility>

namespace quillshift {
namespace {

// Where the pixels begin in a file: the file's own header, the bitmap's and four bytes behind that.
constexpr std::uint32_t kPixelOffset = 14 + 40 + 4;
using FileHeader = std::array<std::uint8_t, kPixelOffset>;

void Put(FileHeader& header, std::size_t at, std::uint32_t value, std::size_t bytes = 4) {
    for (std::size_t i = 0; i < bytes; ++i)
        header[at + i] = static_cast<std::uint8_t>(value >> (8 * i));
}

FileHeader FileHeaderFor(int width, int height, std::size_t imageSize) {
    const auto size = static_cast<std::uint32_t>(imageSize);
    FileHeader header{};
    Put(header, 0, 19778, 2);
    Put(header, 2, size + kPixelOffset);
    Put(header, 10, kPixelOffset);
    Put(header, 14, 40);
    Put(header, 18, static_cast<std::uint32_t>(width));
    Put(header, 22, static_cast<std::uint32_t>(height));
    Put(header, 26, 1, 2);
    Put(header, 28, 32, 2);
    Put(header, 34, size);
    return header;
}

struct CloseFile {
    void operator()(std::FILE* file) const { std::fclose(file); }
};
using File = std::unique_ptr<std::FILE, CloseFile>;

File CreateFile(std::u16string_view name) {
    File file(std::fopen(ToUtf8(name).c_str(), "wb"));
    if (!file)
        throw Error(17, u"quillshift.cDIBSection", FromUtf8(std::system_category().message(errno)));
    return file;
}

// The sizes that a header of 32-bit fields can tell.
bool IsPossible(int width, int height) {
    return width > 0 && height > 0 &&
           std::int64_t{width} * height <= std::numeric_limits<std::int32_t>::max() / 4;
}

// The place of a new line or column among the old ones: the one before it, the one behind, and how far it
// lies between them.
struct Sample {
    std::size_t first;
    std::size_t second;
    double fraction;
};

std::vector<Sample> Samples(int oldSize, int newSize) {
    const double scale = (oldSize - 1.0) / newSize;
    const auto last = static_cast<std::size_t>(oldSize - 1);
    std::vector<Sample> samples;
    samples.reserve(static_cast<std::size_t>(newSize));
    for (int i = 0; i < newSize; ++i) {
        const auto first = static_cast<std::size_t>(i * scale);
        // A bitmap one pixel wide has none behind the first.
        samples.push_back({first, std::min(first + 1, last), i * scale - static_cast<double>(first)});
    }
    return samples;
}

long Between(double first, double second, double fraction) {
    return std::lrint((1 - fraction) * first + fraction * second);
}

} // namespace

bool DibSection::CreateDIB(int width, int height, BitmapPicture& dib) {
    if (!IsPossible(width, height))
        return false;
    width_ = width;
    height_ = height;
    try {
        const auto lineBytes = static_cast<std::size_t>(BytesPerScanLine());
        dib = {width, height, std::vector<std::uint8_t>(lineBytes * static_cast<std::size_t>(height))};
    } catch (const std::bad_alloc&) {
        return false;
    }
    return true;
}

bool DibSection::Create(int width, int height) {
    const bool drawDib = useDrawDib_;
    ClearUp();
    useDrawDib_ = drawDib;
    BitmapPicture dib;
    if (!CreateDIB(width, height, dib))
        return false;
    bits_ = std::move(dib.bits);
    return true;
}

bool DibSection::CreateFromHBitmap(const PixelView& bitmap) {
    if (bitmap.bits == nullptr || !Create(bitmap.width, bitmap.height))
        return false;
    std::copy_n(bitmap.bits, bits_.size(), bits_.begin());
    return true;
}

void DibSection::ClearUp() {
    bits_ = std::vector<std::uint8_t>(); // an empty list would keep the memory
    useDrawDib_ = false;
}

PixelView DibSection::hDib() const {
    return IsEmpty() ? PixelView{} : PixelView{bits_.data(), width_, height_};
}

void DibSection::LoadPictureBlt(const PixelView& source, int x, int y, int width, int height,
                                RasterOperation operation) {
    CopyBlock(source, {0, 0, width < 0 ? width_ : width, height < 0 ? height_ : height, x, y}, operation);
}

void DibSection::PaintPicture(DibSection& target, int x, int y, int width, int height, int sourceX,
                              int sourceY, RasterOperation operation) const {
    target.CopyBlock(hDib(),
                     {x, y, width < 0 ? width_ : width, height < 0 ? height_ : height, sourceX, sourceY},
                     useDrawDib_ ? RasterOperation::Copy : operation);
}

void DibSection::CopyBlock(const PixelView& source, const Block& block, RasterOperation operation) {
    if (IsEmpty() || source.bits == nullptr)
        return;
    const auto join = [&](auto joined) {
        JoinBlock(bits_.data(), {width_, height_}, source, block,
                  [&](std::uint8_t* to, const std::uint8_t* from) {
                      for (int i = 0; i < 4; ++i)
                          to[i] = static_cast<std::uint8_t>(joined(to[i], from[i]));
                  });
    };
    switch (operation) {
    case RasterOperation::Copy:
        return join([](unsigned, unsigned from) { return from; });
    case RasterOperation::And:
        return join([](unsigned to, unsigned from) { return to & from; });
    case RasterOperation::Or:
        return join([](unsigned to, unsigned from) { return to | from; });
    case RasterOperation::Xor:
        return join([](unsigned to, unsigned from) { return to ^ from; });
    }
}

void DibSection::AlphaPaintPicture(DibSection& target, int x, int y, int width, int height, int sourceX,
                                   int sourceY, std::uint8_t constantAlpha, bool perPixel) const {
    if (IsEmpty() || target.IsEmpty())
        return;
    const Block block{x, y, width < 0 ? width_ : width, height < 0 ? height_ : height, sourceX, sourceY};
    JoinBlock(target.bits_.data(), {target.width_, target.height_}, hDib(), block,
              [&](std::uint8_t* to, const std::uint8_t* from) {
                  const int pixelAlpha = perPixel ? from[3] : 255;
                  const int kept = 255 * 255 - pixelAlpha * constantAlpha;
                  for (int i = 0; i < 4; ++i) {
                      // Rounded once; a colour above its alpha is no premultiplied one and held to white.
                      const int sum = from[i] * constantAlpha * 255 + to[i] * kept;
                      to[i] = static_cast<std::uint8_t>(std::min(255, (sum + 255 * 255 / 2) / (255 * 255)));
                  }
              });
}

bool DibSection::SavePicture(std::u16string_view fileName) const {
    if (IsEmpty())
        return false;
    const FileHeader header = FileHeaderFor(width_, height_, bits_.size());
    File file = CreateFile(fileName);
    return std::fwrite(header.data(), 1, header.size(), file.get()) == header.size() &&
           std::fwrite(bits_.data(), 1, bits_.size(), file.get()) == bits_.size() &&
           std::fclose(file.release()) == 0;
}

void DibSection::RandomiseBits(bool grey) {
    std::minstd_rand generator(
        static_cast<unsigned>(std::chrono::system_clock::now().time_since_epoch().count()));
    std::uniform_int_distribution<int> byte(0, 255);
    ForEachPixel([&](std::uint8_t* pixel) {
        const int alpha = byte(generator);
        const int shade = byte(generator);
        for (int i = 0; i < 3; ++i)
            pixel[i] = static_cast<std::uint8_t>((grey ? shade : byte(generator)) * alpha / 255);
        pixel[3] = static_cast<std::uint8_t>(alpha);
    });
}

BitmapPicture DibSection::Release() {
    useDrawDib_ = false;
    return {std::exchange(width_, 0), std::exchange(height_, 0), std::exchange(bits_, {})};
}

DibSection DibSection::Resampled(int newHeight, int newWidth) const {
    if (IsEmpty() || (newHeight == height_ && newWidth == width_))
        return *this;
    DibSection result;
    if (!result.Create(newWidth, newHeight))
        return result;
    const std::vector<Sample> lines = Samples(height_, newHeight);
    const std::vector<Sample> columns = Samples(width_, newWidth);
    const auto lineBytes = static_cast<std::size_t>(BytesPerScanLine());
    std::uint8_t* to = result.bits_.data();
    for (const Sample& line : lines) {
        const std::uint8_t* first = &bits_[line.first * lineBytes];
        const std::uint8_t* second = &bits_[line.second * lineBytes];
        for (const Sample& column : columns) {
            for (std::size_t i = 0; i < 3; ++i) {
                const std::size_t left = column.first * 4 + i;
                const std::size_t right = column.second * 4 + i;
                const long before = Between(first[left], second[left], line.fraction);
                const long behind = Between(first[right], second[right], line.fraction);
                to[i] = static_cast<std::uint8_t>(
                    Between(static_cast<double>(before), static_cast<double>(behind), column.fraction));
            }
            to += 4;
        }
    }
    return result;
}

} // namespace quillshift
