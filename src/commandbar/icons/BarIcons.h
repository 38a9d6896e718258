#pragma once

#include "platform/Surface.h"

namespace quillshift {

/// The look of an icon: as it is, or derived from it.
enum class IconMode { Source = 0, Disabled = 1, Plain = 2, Highlighted = 3 };

/// The icons a bar paints from.
class BarIcons {
public:
    virtual ~BarIcons() = default;
    /// Size of each icon in logical pixels; 0 by 0 for an empty list.
    virtual Size IconSize() const = 0;
    /// Draws an icon with its top left corner at `at`. An unknown index draws nothing.
    virtual void Draw(Surface& surface, int index, IconMode mode, Point at) = 0;
};

/// The size to lay out and paint with: a bar without icons reckons with a small one.
inline Size IconSizeOf(const BarIcons* icons) {
    constexpr int kWithoutIcons = 8;
    const Size size = icons == nullptr ? Size{} : icons->IconSize();
    return {size.width == 0 ? kWithoutIcons : size.width, size.height == 0 ? kWithoutIcons : size.height};
}

} // namespace quillshift
