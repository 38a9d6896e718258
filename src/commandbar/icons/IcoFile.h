#pragma once

#include "base/Geometry.h"
#include "controls/bitmaps/cAlphaDIBSection.h"

#include <optional>
#include <string_view>

namespace quillshift {

/// The image of an icon or cursor file that suits a size in pixels best: of that size, else the next larger
/// one, else the largest, scaled to it; the deepest of several. Straight (not premultiplied) colours with
/// alpha. Compressed images are passed over. Nothing if the file holds no image that can be read.
std::optional<cAlphaDIBSection> ReadIcon(std::string_view file, Size wanted);

/// An image of straight colours at another size; each new pixel is the mean of the area it covers.
cAlphaDIBSection ScaledIcon(const cAlphaDIBSection& image, Size size);

} // namespace quillshift
