#include "commandbar/MenuRowPainter.h"

namespace quillshift {
namespace {

// Paints one row. Geometry is reckoned from left to right and mirrored where the row runs the other way.
class Painting {
public:
    Painting(Surface& surface, const mCommandBarColours& colours, const ButtonRecord& button,
             const cDrawButtonParams& item)
        : surface_(surface),
          colours_(colours),
          button_(button),
          shortcut_(button.ShortcutText()),
          item_(item),
          brush_(surface, colours),
          icon_(IconSizeOf(item.Icons)),
          lit_(item.IsHot() || item.ShowingMenu) {}

    void Run() {
        if (button_.Style == ButtonStyle::Separator) {
            PaintSeparator();
            return;
        }
        PaintBackground();
        if (item_.Mode == DisplayMode::AddOrRemoveList && button_.CustomiseState == CustomiseState::Ticked)
            PaintTickBox(0, true);
        if (button_.Checked)
            PaintTickBox(IconShift(), !button_.HasPicture());
        PaintPicture();
        PaintTexts();
        if (button_.Bar != nullptr) {
            const Point middle{Mirrored({item_.Right() - 12, 0, item_.Right() - 8, 0}).left + 2,
                               item_.Top + item_.Height / 2};
            brush_.SubMenuTriangle(middle, item_.RightToLeft, TextSlot());
        }
    }

private:
    // A box in the tick column and one behind an icon stand side by side.
    int IconShift() const { return item_.Mode == DisplayMode::AddOrRemoveList ? icon_.width + 4 : 0; }

    int TextColumn() const {
        return icon_.width + 16 + (item_.Mode == DisplayMode::AddOrRemoveList ? icon_.width + 6 : 0);
    }

    Rect Mirrored(const Rect& area) const {
        if (!item_.RightToLeft)
            return area;
        const int sides = item_.Left + item_.Right();
        return {sides - area.right, area.top, sides - area.left, area.bottom};
    }

    void PaintSeparator() {
        const int y = item_.Top + 1;
        const Rect line = Mirrored({item_.Left + TextColumn(), y, item_.Right() - 4, y + 1});
        brush_.Line({line.left, y}, {line.right - 1, y}, Slot::SeparatorDark);
    }

    void PaintBackground() {
        if (!lit_ || (!item_.Selectable && !item_.KeyboardMode))
            return;
        const Rect area = RectAt(item_.Left + 2, item_.Top + 1, item_.Width - 4, item_.Height - 1);
        brush_.FillPair(area, item_.Selectable ? Slot::MenuHotFillStart : Slot::MenuFillStart);
        brush_.Frame(area, Slot::HotBorder);
    }

    void PaintTickBox(int shift, bool marked) {
        const Rect box =
            Mirrored(RectAt(item_.Left + 3 + shift, item_.Top + 2, icon_.width + 5, icon_.height + 5));
        brush_.FillPair(box, lit_ ? Slot::HotTickFillStart : Slot::TickFillStart);
        brush_.Frame(box, Slot::HotBorder);
        // The mark lies on the box's own fill, not on that of the row.
        if (marked)
            brush_.CheckMark({box.left + box.Width() / 2, box.top + box.Height() / 2},
                             button_.Enabled ? Slot::MenuText : Slot::MenuDisabledText);
    }

    void PaintPicture() {
        const Rect place =
            Mirrored(RectAt(item_.Left + 5 + IconShift(), item_.Top + (item_.Height - icon_.height) / 2,
                            icon_.width, icon_.height));
        const Point at{place.left, place.top};
        if (!button_.HasIcon() && button_.ColorBox)
            brush_.ColourBox(at, *button_.ColorBox);
        else if (button_.HasIcon() && item_.Icons != nullptr)
            item_.Icons->Draw(surface_, button_.IconIndex,
                              button_.Enabled ? IconMode::Source : IconMode::Disabled, at);
    }

    Slot TextSlot() const {
        if (!button_.Enabled)
            return Slot::MenuDisabledText;
        return lit_ ? Slot::MenuHotText : Slot::MenuText;
    }

    void PaintTexts() {
        using enum TextLayout::Align;
        Rect area =
            Mirrored({item_.Left + TextColumn(), item_.Top, item_.Right() - button_.MenuGap, item_.Bottom()});
        const auto colour = colours_.Of(TextSlot());
        brush_.Text(area, shortcut_, item_.Font, colour,
                    {.align = item_.RightToLeft ? Left : Right, .mnemonics = false});
        if (item_.RightToLeft)
            area.left = item_.Left + 4;
        brush_.Text(area, button_.Caption, item_.Font, colour, {.align = item_.RightToLeft ? Right : Left});
    }

    Surface& surface_;
    const mCommandBarColours& colours_;
    const ButtonRecord& button_;
    std::u16string shortcut_;
    const cDrawButtonParams& item_;
    BarBrush brush_;
    Size icon_;
    bool lit_;
};

} // namespace

void PaintMenuRow(Surface& surface, const mCommandBarColours& colours, const ButtonRecord& button,
                  const cDrawButtonParams& item) {
    Painting(surface, colours, button, item).Run();
}

} // namespace quillshift
