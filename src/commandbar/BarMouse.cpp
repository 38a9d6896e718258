// How a control follows the mouse, and what a click does.

#include "commandbar/qsCommandBar.h"

#include <algorithm>

namespace quillshift {
namespace {

constexpr auto kSubMenuDelay = std::chrono::milliseconds(250);
constexpr auto kLostMouseDelay = std::chrono::milliseconds(50);

} // namespace

TrackedBar qsCommandBar::TrackingView() const {
    return {.buttons = records_,
            .mode = Mode(),
            .orientation = orientation_,
            .rightToLeft = window_.RightToLeft()};
}

void qsCommandBar::OnMouseMove(Point at) {
    const Point screen = window_.ToScreen(at);
    const std::optional<Point> before = lastPointer_;
    if (!enabled_ || before == screen)
        return;
    lastPointer_ = screen;
    tmrLostMouse_->Stop();
    // The item whose menu is open stays lit while the pointer is between items.
    if (IsMenuSource() && !HitTest(items_, at))
        return;
    Tracked tracked = TrackMove(items_, TrackingView(), at);
    // An item that a key has made hot is new to the pointer all the same.
    const ItemIndex hitBefore = before ? HitTest(items_, window_.FromScreen(*before)) : std::nullopt;
    tracked.isNew = tracked.isNew || (tracked.hot && tracked.hot != hitBefore);
    AfterTracking(tracked);
}

void qsCommandBar::OnMousePress(Point at, MouseButton button) {
    if (!enabled_)
        return;
    if (button == MouseButton::Left) {
        const ItemIndex pressed = HitTest(items_, at);
        pressedOpenMenu_ = pressed && items_[*pressed].ShowingMenu;
        const Tracked tracked = TrackPress(items_, TrackingView(), at);
        AfterTracking(tracked);
        if (tracked.droppedDown)
            DropDown(*tracked.droppedDown);
        return;
    }
    const Tracked tracked = TrackMove(items_, TrackingView(), at);
    AfterTracking(tracked);
    if (button == MouseButton::Right && RightClick)
        RightClick(tracked.hit && buttons_[*tracked.hit] != &more_
                       ? std::optional(HandleOf(*buttons_[*tracked.hit]))
                       : std::nullopt,
                   at);
}

void qsCommandBar::OnMouseRelease(Point at, MouseButton button) {
    if (!enabled_ || button != MouseButton::Left)
        return;
    const Tracked tracked = TrackRelease(items_, TrackingView(), at);
    AfterTracking(tracked);
    if (tracked.clicked)
        Click(*tracked.clicked);
}

void qsCommandBar::AfterTracking(const Tracked& tracked) {
    for (const std::size_t index : tracked.changed)
        RepaintItem(index);
    ShowToolTip(tracked.hot);
    if (tracked.isNew && bars_.Menu().MenuMode)
        HoverInMenuMode(*tracked.hot);
}

void qsCommandBar::ShowToolTip(ItemIndex hot) {
    std::u16string text;
    if (hot && buttons_[*hot] != &more_)
        text = records_[*hot]->FullToolTip();
    else if (hot && std::ranges::any_of(records_, [](const auto* each) { return !each->ToolTip.empty(); }))
        text = MoreToolTip; // where the others have tips
    if (text == lastToolTip_)
        return;
    window_.SetToolTip(text);
    lastToolTip_ = std::move(text);
}

void qsCommandBar::HoverInMenuMode(std::size_t index) {
    if (items_[index].ShowingMenu || !IsSelectable(index))
        return;
    if (isPopup_) {
        menuPopupTag_ = index;
        tmrMenuPopup_->StartOnce(kSubMenuDelay);
        return;
    }
    bars_.Tracking().CloseMenusOf(Window());
    if (buttons_[index]->Bar != nullptr)
        OpenItem(index, false);
}

// Only the row that the pointer reached last counts, and only if it is still there.
void qsCommandBar::OnMenuPopupTimer() {
    const ItemIndex index = std::exchange(menuPopupTag_, std::nullopt);
    if (!index || *index >= items_.size() || !items_[*index].MouseOver || !bars_.Menu().MenuMode)
        return;
    if (items_[*index].ShowingMenu)
        return;
    bars_.Tracking().CloseMenusOf(Window());
    if (buttons_[*index]->Bar != nullptr)
        OpenItem(*index, false);
}

void qsCommandBar::OnMouseLeave() {
    tmrLostMouse_->StartOnce(kLostMouseDelay);
}

// A disabled control keeps its look; what it has missed shows when it is enabled again.
void qsCommandBar::SetEnabled(bool on) {
    enabled_ = on;
    if (on && HotItem(items_))
        OnMouseLeave();
}

// A pointer may be said to leave while it stays, as when a dialog blocks the window or another window comes
// and goes above it: then it is asked for again, until it has gone or moves. An item whose menu is open stays
// lit.
void qsCommandBar::OnLostMouseTimer() {
    if (!enabled_)
        return;
    const Point at = window_.FromScreen(bars_.Services().system.PointerPosition());
    const Size client = window_.ClientSize();
    if (at.x >= 0 && at.y >= 0 && at.x < client.width && at.y < client.height) {
        OnMouseLeave();
        return;
    }
    const ItemIndex hot = HotItem(items_);
    lastPointer_.reset();
    if (hot && !items_[*hot].ShowingMenu)
        AfterTracking(TrackTo(items_, std::nullopt));
}

// --- Clicks

// A click closes the menu before the command runs, which may show a dialog.
void qsCommandBar::Click(std::size_t index) {
    cButtonInt& button = *buttons_[index];
    const ClickOutcome outcome = OutcomeOfClick(button, items_[index], Mode(), bars_.Menu().MenuMode);
    if (items_[index].ShowingMenu && !isPopup_) {
        // A second click closes the menu, but not the click that has just opened it.
        if (pressedOpenMenu_)
            bars_.Tracking().SetMenuMode(false);
        return;
    }
    if (outcome.opensBar) {
        OpenItem(index, false);
        return;
    }
    if (outcome.endsMenuMode)
        bars_.Tracking().SetMenuMode(false);
    bars_.Model().ApplyClick(button);
    if (outcome.ticksRow) {
        RepaintItem(index);
        bars_.Model().Set(button, &ButtonRecord::Visible, button.CustomiseState == CustomiseState::Ticked,
                          ChangeReason::SizeChanged);
    }
    if (outcome.raisesClick)
        RaiseClick(button);
}

void qsCommandBar::DropDown(std::size_t index) {
    if (items_[index].ShowingMenu) {
        bars_.Tracking().SetMenuMode(false);
        return;
    }
    bool cancel = false;
    if (ButtonDropDown)
        ButtonDropDown(HandleOf(*buttons_[index]), cancel);
    if (!cancel && buttons_[index]->Bar != nullptr)
        OpenItem(index, false);
}

void qsCommandBar::RaiseClick(const cButtonInt& button) {
    if (ButtonClick)
        ButtonClick(HandleOf(button));
}

void qsCommandBar::OnShortcut(cButtonInt& button) {
    if (std::ranges::find(buttons_, &button) != buttons_.end())
        bars_.Model().ApplyClick(button);
    RaiseClick(button);
}

} // namespace quillshift
