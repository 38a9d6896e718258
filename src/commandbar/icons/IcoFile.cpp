#include "commandbar/icons/IcoFile.h"

#include "commandbar/icons/DibReader.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <tuple>
#include <vector>

namespace quillshift {
namespace {

constexpr int kLargestIcon = 256;
constexpr std::size_t kFileHeaderSize = 6;
constexpr std::size_t kEntrySize = 16;

struct Candidate {
    FileBytes bytes;
    DibHeader header;

    int Width() const { return header.width; }
    int Height() const { return header.height / 2; } // the lines of the mask are counted too
};

std::vector<Candidate> Candidates(const FileBytes& file) {
    std::vector<Candidate> found;
    const bool isIcon = file.Word(2) == 1 || file.Word(2) == 2; // 2: cursor
    if (file.Word(0) != 0 || !isIcon)
        return found;
    for (std::size_t i = 0; i < file.Word(4); ++i) {
        const std::size_t entry = kFileHeaderSize + i * kEntrySize;
        if (entry + kEntrySize > file.Size())
            break;
        const FileBytes bytes = file.From(file.Long(entry + 12));
        const auto header = ReadDibHeader(bytes);
        if (header && header->width <= kLargestIcon && header->height >= 2 &&
            header->height <= 2 * kLargestIcon)
            found.push_back({bytes, *header});
    }
    return found;
}

void SortBySuiting(std::vector<Candidate>& candidates, Size wanted) {
    const auto rank = [wanted](const Candidate& candidate) {
        const int area = candidate.Width() * candidate.Height();
        const bool isSmaller = candidate.Width() < wanted.width || candidate.Height() < wanted.height;
        return std::tuple(isSmaller, isSmaller ? -area : area, -candidate.header.bitsPerPixel);
    };
    std::stable_sort(candidates.begin(), candidates.end(),
                     [&](const Candidate& a, const Candidate& b) { return rank(a) < rank(b); });
}

bool HasAlpha(cAlphaDIBSection& image) {
    bool any = false;
    image.ForEachPixel([&](const std::uint8_t* pixel) { any = any || pixel[3] != 0; });
    return any;
}

// Makes transparent what the mask of one bit a pixel says, and the rest opaque. False if the mask is cut off.
bool ApplyMask(cAlphaDIBSection& image, const FileBytes& bytes, const DibHeader& header) {
    const auto width = static_cast<std::size_t>(image.Width());
    const auto height = static_cast<std::size_t>(image.Height());
    const std::size_t start = header.End() + header.LineBytes() * height;
    if (bytes.Size() < start + header.LineBytes(1) * height)
        return false;
    std::size_t number = 0;
    image.ForEachPixel([&](std::uint8_t* pixel) {
        const std::size_t column = number % width;
        const unsigned mask = bytes.Byte(start + number / width * header.LineBytes(1) + column / 8);
        pixel[3] = (mask & (0x80U >> (column % 8))) != 0 ? 0 : 255;
        ++number;
    });
    return true;
}

std::optional<cAlphaDIBSection> Decode(const Candidate& candidate) {
    const auto& [bytes, header] = candidate;
    auto image = ReadPixels(bytes, header, header.End(), candidate.Height());
    // Alpha says all the mask does, and more; files without it have zeroes in its place.
    const bool ownAlpha = image && header.bitsPerPixel == 32 && HasAlpha(*image);
    if (image && !ownAlpha && !ApplyMask(*image, bytes, header))
        return std::nullopt;
    return image;
}

// How much of each old pixel goes into a new one, in one direction.
struct Share {
    int first;
    std::vector<double> weights;
};

std::vector<Share> Shares(int oldSize, int newSize) {
    std::vector<Share> shares;
    const double scale = static_cast<double>(oldSize) / newSize;
    for (int i = 0; i < newSize; ++i) {
        const double start = i * scale;
        const double end = std::min((i + 1) * scale, static_cast<double>(oldSize));
        Share share{.first = static_cast<int>(start), .weights = {}};
        for (int at = share.first; at < end; ++at)
            share.weights.push_back(std::min(at + 1.0, end) - std::max(static_cast<double>(at), start));
        shares.push_back(std::move(share));
    }
    return shares;
}

void Average(const PixelView& image, const Share& line, const Share& column, std::uint8_t* pixel) {
    std::array<double, 3> colours{};
    double alpha = 0;
    double area = 0;
    for (std::size_t y = 0; y < line.weights.size(); ++y) {
        const std::uint8_t* from =
            image.bits + (std::ptrdiff_t{line.first + static_cast<int>(y)} * image.width + column.first) * 4;
        for (std::size_t x = 0; x < column.weights.size(); ++x, from += 4) {
            const double weight = line.weights[y] * column.weights[x];
            area += weight;
            alpha += weight * from[3];
            for (std::size_t i = 0; i < 3; ++i)
                colours[i] += weight * from[3] * from[i]; // what is transparent has no colour to give
        }
    }
    if (alpha == 0)
        return;
    for (std::size_t i = 0; i < 3; ++i)
        pixel[i] = static_cast<std::uint8_t>(std::lrint(colours[i] / alpha));
    pixel[3] = static_cast<std::uint8_t>(std::lrint(alpha / area));
}

} // namespace

std::optional<cAlphaDIBSection> ReadIcon(std::string_view file, Size wanted) {
    std::vector<Candidate> candidates = Candidates(FileBytes(file));
    SortBySuiting(candidates, wanted);
    for (const Candidate& candidate : candidates)
        if (auto image = Decode(candidate))
            return ScaledIcon(*image, wanted);
    return std::nullopt;
}

cAlphaDIBSection ScaledIcon(const cAlphaDIBSection& image, Size size) {
    if (size == Size{image.Width(), image.Height()})
        return image;
    cAlphaDIBSection result;
    if (image.IsEmpty() || !result.Create(size.width, size.height))
        return result;
    const std::vector<Share> lines = Shares(image.Height(), size.height);
    const std::vector<Share> columns = Shares(image.Width(), size.width);
    std::size_t number = 0;
    result.ForEachPixel([&](std::uint8_t* pixel) {
        Average(image.hDib(), lines[number / columns.size()], columns[number % columns.size()], pixel);
        ++number;
    });
    return result;
}

} // namespace quillshift
