#pragma once

#include "commandbar/mCommandBarColours.h"
#include "platform/Surface.h"

#include <string_view>

namespace quillshift {

enum class FillDirection { Down, Across };

/// Fills with a change from `start` to `end`; flat with `start` if they are the same or the system has no
/// gradients. No colour fills nothing.
void Fill(Surface& surface, const Rect& area, std::optional<Colour> start, std::optional<Colour> end,
          FillDirection direction, const PlatformFlags& flags);

/// Paints the shapes of the bars in the colours of the table. A slot without a colour paints nothing.
class BarBrush {
public:
    BarBrush(Surface& surface, const mCommandBarColours& colours) : surface_(surface), colours_(colours) {}

    /// From the slot to the one behind it.
    void FillPair(const Rect& area, Slot start, FillDirection direction = FillDirection::Down);
    void Frame(const Rect& area, Slot slot);
    /// Both ends included.
    void Line(Point from, Point to, Slot slot);
    void Text(const Rect& area, std::u16string_view text, const FontSpec& font, std::optional<Colour> colour,
              const TextLayout& layout);
    /// The triangle that announces a menu: pointing down, or left on an upright bar; in the middle of `area`.
    void DropArrow(const Rect& area, bool upright, Slot slot);
    /// The triangle at the end of a row with a sub-menu, four pixels wide around `middle`; pointing to the
    /// side that the sub-menu opens to.
    void SubMenuTriangle(Point middle, bool toTheLeft, Slot slot);
    void CheckMark(Point middle, Slot slot);
    /// A swatch in the place of an icon.
    void ColourBox(Point at, Colour colour);

private:
    Surface& surface_;
    const mCommandBarColours& colours_;
};

} // namespace quillshift
