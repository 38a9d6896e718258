#include "commandbar/MenuMode.h"

#include <utility>

namespace quillshift {

void MenuTracking::SetMenuMode(bool on, WindowId window) {
    if (!on && state_.PopupLevel() > 0)
        CloseLevel(state_.PopupLevel());
    else if (on && !state_.MenuMode)
        SwitchOn(window);
    else if (!on && state_.MenuMode)
        SwitchOff();
}

void MenuTracking::EndMenuMode() {
    for (int levels = state_.PopupLevel() + 1; levels > 0; --levels)
        SetMenuMode(false);
}

void MenuTracking::SwitchOn(WindowId source) {
    state_.MenuMode = true;
    state_.MenuExpanded = false;
    state_.MenuSource = source;
    host_.WatchPresses(true);
    for (const MenuControl& control : host_.Controls())
        if (!control.isPopup && control.window != source && control.enabled) {
            host_.SetEnabled(control.window, false);
            state_.disabledControls.push_back(control.window);
        }
}

void MenuTracking::SwitchOff() {
    state_.MenuMode = false;
    state_.KeyboardMode = false;
    state_.MenuExpanded = false;
    host_.WatchPresses(false);
    for (const MenuControl& control : host_.Controls())
        Close(control.window);
    state_.ActiveWindow = 0;
    for (const WindowId control : std::exchange(state_.disabledControls, {}))
        host_.SetEnabled(control, true);
    host_.ClearHot(state_.MenuSource);
}

void MenuTracking::CloseLevel(int level) {
    const auto entries = state_.popups.Entries();
    for (const cMenuPopupStack& entry : entries)
        if (entry.RecursionLevel == level)
            Close(entry.hwnd);
}

void MenuTracking::PopupOpening(WindowId source) {
    const cMenuPopupStack* const parent = state_.popups.Find(source);
    SetMenuMode(true, parent ? parent->hWndSource : source);
}

void MenuTracking::PopupOpened(WindowId popup, WindowId source, bool shownAsPopup) {
    if (!IsOpenPopup(source))
        CloseMenusOfOtherBars(source);
    state_.ActiveWindow = popup;
    Apply(state_.popups.Push(popup, source, shownAsPopup));
}

void MenuTracking::CloseMenusOfOtherBars(WindowId source) {
    const auto entries = state_.popups.Entries();
    for (const cMenuPopupStack& entry : entries)
        if (entry.hWndSource != source && !IsOpenPopup(entry.hWndSource)) {
            CloseItemMenus(entry.hWndSource);
            Close(entry.hwnd); // a free one, which no item shows
        }
}

void MenuTracking::Close(WindowId control) {
    CloseItemMenus(control);
    if (!IsOpenPopup(control))
        return;
    host_.AnnounceClosed(control);
    Apply(state_.popups.Pop(control));
    host_.HidePopup(control);
    if (state_.ActiveWindow == control) {
        const auto& left = state_.popups.Entries();
        state_.ActiveWindow = left.empty() ? state_.MenuSource : left.back().hwnd;
    }
}

void MenuTracking::CloseMenusOf(WindowId control) {
    CloseItemMenus(control);
    const auto entries = state_.popups.Entries();
    for (const cMenuPopupStack& entry : entries)
        if (entry.ShownAsPopup && entry.hWndSource == control)
            Close(entry.hwnd);
    state_.ActiveWindow = control;
}

void MenuTracking::CloseItemMenus(WindowId control) {
    for (const WindowId menu : host_.OpenMenus(control)) {
        Close(menu);
        host_.ForgetMenu(control, menu);
    }
}

void MenuTracking::LeavePopup(WindowId popup) {
    const cMenuPopupStack* const entry = state_.popups.Find(popup);
    if (!entry)
        return;
    if (entry->ShownAsPopup)
        SetMenuMode(false);
    else
        CloseMenusOf(entry->hWndSource);
}

void MenuTracking::Apply(const PopupStack::Change& change) {
    for (const WindowId window : change.enable)
        host_.SetEnabled(window, true);
    for (const WindowId window : change.disable)
        host_.SetEnabled(window, false);
}

} // namespace quillshift
