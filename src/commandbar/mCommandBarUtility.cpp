#include "commandbar/mCommandBarUtility.h"

namespace quillshift {

void Fill(Surface& surface, const Rect& area, std::optional<Colour> start, std::optional<Colour> end,
          FillDirection direction, const PlatformFlags& flags) {
    if (!start || area.IsEmpty())
        return;
    if (flags.Gradients && end && *end != *start)
        surface.FillGradient(area, *start, *end, direction == FillDirection::Across);
    else
        surface.FillRect(area, *start);
}

void BarBrush::FillPair(const Rect& area, Slot start, FillDirection direction) {
    const auto end = static_cast<Slot>(static_cast<int>(start) + 1);
    Fill(surface_, area, colours_.Of(start), colours_.Of(end), direction, colours_.Flags());
}

void BarBrush::Frame(const Rect& area, Slot slot) {
    if (const auto colour = colours_.Of(slot))
        surface_.FrameRect(area, *colour);
}

void BarBrush::Line(Point from, Point to, Slot slot) {
    if (const auto colour = colours_.Of(slot))
        surface_.DrawLine(from, to, *colour);
}

void BarBrush::Text(const Rect& area, std::u16string_view text, const FontSpec& font,
                    std::optional<Colour> colour, const TextLayout& layout) {
    if (colour && !text.empty() && !area.IsEmpty())
        surface_.DrawText(area, text, font, *colour, layout);
}

void BarBrush::DropArrow(const Rect& area, bool upright, Slot slot) {
    const auto colour = colours_.Of(slot);
    if (!colour)
        return;
    const int x = area.left + (area.Width() - (upright ? 3 : 5)) / 2;
    const int y = area.top + (area.Height() - (upright ? 5 : 3)) / 2;
    for (int i = 0; i < 3; ++i) {
        const int length = 5 - 2 * i;
        surface_.FillRect(upright ? RectAt(x + 2 - i, y + i, 1, length) : RectAt(x + i, y + i, length, 1),
                          *colour);
    }
}

void BarBrush::SubMenuTriangle(Point middle, bool toTheLeft, Slot slot) {
    const auto colour = colours_.Of(slot);
    if (!colour)
        return;
    for (int i = 0; i < 4; ++i) {
        const int x = toTheLeft ? middle.x + 1 - i : middle.x - 2 + i;
        surface_.FillRect(RectAt(x, middle.y - 3 + i, 1, 7 - 2 * i), *colour);
    }
}

void BarBrush::CheckMark(Point middle, Slot slot) {
    const auto [x, y] = middle;
    Line({x - 3, y}, {x - 1, y + 2}, slot);
    Line({x - 3, y + 1}, {x - 1, y + 3}, slot);
    Line({x - 1, y + 3}, {x + 5, y - 3}, slot);
    Line({x - 1, y + 2}, {x + 5, y - 4}, slot);
}

void BarBrush::ColourBox(Point at, Colour colour) {
    const Rect box = RectAt(at.x, at.y, 15, 15);
    surface_.FillRect(box, colour);
    Frame(box, Slot::Border);
}

} // namespace quillshift
