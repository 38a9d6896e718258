#pragma once

#include "support/Pixels.h"

#include <string>
#include <vector>

namespace quillshift {

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
