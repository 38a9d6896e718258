#pragma once

#include "controls/bitmaps/DibSection.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace quillshift {

/// Blue, green, red, alpha.
using Pixel = std::array<int, 4>;

inline Pixel PixelOf(const PixelView& view, int x, int y) {
    const std::uint8_t* at = view.bits + (std::ptrdiff_t{view.height - 1 - y} * view.width + x) * 4;
    return {at[0], at[1], at[2], at[3]};
}

/// Such as "0/128/255/255".
inline std::string TextOf(const Pixel& pixel) {
    std::string text;
    for (const int byte : pixel)
        text += (text.empty() ? "" : "/") + std::to_string(byte);
    return text;
}

/// Adds a line of text for each line of pixels, from the top.
inline void ListPixels(const PixelView& view, std::vector<std::string>& list) {
    for (int y = 0; y < view.height; ++y) {
        std::string& line = list.emplace_back();
        for (int x = 0; x < view.width; ++x)
            line += (x > 0 ? " " : "") + TextOf(PixelOf(view, x, y));
    }
}

/// Fills a bitmap with pixels given line by line from the top.
template <class Bitmap>
Bitmap BitmapOf(int width, const std::vector<Pixel>& pixels) {
    Bitmap bitmap;
    const int height = static_cast<int>(pixels.size()) / width;
    bitmap.Create(width, height);
    for (std::ptrdiff_t i = 0; i < std::ptrdiff_t{width} * height; ++i) {
        std::uint8_t* at = bitmap.DIBSectionBitsPtr() + ((height - 1 - i / width) * width + i % width) * 4;
        for (std::size_t byte = 0; byte < 4; ++byte)
            at[byte] = static_cast<std::uint8_t>(pixels[static_cast<std::size_t>(i)][byte]);
    }
    return bitmap;
}

/// `value` in so many bytes, the low one first.
inline std::string Little(unsigned value, int bytes) {
    std::string text;
    for (int i = 0; i < bytes; ++i)
        text += static_cast<char>(value >> (8 * i));
    return text;
}

/// The header of a bitmap in a file; for an icon, `height` counts the lines of the mask too.
inline std::string BitmapHeader(int width, int height, int bits, unsigned colours = 0) {
    return Little(40, 4) + Little(static_cast<unsigned>(width), 4) +
           Little(static_cast<unsigned>(height), 4) + Little(1, 2) + Little(static_cast<unsigned>(bits), 2) +
           std::string(16, '\0') + Little(colours, 4) + Little(0, 4);
}

/// An icon file of images that are whole: header, palette, pixels, mask.
inline std::string IconFile(const std::vector<std::string>& images) {
    std::string directory = Little(0, 2) + Little(1, 2) + Little(static_cast<unsigned>(images.size()), 2);
    std::string body;
    for (const std::string& image : images) {
        const std::size_t offset = 6 + 16 * images.size() + body.size();
        directory += std::string(8, '\0') + Little(static_cast<unsigned>(image.size()), 4) +
                     Little(static_cast<unsigned>(offset), 4);
        body += image;
    }
    return directory + body;
}

/// A square image of 32 bits a pixel, all of one colour, masked out if its alpha is 0.
inline std::string SolidImage(int side, Pixel pixel) {
    std::string image = BitmapHeader(side, 2 * side, 32);
    for (int i = 0; i < side * side; ++i)
        for (const int byte : pixel)
            image += static_cast<char>(byte);
    return image +
           std::string(static_cast<std::size_t>((side + 31) / 32 * 4 * side), pixel[3] == 0 ? '\xFF' : '\0');
}

} // namespace quillshift
