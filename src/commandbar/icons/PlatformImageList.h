#pragma once

#include "base/Geometry.h"
#include "controls/bitmaps/cAlphaDIBSection.h"

#include <memory>
#include <utility>
#include <vector>

namespace quillshift {

/// An icon in the two forms in which it is needed.
struct IconImage {
    explicit IconImage(cAlphaDIBSection pixels) : straight(std::move(pixels)), composite(straight) {
        composite.PreMultiplyAlpha();
    }

    cAlphaDIBSection straight;  ///< colours as in the file, for looks to be derived from
    cAlphaDIBSection composite; ///< premultiplied, for drawing
};

/// Icons of one size, counted from 0.
struct PlatformImageList {
    Size size;       ///< of each icon, in logical pixels
    int density = 1; ///< the icon's pixels per logical pixel, across and down
    std::vector<IconImage> images;

    Size PixelSize() const { return {size.width * density, size.height * density}; }
    /// Null outside the list.
    const IconImage* Find(int index) const {
        return index >= 0 && index < static_cast<int>(images.size())
                   ? &images[static_cast<std::size_t>(index)]
                   : nullptr;
    }
};

/// By a handle one looks into a list without keeping it alive.
using ImageListHandle = std::weak_ptr<const PlatformImageList>;

} // namespace quillshift
