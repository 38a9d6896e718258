#include "commandbar/ToolbarItemPainter.h"

#include "commandbar/ToolbarItemLook.h"

namespace quillshift {
namespace {

// Parts of the theme's class "TOOLBAR".
constexpr int kThemeButton = 1;
constexpr int kThemeSplitMain = 3;
constexpr int kThemeSplitArrow = 4;
constexpr int kThemeSeparator = 5;
constexpr int kThemeSeparatorUpright = 6;

// Paints one item; each step is handed nothing but what the item is.
class Painting {
public:
    Painting(Surface& surface, const mCommandBarColours& colours, const ButtonRecord& button,
             const cDrawButtonParams& item)
        : surface_(surface),
          colours_(colours),
          button_(button),
          item_(item),
          brush_(surface, colours),
          look_(LookOf(button, item, colours.Style())),
          icon_(IconSizeOf(item.Icons)),
          upright_(IsUpright(item.Orientation)),
          themed_(colours.Style() == BarStyle::System && colours.Flags().Themes && !colours.HighContrast()) {}

    void Run() {
        if (button_.Style == ButtonStyle::Separator) {
            PaintSeparator();
            return;
        }
        PaintBackground();
        if (button_.Style == ButtonStyle::Panel && button_.Panel != nullptr && !upright_)
            return;
        PaintPicture();
        if (button_.ShowCaptionInToolbar)
            PaintCaption();
        if (HasArrowPart(button_))
            brush_.DropArrow(ArrowPartOf(button_, item_), upright_, ArrowSlot());
    }

private:
    void PaintSeparator() {
        if (themed_) {
            PaintThemePart(upright_ ? kThemeSeparatorUpright : kThemeSeparator, ThemeState::Normal,
                           item_.Area());
            return;
        }
        const int margin = button_.ItemMargin;
        if (upright_) {
            const int y = item_.Top + (item_.Height - 2) / 2;
            const int left = item_.Left + margin;
            const int right = item_.Right() - margin - 1;
            brush_.Line({left, y}, {right, y}, Slot::SeparatorDark);
            brush_.Line({left, y + 1}, {right, y + 1}, Slot::SeparatorLight);
        } else {
            const int x = item_.Left + (item_.Width - 2) / 2;
            const int top = item_.Top + margin;
            const int bottom = item_.Bottom() - margin - 1;
            brush_.Line({x, top}, {x, bottom}, Slot::SeparatorDark);
            brush_.Line({x + 1, top}, {x + 1, bottom}, Slot::SeparatorLight);
        }
    }

    void PaintBackground() {
        if (themed_) {
            PaintThemeBackground();
            return;
        }
        const Rect inner = item_.Area().Inset(1);
        if (look_.fill)
            brush_.FillPair(inner, *look_.fill);
        if (look_.hotArrow)
            brush_.FillPair(ArrowPartOf(button_, item_), Slot::HotFillStart);
        if (look_.edge != ItemEdge::None)
            brush_.Frame(inner, item_.ShowingMenu ? Slot::Border : Slot::HotBorder);
        if (look_.edge == ItemEdge::TwoParts)
            brush_.Frame(ArrowPartOf(button_, item_), Slot::HotBorder);
    }

    void PaintThemeBackground() {
        Rect main = item_.Area().Inset(1);
        if (button_.Style != ButtonStyle::Split) {
            PaintThemePart(kThemeButton, ThemeStateOf(button_, item_), main);
            return;
        }
        const Rect arrow = ArrowPartOf(button_, item_);
        (item_.RightToLeft ? main.left : main.right) = item_.RightToLeft ? arrow.right : arrow.left;
        PaintThemePart(kThemeSplitMain, ThemeStateOf(button_, item_), main);
        PaintThemePart(kThemeSplitArrow, ThemeStateOfArrow(button_, item_), arrow);
    }

    // Without a theme the item stands on the bar's background.
    void PaintThemePart(int part, ThemeState state, const Rect& area) {
        colours_.Theme().DrawToolbarPart(surface_, part, static_cast<int>(state), area);
    }

    Point PicturePlace() const {
        const int margin = button_.ItemMargin;
        const int centred = item_.Left + (item_.Width - icon_.width) / 2;
        if (upright_)
            return {button_.Style == ButtonStyle::Split ? item_.Left + margin : centred, item_.Top + margin};
        if (item_.ButtonTextPosition == TextPosition::BelowIcon && !button_.Locked)
            return {centred, item_.Top + margin};
        return {item_.RightToLeft ? item_.Right() - margin - icon_.width : item_.Left + margin,
                item_.Top + (item_.Height - icon_.height) / 2};
    }

