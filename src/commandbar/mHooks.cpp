#include "commandbar/mHooks.h"

#include "platform/Keys.h"

#include <algorithm>
#include <utility>

namespace quillshift {

namespace {

bool WithAlt(const KeyEvent& event) {
    return event.key == key::kAlt || (event.modifiers & modifier::kAlt) != 0;
}

} // namespace

// Alt counts when it goes up without another key in between: it is also half of Alt+TAB, and of Alt+Shift, by
// which many change between Russian and Latin letters.
KeyDecision DecideKey(const KeyEvent& event, bool menuMode, bool foreground, bool altAlone) {
    const bool isAlt = event.key == key::kAlt;
    if (key::IsModifier(event.key))
        return KeyDecision::PassOn;
    if (event.up)
        return !menuMode && isAlt && altAlone && foreground ? KeyDecision::EnterMainMenu
                                                            : KeyDecision::PassOn;
    if (menuMode)
        return WithAlt(event) ? KeyDecision::LeaveMenuMode : KeyDecision::DriveMenu;
    return WithAlt(event) && !isAlt && foreground ? KeyDecision::OpenThenFindShortcut
                                                  : KeyDecision::FindShortcut;
}

// A box that has come by itself gets its keys.
void mHooks::LeaveMenuBehindAnotherWindow() {
    const auto controls = host_.Controls();
    const auto source = std::ranges::find(controls, state_.MenuSource, &MenuControl::window);
    if (source != controls.end() && source->topWindow != host_.ForegroundWindow())
        tracking_.EndMenuMode();
}

bool mHooks::KeyboardFilter(const KeyEvent& event) {
    // Held down, they would open and close a menu in turn.
    if (event.repeated && WithAlt(event))
        return state_.MenuMode && event.key != key::kAlt;
    const bool altAlone = std::exchange(altAlone_, event.key == key::kAlt && !event.up);
    if (state_.MenuMode)
        LeaveMenuBehindAnotherWindow();
    switch (DecideKey(event, state_.MenuMode, host_.ForegroundWindow() != 0, altAlone)) {
    case KeyDecision::PassOn:
        break;
    case KeyDecision::LeaveMenuMode:
        tracking_.SetMenuMode(false);
        break;
    case KeyDecision::DriveMenu:
        state_.KeyboardMode = true;
        host_.DeliverKey(state_.ActiveWindow, event.key);
        return true;
    case KeyDecision::EnterMainMenu:
        return EnterMainMenu(event);
    case KeyDecision::OpenThenFindShortcut:
        EnterMainMenu(event);
        return FindShortcut(event);
    case KeyDecision::FindShortcut:
        return FindShortcut(event);
    }
    return false;
}

// False if the window with the keyboard has no main menu to enter.
bool mHooks::EnterMainMenu(const KeyEvent& event) {
    const auto controls = host_.Controls();
    const WindowId top = host_.ForegroundWindow();
    const auto menu = std::find_if(controls.begin(), controls.end(), [top](const MenuControl& control) {
        return control.topWindow == top && control.isMainMenu && control.enabled;
    });
    if (menu == controls.end())
        return false;
    state_.ActiveWindow = menu->window;
    if (event.key == key::kAlt)
        host_.MakeFirstItemHot(menu->window);
    tracking_.SetMenuMode(true, menu->window);
    if (event.key == key::kAlt)
        return true;
    host_.DeliverKey(menu->window, event.key);
    // Without a mnemonic the next keys must not go to a menu that shows nothing.
    if (host_.OpenMenus(menu->window).empty())
        tracking_.SetMenuMode(false);
    return true;
}

void mHooks::MouseFilter(bool press) {
    if (press)
        altAlone_ = false;
    if (!state_.MenuMode)
        return;
    state_.KeyboardMode = false;
    if (press && !KeepsMenuMode(host_.WindowUnderPointer()))
        tracking_.SetMenuMode(false);
}

void mHooks::OnInterruption() {
    altAlone_ = false;
    tracking_.EndMenuMode();
}

bool mHooks::KeepsMenuMode(WindowId pressed) const {
    if (pressed == state_.ActiveWindow)
        return true;
    const auto controls = host_.Controls();
    const auto control = std::find_if(controls.begin(), controls.end(),
                                      [pressed](const MenuControl& c) { return c.window == pressed; });
    if (control == controls.end())
        return false;
    return pressed == state_.MenuSource ? host_.HasItemUnderPointer(pressed) : control->isPopup;
}

} // namespace quillshift
