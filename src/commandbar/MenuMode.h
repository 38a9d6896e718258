#pragma once

#include "commandbar/MenuModeHost.h"
#include "commandbar/cMenuPopupStack.h"

#include <vector>

namespace quillshift {

/// The menu being tracked, for the whole process.
struct MenuState {
    bool MenuMode = false;
    bool KeyboardMode = false; ///< the menu is being driven by keys; a mouse event clears it
    WindowId ActiveWindow = 0; ///< the control that gets the keys: the newest popup, or the source
    WindowId MenuSource = 0;   ///< the control where the menu began
    bool MenuExpanded = false;
    PopupStack popups;
    std::vector<WindowId> disabledControls; ///< those that menu mode has disabled

    /// Level of the newest popup; 0 without one.
    int PopupLevel() const { return popups.PopupLevel(); }
};

/// Takes menu mode from state to state:
///
///     state              SetMenuMode(on)   SetMenuMode(off)          popup on a popup   popup closes
///     off                level 0           -                         -                  -
///     on, level 0        -                 off, all popups closed    level 1            -
///     on, level n > 0    -                 level n closed: n - 1     level n + 1        n - 1 if the last on
///     n
///
/// While it is on only the source and the popups of the newest level are enabled.
class MenuTracking {
public:
    MenuTracking(MenuState& state, MenuModeHost& host) : state_(state), host_(host) {}

    /// `window`: the control where the menu begins. Switching off ends one level only, as one Escape or one
    /// click does.
    void SetMenuMode(bool on, WindowId window = 0);
    /// Ends all levels, as when the application is deactivated or the last control goes.
    void EndMenuMode();

    /// A popup is about to be shown by `source`: menu mode goes on if it wasn't.
    void PopupOpening(WindowId source);
    /// A popup has been shown; `shownAsPopup`: free, rather than from an item of `source`. Popups of other
    /// bars are closed.
    void PopupOpened(WindowId popup, WindowId source, bool shownAsPopup);

    /// Closes a popup, after what it has open. Of another control only what it has open is closed.
    void Close(WindowId control);
    /// Closes what a control has open and gives it the keyboard.
    void CloseMenusOf(WindowId control);
    /// What Escape does in a popup: it closes, and the keyboard goes back to the control that opened it. A
    /// free popup ends its level.
    void LeavePopup(WindowId popup);

private:
    void SwitchOn(WindowId source);
    void SwitchOff();
    void CloseLevel(int level);
    void CloseItemMenus(WindowId control);
    void CloseMenusOfOtherBars(WindowId source);
    void Apply(const PopupStack::Change& change);
    bool IsOpenPopup(WindowId window) const { return state_.popups.Find(window) != nullptr; }

    MenuState& state_;
    MenuModeHost& host_;
};

} // namespace quillshift
