#pragma once

#include "platform/WindowId.h"

#include <vector>

namespace quillshift {

/// A registered control as menu mode sees it.
struct MenuControl {
    WindowId window = 0;
    WindowId topWindow = 0;
    bool isPopup = false;
    bool isMainMenu = false;
    bool enabled = true;
};

/// What menu mode asks of the controls and of the window system. A control that no longer exists is ignored.
class MenuModeHost {
public:
    virtual ~MenuModeHost() = default;

    /// All controls, pooled popups too, in order of registration.
    virtual std::vector<MenuControl> Controls() const = 0;
    virtual void SetEnabled(WindowId control, bool enabled) = 0;

    /// The popups that the control's items show.
    virtual std::vector<WindowId> OpenMenus(WindowId control) const = 0;
    /// The item that showed `menu` shows none any more, and repaints.
    virtual void ForgetMenu(WindowId control, WindowId menu) = 0;
    /// Raises `AfterShowMenu`.
    virtual void AnnounceClosed(WindowId popup) = 0;
    /// Hides the popup's window with its shadows; it is free again.
    virtual void HidePopup(WindowId popup) = 0;

    /// Nothing on the control is hot any more.
    virtual void ClearHot(WindowId control) = 0;
    /// Makes the control's first item hot without opening it.
    virtual void MakeFirstItemHot(WindowId control) = 0;
    virtual void DeliverKey(WindowId control, int key) = 0;
    /// Runs the command with a shortcut on the foreground window. False if there is none.
    virtual bool RunShortcut(int key, int modifiers) = 0;

    /// The window that has the keyboard; 0 if it is disabled or minimised.
    virtual WindowId ForegroundWindow() const = 0;
    /// Presses anywhere on the screen are to reach the mouse filter, or no longer.
    virtual void WatchPresses(bool on) = 0;
    virtual WindowId WindowUnderPointer() const = 0;
    virtual bool HasItemUnderPointer(WindowId control) const = 0;
};

} // namespace quillshift
