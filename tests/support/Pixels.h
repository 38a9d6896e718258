#pragma once

#include "controls/bitmaps/DibSection.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <vector>

namespace quillshift {

/// Blue, green, red, alpha.
using Pixel = std::array<int, 4>;

inline Pixel PixelOf(const PixelView& view, int x, int y) {
    const std::uint8_t* at = view.bits + (std::ptrdiff_t{view.height - 1 - y} * view.width + x) * 4;
    return {at[0], at[1], at[2], at[3]};
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
