#pragma once

#include "platform/Surface.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>

namespace quillshift {

/// A block to be copied from one bitmap to another, in pixels counted from the top left.
struct Block {
    int x, y;
    int width, height;
    int sourceX, sourceY;
};

/// Shortens one direction of a copy to what lies in both bitmaps.
inline void ClipSpan(int& target, int& source, int& length, int targetSize, int sourceSize) {
    const std::int64_t skipped = std::max({std::int64_t{0}, -std::int64_t{target}, -std::int64_t{source}});
    const std::int64_t end = std::min(
        {std::int64_t{length}, std::int64_t{targetSize} - target, std::int64_t{sourceSize} - source});
    length = static_cast<int>(std::max(std::int64_t{0}, end - skipped));
    if (length == 0)
        return;
    target = static_cast<int>(target + skipped);
    source = static_cast<int>(source + skipped);
}

/// The pixel at (x, y) of a bitmap, by its bytes (32 bits a pixel, lines bottom up) and its size.
template <class Byte>
Byte* PixelAt(Byte* bits, int width, int height, int x, int y) {
    return bits + (std::ptrdiff_t{height - 1 - y} * width + x) * 4;
}

/// Calls `join(target pixel, source pixel)` for each pixel of the block that lies in both bitmaps.
template <class Join>
void JoinBlock(std::uint8_t* target, Size targetSize, const PixelView& source, Block block, Join join) {
    ClipSpan(block.x, block.sourceX, block.width, targetSize.width, source.width);
    ClipSpan(block.y, block.sourceY, block.height, targetSize.height, source.height);
    for (int line = 0; block.width > 0 && line < block.height; ++line) {
        std::uint8_t* to = PixelAt(target, targetSize.width, targetSize.height, block.x, block.y + line);
        const std::uint8_t* from =
            PixelAt(source.bits, source.width, source.height, block.sourceX, block.sourceY + line);
        for (int column = 0; column < block.width; ++column, to += 4, from += 4)
            join(to, from);
    }
}

} // namespace quillshift
