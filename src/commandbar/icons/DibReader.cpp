#include "commandbar/icons/DibReader.h"

#include <algorithm>
#include <array>

namespace quillshift {
namespace {

constexpr std::size_t kHeaderSize = 40;
constexpr std::size_t kLongestHeader = 124;
constexpr std::uint32_t kLargestSide = 4096;
constexpr std::size_t kFileHeaderSize = 14;
constexpr std::uint16_t kBitmapMark = 0x4D42; // "BM"

bool IsKnownDepth(int bits) {
    constexpr std::array<int, 5> kDepths{1, 4, 8, 24, 32};
    return std::find(kDepths.begin(), kDepths.end(), bits) != kDepths.end();
}

// The colour table's length. A deep picture may have one too, as a hint for displays of few colours.
std::optional<std::size_t> PaletteLength(int bitsPerPixel, std::uint32_t told) {
    const std::size_t most = bitsPerPixel <= 8 ? std::size_t{1} << static_cast<unsigned>(bitsPerPixel) : 256;
    if (told > most)
        return std::nullopt;
    return told == 0 && bitsPerPixel <= 8 ? most : told;
}

void ReadPixel(const FileBytes& bytes, const DibHeader& header, std::size_t line, std::size_t column,
               std::uint8_t* pixel) {
    const auto bits = static_cast<std::size_t>(header.bitsPerPixel);
    std::size_t at = line + column * bits / 8;
    pixel[3] = bits == 32 ? bytes.Byte(at + 3) : 255;
    if (bits <= 8) {
        const std::size_t perByte = 8 / bits;
        const std::size_t shift = (perByte - 1 - column % perByte) * bits;
        const std::size_t index = (std::size_t{bytes.Byte(at)} >> shift) & ((1U << bits) - 1);
        if (index >= header.paletteColours)
            return; // black
        at = header.paletteAt + index * 4;
    }
    for (std::size_t i = 0; i < 3; ++i)
        pixel[i] = bytes.Byte(at + i);
}

} // namespace

std::optional<DibHeader> ReadDibHeader(const FileBytes& bytes) {
    const std::uint32_t size = bytes.Long(0);
    const std::uint32_t width = bytes.Long(4);
    const std::uint32_t height = bytes.Long(8);
    const int bits = bytes.Word(14);
    const auto palette = PaletteLength(bits, bytes.Long(32));
    // Sizes below 0 (lines top down) come as very large ones.
    if (size < kHeaderSize || size > kLongestHeader || width - 1 >= kLargestSide ||
        height - 1 >= kLargestSide || !IsKnownDepth(bits) || bytes.Long(16) != 0 || !palette)
        return std::nullopt;
    return DibHeader{.width = static_cast<int>(width),
                     .height = static_cast<int>(height),
                     .bitsPerPixel = bits,
                     .paletteAt = size,
                     .paletteColours = *palette};
}

std::optional<cAlphaDIBSection> ReadPixels(const FileBytes& bytes, const DibHeader& header,
                                           std::size_t pixelsAt, int height) {
    cAlphaDIBSection image;
    if (pixelsAt > bytes.Size() ||
        bytes.Size() - pixelsAt < header.LineBytes() * static_cast<std::size_t>(height) ||
        !image.Create(header.width, height))
        return std::nullopt;
    std::size_t number = 0;
    image.ForEachPixel([&](std::uint8_t* pixel) {
        const auto width = static_cast<std::size_t>(header.width);
        ReadPixel(bytes, header, pixelsAt + number / width * header.LineBytes(), number % width, pixel);
        ++number;
    });
    return image;
}

std::optional<cAlphaDIBSection> ReadBitmap(std::string_view file) {
    const FileBytes bytes(file);
    const auto header = ReadDibHeader(bytes.From(kFileHeaderSize));
    if (bytes.Word(0) != kBitmapMark || !header)
        return std::nullopt;
    const std::size_t pixelsAt = bytes.Long(10);
    if (pixelsAt < kFileHeaderSize)
        return std::nullopt;
    auto image = ReadPixels(bytes.From(kFileHeaderSize), *header, pixelsAt - kFileHeaderSize, header->height);
    if (image)
        image->ForEachPixel([](std::uint8_t* pixel) { pixel[3] = 255; });
    return image;
}

} // namespace quillshift
