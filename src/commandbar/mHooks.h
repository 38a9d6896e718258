#pragma once

#include "commandbar/MenuMode.h"

namespace quillshift {

/// A key event on its way to a window of the process.
struct KeyEvent {
    int key = 0; ///< virtual key code
    bool up = false;
    int modifiers = 0; ///< bits of `modifier`: the keys that are held now
};

enum class MouseEvent { Press, Other };

/// What the keyboard filter does with a key.
enum class KeyDecision {
    PassOn,
    LeaveMenuMode,        ///< ends a level and passes the key on
    DriveMenu,            ///< the menu gets the key, and nobody else
    EnterMainMenu,        ///< swallowed, if there is a main menu
    OpenFromMainMenu,     ///< likewise; the main menu gets the key
    OpenThenFindShortcut, ///< the main menu gets the key, and so does the search for a shortcut
    FindShortcut          ///< swallowed if it is one
};
/// `foreground`: whether the window with the keyboard is enabled and not minimised.
KeyDecision DecideKey(const KeyEvent& event, bool menuMode, bool foreground);

/// The two input filters of the process: they see keys and mouse events before the windows do. Called on
/// the event thread; commands may run inside.
class mHooks {
public:
    mHooks(MenuState& state, MenuTracking& tracking, MenuModeHost& host)
        : state_(state), tracking_(tracking), host_(host) {}

    /// True if the key is swallowed.
    bool KeyboardFilter(const KeyEvent& event);
    /// Every mouse event goes on to its window. A press counts with any of the three buttons, in a window's
    /// client area or its frame.
    void MouseFilter(MouseEvent event);

private:
    bool EnterMainMenu(const KeyEvent& event);
    void LeaveMenuBehindAnotherWindow();
    bool FindShortcut(const KeyEvent& event) { return host_.RunShortcut(event.key, event.modifiers); }
    bool KeepsMenuMode(WindowId pressed) const;

    MenuState& state_;
    MenuTracking& tracking_;
    MenuModeHost& host_;
};

} // namespace quillshift
