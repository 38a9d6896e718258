#include "commandbar/Tracking.h"

#include <algorithm>

namespace quillshift {
namespace {

enum class Part { None, Main, Arrow };

void SetPointer(cDisplayButtonInfo& item, Part over, bool press) {
    item.MouseOver = over == Part::Main;
    item.MouseOverSplit = over == Part::Arrow;
    item.MouseDown = over != Part::None && (item.MouseDown || (press && over == Part::Main));
    item.MouseDownSplit = over != Part::None && (item.MouseDownSplit || (press && over == Part::Arrow));
}

// One step: the pointer is over a part of an item and nowhere else.
Tracked Track(std::vector<cDisplayButtonInfo>& items, ItemIndex target, Part part, bool press) {
    Tracked tracked;
    tracked.hit = tracked.hot = target;
    tracked.isNew = target.has_value() && HotItem(items) != target;
    for (std::size_t i = 0; i < items.size(); ++i) {
        const cDisplayButtonInfo before = items[i];
        SetPointer(items[i], i == target ? part : Part::None, press);
        if (items[i] != before)
            tracked.changed.push_back(i);
    }
    return tracked;
}

bool Selectable(const TrackedBar& bar, std::size_t index) {
    return bar.buttons[index]->IsSelectable(bar.mode, bar.orientation);
}

Tracked TrackAt(std::vector<cDisplayButtonInfo>& items, const TrackedBar& bar, Point at, bool press) {
    const ItemIndex hit = HitTest(items, at);
    Tracked tracked;
    if (!hit || !Selectable(bar, *hit)) {
        tracked = Track(items, std::nullopt, Part::None, press);
    } else {
        const bool arrow = IsOverArrow(*bar.buttons[*hit], items[*hit], at.x, bar.rightToLeft);
        tracked = Track(items, hit, arrow ? Part::Arrow : Part::Main, press);
    }
    tracked.hit = hit;
    return tracked;
}

} // namespace

ItemIndex HotItem(std::span<const cDisplayButtonInfo> items) {
    for (std::size_t i = 0; i < items.size(); ++i)
        if (items[i].MouseOver || items[i].MouseOverSplit)
            return i;
    return std::nullopt;
}

Tracked TrackMove(std::vector<cDisplayButtonInfo>& items, const TrackedBar& bar, Point at) {
    return TrackAt(items, bar, at, false);
}

Tracked TrackPress(std::vector<cDisplayButtonInfo>& items, const TrackedBar& bar, Point at) {
    Tracked tracked = TrackAt(items, bar, at, true);
    if (tracked.hot && items[*tracked.hot].MouseOverSplit)
        tracked.droppedDown = tracked.hot;
    return tracked;
}

Tracked TrackRelease(std::vector<cDisplayButtonInfo>& items, const TrackedBar& bar, Point at) {
    const std::vector<cDisplayButtonInfo> before = items;
    const ItemIndex hit = HitTest(items, at);
    const bool clicked = hit && Selectable(bar, *hit) && items[*hit].MouseOver && items[*hit].MouseDown;
    for (cDisplayButtonInfo& item : items)
        item.MouseDown = item.MouseDownSplit = false;
    Tracked tracked = TrackAt(items, bar, at, false);
    if (clicked)
        tracked.clicked = hit;
    tracked.changed.clear();
    for (std::size_t i = 0; i < items.size(); ++i)
        if (items[i] != before[i])
            tracked.changed.push_back(i);
    return tracked;
}

Tracked TrackTo(std::vector<cDisplayButtonInfo>& items, ItemIndex hot) {
    return Track(items, hot, Part::Main, false);
}

ItemIndex CurrentItem(std::span<const cDisplayButtonInfo> items) {
    for (std::size_t i = 0; i < items.size(); ++i)
        if (items[i].MouseOver || items[i].MouseOverSplit || items[i].ShowingMenu)
            return i;
    return std::nullopt;
}

ClickOutcome OutcomeOfClick(const ButtonRecord& button, const cDisplayButtonInfo& item, DisplayMode mode,
                            bool menuMode) {
    const bool ticks =
        mode == DisplayMode::AddOrRemoveList && button.CustomiseState != CustomiseState::PlainCommand;
    // A click on a split button is one on its main part, which has no bar of its own.
    const bool hasBar = button.Bar != nullptr && button.Style != ButtonStyle::Split && !ticks;
    return {.ticksRow = ticks && menuMode,
            .endsMenuMode = menuMode && !hasBar && !ticks,
            .opensBar = hasBar && !item.ShowingMenu,
            .raisesClick = !hasBar && !item.ShowingMenu};
}

} // namespace quillshift
