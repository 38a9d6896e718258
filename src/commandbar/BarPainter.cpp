#include "commandbar/BarPainter.h"

#include "commandbar/MenuRowPainter.h"
#include "commandbar/ToolbarItemPainter.h"

#include <algorithm>

namespace quillshift {
namespace {

Rect ClientOf(const BarView& bar) {
    return {0, 0, bar.client.width, bar.client.height};
}

// Tiles lie on a grid from the client's origin, so that those of neighbouring paints meet.
void Tile(Surface& surface, const PixelView& picture, const Rect& part) {
    const Rect whole{0, 0, picture.width, picture.height};
    for (int y = part.top - part.top % picture.height; y < part.bottom; y += picture.height)
        for (int x = part.left - part.left % picture.width; x < part.right; x += picture.width)
            surface.Composite(whole.MovedBy(x, y), picture, whole);
}

} // namespace

cDrawButtonParams DrawParamsOf(const BarView& bar, std::size_t index) {
    const cDisplayButtonInfo& item = bar.items[index];
    return {.Window = bar.window,
            .Font = bar.font,
            .Left = item.Left,
            .Top = item.Top,
            .Height = item.Bottom - item.Top,
            .RightToLeft = bar.rightToLeft,
            .MouseOver = item.MouseOver,
            .MouseDown = item.MouseDown,
            .MouseOverSplit = item.MouseOverSplit,
            .MouseDownSplit = item.MouseDownSplit,
            .ShowingMenu = item.ShowingMenu,
            .Mode = bar.mode,
            .Orientation = bar.orientation,
            .Selectable = bar.buttons[index]->IsSelectable(bar.mode, bar.orientation),
            .Width = item.Right - item.Left,
            .Icons = bar.icons,
            .ButtonTextPosition = bar.textPosition,
            .KeyboardMode = bar.keyboardMode};
}

void BarPainter::PaintBar(Surface& surface, const BarView& bar) const {
    const Rect client = ClientOf(bar);
    surface.SetClip(client);
    PaintGround(surface, bar, client);
    for (std::size_t i = 0; i < bar.items.size(); ++i)
        PaintContent(surface, bar, i);
    surface.ClearClip();
}

void BarPainter::PaintItem(Surface& surface, const BarView& bar, std::size_t index) const {
    if (!IsPlaced(bar.items[index]))
        return;
    const Rect area = AreaOf(bar.items[index]);
    surface.SetClip(area);
    PaintGround(surface, bar, area);
    PaintContent(surface, bar, index);
    surface.ClearClip();
}

void BarPainter::PaintGround(Surface& surface, const BarView& bar, const Rect& part) const {
    if (IsMenu(bar.mode))
        PaintPopupFrame(surface, bar);
    else
        PaintBarBackground(surface, bar, part);
}

void BarPainter::PaintBarBackground(Surface& surface, const BarView& bar, const Rect& part) const {
    if (bar.background.bits != nullptr && bar.background.width > 0 && bar.background.height > 0)
        Tile(surface, bar.background, part);
    else if (colours_.Of(Slot::BarFillStart) && bar.mode != DisplayMode::MainMenu)
        BarBrush(surface, colours_)
            .FillPair(ClientOf(bar), Slot::BarFillStart,
                      IsUpright(bar.orientation) ? FillDirection::Across : FillDirection::Down);
    else
        PaintSharedBackground(surface, bar);
}

// Several bars in one window show parts of one gradient.
void BarPainter::PaintSharedBackground(Surface& surface, const BarView& bar) const {
    const auto [start, end] = colours_.SharedGround();
    Fill(surface, bar.parentClient, start, end, FillDirection::Across, colours_.Flags());
}

void BarPainter::PaintPopupFrame(Surface& surface, const BarView& bar) const {
    const Rect client = ClientOf(bar);
    BarBrush brush(surface, colours_);
    brush.FillPair(client, Slot::MenuFillStart);
    brush.Frame(client, Slot::Border);
    PaintPopupGap(brush, bar);
    const int icon = IconSizeOf(bar.icons).width;
    const int width = icon + 8 + TickColumnWidth(bar.mode, icon);
    const int left = bar.rightToLeft ? client.right - 1 - width : 1;
    brush.FillPair({left, 2, left + width, client.bottom - 2}, Slot::BarFillStart, FillDirection::Across);
}

void BarPainter::PaintPopupGap(BarBrush& brush, const BarView& bar) const {
    const bool across =
        bar.gap.direction == PopupDirection::Below || bar.gap.direction == PopupDirection::Above;
    const int length = across ? bar.client.width : bar.client.height;
    const int from = std::max(bar.gap.position + 1, 0);
    const int to = std::min(bar.gap.position + bar.gap.size - 1, length - 1);
    if (from > to)
        return;
    const bool farEdge =
        bar.gap.direction == PopupDirection::Above || bar.gap.direction == PopupDirection::Left;
    const int edge = farEdge ? (across ? bar.client.height : bar.client.width) - 1 : 0;
    brush.Line(across ? Point{from, edge} : Point{edge, from}, across ? Point{to, edge} : Point{edge, to},
               Slot::MenuFillStart);
}

void BarPainter::PaintContent(Surface& surface, const BarView& bar, std::size_t index) const {
    if (!IsPlaced(bar.items[index]))
        return;
    const ButtonRecord& button = *bar.buttons[index];
    const cDrawButtonParams item = DrawParamsOf(bar, index);
    if (!IsMenu(bar.mode)) {
        PaintToolbarItem(surface, colours_, button, item);
        return;
    }
    PaintMenuRow(surface, colours_, button, item);
}

} // namespace quillshift
