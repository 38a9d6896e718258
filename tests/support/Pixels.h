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

} // namespace quillshift
