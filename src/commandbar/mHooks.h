#pragma once

#include "commandbar/MenuMode.h"
#include "platform/BarWindow.h"

namespace quillshift {

/// What the keyboard filter does with a key.
enum class KeyDecision {
    PassOn,
    LeaveMenuMode,        ///< ends a level and passes the key on
    DriveMenu,            ///< the menu gets the key, and nobody else
    EnterMainMenu,        ///< swallowed, if there is a main menu
    OpenThenFindShortcut, ///< the main menu gets the key, and so does the search for a shortcut
    FindShortcut          ///< swallowed if it is one
};
/// `foreground`: whether the window with the keyboard is enabled and not minimised. `altAlone`: nothing else
/// has happened since Alt went down.
KeyDecision DecideKey(const KeyEvent& event, bool menuMode, bool foreground, bool altAlone);

/// The two input filters of the process: they see keys and mouse events before the windows do. Called on
/// the event thread; commands may run inside.
class mHooks final : public InputFilter {
public:
    mHooks(MenuState& state, MenuTracking& tracking, MenuModeHost& host)
        : state_(state), tracking_(tracking), host_(host) {}

    bool KeyboardFilter(const KeyEvent& event) override;
    void MouseFilter(bool press) override;
    void OnInterruption() override;

private:
    bool EnterMainMenu(const KeyEvent& event);
    void LeaveMenuBehindAnotherWindow();
    bool FindShortcut(const KeyEvent& event) { return host_.RunShortcut(event.key, event.modifiers); }
    bool KeepsMenuMode(WindowId pressed) const;

    MenuState& state_;
    MenuTracking& tracking_;
    MenuModeHost& host_;
    bool altAlone_ = false; // Alt is down, and no other key or button has been since
};

} // namespace quillshift