    IconMode ModeOfIcon() const {
        if (OnlyIconShowsState(button_, item_, colours_.Style()))
            return look_.lit ? IconMode::Highlighted : IconMode::Plain;
        // A locked button can't be used either, but looks as usual.
        const bool usual = item_.Selectable || (button_.Locked && button_.Enabled);
        return usual ? IconMode::Source : IconMode::Disabled;
    }

    void PaintPicture() {
        Point at = PicturePlace();
        const bool sunken = (item_.MouseOver && item_.MouseDown) || button_.Checked || item_.ShowingMenu;
        if (colours_.Style() == BarStyle::System && item_.Selectable && sunken)
            at = {at.x + 1, at.y + 1};
        if (!button_.HasIcon() && button_.ColorBox)
            brush_.ColourBox(at, *button_.ColorBox);
        else if (button_.HasIcon() && item_.Icons != nullptr)
            item_.Icons->Draw(surface_, button_.IconIndex, ModeOfIcon(), at);
    }

    // In black and white the text is the ground's opposite.
    bool IsTextLit() const {
        return colours_.HighContrast()
                   ? look_.fill == Slot::HotFillStart || look_.fill == Slot::PressedFillStart
                   : look_.lit;
    }

    Slot ArrowSlot() const {
        if (!item_.Selectable)
            return Slot::DisabledText;
        return colours_.HighContrast() && IsTextLit() ? Slot::HotText : Slot::ToolbarText;
    }

    std::optional<Colour> CaptionColour() const {
        if (!item_.Selectable && !button_.Locked)
            return colours_.Of(Slot::DisabledText);
        if (themed_ && item_.MouseOver && item_.MouseDown)
            return colours_.Of(SystemColour::Highlight3D);
        return colours_.Of(IsTextLit() && !button_.Locked ? Slot::HotText : Slot::ToolbarText);
    }

    void PaintCaption() {
        TextLayout layout{.align = TextLayout::Align::Left, .rotated = upright_};
        Rect area;
        if (upright_) {
            area = CaptionRunningDown();
        } else if (item_.ButtonTextPosition == TextPosition::BelowIcon) {
            area = CaptionBelow();
            layout.align = TextLayout::Align::Centre;
        } else {
            area = CaptionBeside();
        }
        brush_.Text(area, button_.Caption, item_.Font, CaptionColour(), layout);
    }

    Rect CaptionBeside() const {
        const int margin = button_.ItemMargin;
        const int gap = button_.HasPicture() ? 4 : 2;
        int left = item_.Left + margin + 2;
        if (!item_.RightToLeft)
            left = item_.Left + margin + (button_.HasPicture() ? icon_.width : 0) + gap;
        else if (button_.Style == ButtonStyle::Split)
            left += button_.SplitWidth + 2;
        return RectAt(left, item_.Top + margin, item_.Width - 2 * margin - gap, item_.Height - 2 * margin);
    }

    Rect CaptionBelow() const {
        const int margin = button_.ItemMargin;
        const int belowIcon = item_.Top + margin + icon_.height + 2;
        // Without a picture the caption stands in line with those of its neighbours, where the bar is deep
        // enough for that.
        const int line = surface_.TextExtent(u"Xy", item_.Font).height;
        const bool inLine = button_.HasPicture() ||
                            (button_.Style != ButtonStyle::Panel && belowIcon + line <= item_.Bottom() - 1);
        return {item_.Left + 6, inLine ? belowIcon : item_.Top + margin, item_.Right() - 6,
                item_.Bottom() - 2};
    }

    Rect CaptionRunningDown() const {
        const int margin = button_.ItemMargin;
        const int arrow = button_.Style == ButtonStyle::Split ? button_.SplitWidth : 0;
        return {item_.Left + margin, item_.Top + margin + (button_.HasPicture() ? icon_.height : 0) + 2,
                item_.Right() - margin - arrow, item_.Bottom() - margin};
    }

    Surface& surface_;
    const mCommandBarColours& colours_;
    const ButtonRecord& button_;
    const cDrawButtonParams& item_;
    BarBrush brush_;
    ToolbarItemLook look_;
    Size icon_;
    bool upright_;
    bool themed_; // by the desktop's theme instead of the table
};

} // namespace

void PaintToolbarItem(Surface& surface, const mCommandBarColours& colours, const ButtonRecord& button,
                      const cDrawButtonParams& item) {
    Painting(surface, colours, button, item).Run();
}

} // namespace quillshift
