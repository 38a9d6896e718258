#include "commandbar/ToolbarItemLook.h"

#include <span>

namespace quillshift {
namespace {

using State = unsigned;
constexpr State kOver = 1; // the main part of a split item, else all of it
constexpr State kHot = 2;  // any part
constexpr State kDown = 4;
constexpr State kArrowPressed = 8;
constexpr State kShowing = 16;
constexpr State kChecked = 32;
constexpr State kSubBar = 64;
constexpr State kDark = 128;

State StateOf(const ButtonRecord& button, const cDrawButtonParams& item, BarStyle style) {
    const auto bit = [](bool set, State state) { return set ? state : 0; };
    return bit(item.MouseOver, kOver) | bit(item.IsHot(), kHot) | bit(item.MouseDown, kDown) |
           bit(item.MouseDownSplit && item.MouseOverSplit, kArrowPressed) | bit(item.ShowingMenu, kShowing) |
           bit(button.Checked, kChecked) | bit(button.Bar != nullptr, kSubBar) |
           bit(style == BarStyle::Dark, kDark);
}

// The first row whose states are all set counts.
struct StateRow {
    State all;
    ToolbarItemLook look;
};

constexpr bool kLit = true;
constexpr bool kUnlit = false;

constexpr StateRow kSplitRows[] = {
    {kArrowPressed, {Slot::BarFillStart, ItemEdge::Plain, kLit}},
    {kShowing, {Slot::BarFillStart, ItemEdge::Plain, kLit}},
    {kHot | kDown, {Slot::PressedFillStart, ItemEdge::TwoParts, kLit, true}},
    {kHot, {Slot::HotFillStart, ItemEdge::TwoParts, kLit}},
    {kDown, {Slot::HotFillStart, ItemEdge::TwoParts, kLit}},
    {0, {Slot::ItemFillStart, ItemEdge::None, kUnlit}},
};

constexpr StateRow kRows[] = {
    {kShowing | kSubBar | kDark, {Slot::PressedFillStart, ItemEdge::Plain, kLit}},
    {kShowing | kSubBar, {Slot::BarFillStart, ItemEdge::Plain, kUnlit}},
    {kShowing, {Slot::PressedFillStart, ItemEdge::Plain, kLit}},
    {kOver | kDown | kSubBar, {Slot::BarFillStart, ItemEdge::Plain, kUnlit}},
    {kOver | kDown, {Slot::PressedFillStart, ItemEdge::Plain, kLit}},
    {kOver | kChecked, {Slot::PressedFillStart, ItemEdge::Plain, kLit}},
    {kOver, {Slot::HotFillStart, ItemEdge::Plain, kLit}},
    {kDown | kChecked, {Slot::PressedFillStart, ItemEdge::Plain, kLit}},
    {kDown, {Slot::HotFillStart, ItemEdge::Plain, kLit}},
    {kChecked, {Slot::CheckedFillStart, ItemEdge::Plain, kUnlit}},
    {0, {Slot::ItemFillStart, ItemEdge::None, kUnlit}},
};

ToolbarItemLook FirstOf(std::span<const StateRow> rows, State state) {
    for (const StateRow& row : rows)
        if ((state & row.all) == row.all)
            return row.look;
    return {};
}

ThemeState ThemeStateFor(const ButtonRecord& button, const cDrawButtonParams& item, bool pressed) {
    if (!item.Selectable && !button.Locked)
        return ThemeState::Disabled;
    if (pressed)
        return ThemeState::Pressed;
    if (item.IsHot() || item.MouseDown)
        return button.Checked ? ThemeState::HotChecked : ThemeState::Hot;
    return button.Checked ? ThemeState::Checked : ThemeState::Normal;
}

} // namespace

ToolbarItemLook LookOf(const ButtonRecord& button, const cDrawButtonParams& item, BarStyle style) {
    if (!item.Selectable)
        return {.fill = std::nullopt,
                .edge = item.KeyboardMode && item.MouseOver ? ItemEdge::Plain : ItemEdge::None};
    const std::span<const StateRow> rows =
        button.Style == ButtonStyle::Split ? std::span<const StateRow>(kSplitRows) : kRows;
    ToolbarItemLook look = FirstOf(rows, StateOf(button, item, style));
    if (OnlyIconShowsState(button, item, style)) {
        look.fill.reset();
        look.edge = ItemEdge::None;
        look.hotArrow = false;
    }
    return look;
}

bool HasArrowPart(const ButtonRecord& button) {
    return button.Style == ButtonStyle::Split || (button.Bar != nullptr && button.ShowDropDownInToolbar);
}

Rect ArrowPartOf(const ButtonRecord& button, const cDrawButtonParams& item) {
    const Rect inner = item.Area().Inset(1);
    if (IsUpright(item.Orientation) && button.Style != ButtonStyle::Split)
        return {inner.left, inner.bottom - button.SplitWidth, inner.right, inner.bottom};
    return item.RightToLeft ? Rect{inner.left, inner.top, inner.left + button.SplitWidth, inner.bottom}
                            : Rect{inner.right - button.SplitWidth, inner.top, inner.right, inner.bottom};
}

bool OnlyIconShowsState(const ButtonRecord& button, const cDrawButtonParams& item, BarStyle style) {
    return style == BarStyle::Dark && item.Selectable && item.Mode == DisplayMode::Toolbar &&
           button.ShowCaptionInToolbar && !button.Caption.empty() && button.HasIcon();
}

ThemeState ThemeStateOf(const ButtonRecord& button, const cDrawButtonParams& item) {
    return ThemeStateFor(button, item, (item.MouseOver && item.MouseDown) || item.ShowingMenu);
}

ThemeState ThemeStateOfArrow(const ButtonRecord& button, const cDrawButtonParams& item) {
    return ThemeStateFor(button, item, (item.MouseOverSplit && item.MouseDownSplit) || item.ShowingMenu);
}

} // namespace quillshift
