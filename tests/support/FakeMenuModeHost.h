#pragma once

#include "commandbar/MenuMode.h"

#include <algorithm>
#include <functional>
#include <map>
#include <string>
#include <utility>
#include <vector>

namespace quillshift {

/// Controls in memory: a main menu and two toolbars on a window, and whatever popups a test opens.
class FakeMenuModeHost final : public MenuModeHost {
public:
    static constexpr WindowId kTop = 100, kMenu = 1, kToolbar = 2, kSecondToolbar = 3;

    explicit FakeMenuModeHost(MenuState& state) : tracking(state, *this) {
        controls = {{kToolbar, kTop, false, false, true},
                    {kMenu, kTop, false, true, true},
                    {kSecondToolbar, kTop, false, false, true}};
    }

    MenuTracking tracking;

    /// Shows a popup from an item of `source`, or free.
    void Open(WindowId popup, WindowId source) { Open(popup, source, false); }
    void OpenFree(WindowId popup, WindowId source) { Open(popup, source, true); }
    MenuControl& Of(WindowId window) {
        const auto found = std::find_if(controls.begin(), controls.end(),
                                        [window](const MenuControl& c) { return c.window == window; });
        return found == controls.end() ? controls.emplace_back(MenuControl{window, kTop, true, false, true})
                                       : *found;
    }
    /// The windows that react.
    std::vector<WindowId> Enabled() const {
        std::vector<WindowId> enabled;
        for (const MenuControl& control : controls)
            if (control.enabled)
                enabled.push_back(control.window);
        return enabled;
    }

    std::vector<MenuControl> Controls() const override { return controls; }
    void SetEnabled(WindowId control, bool enabled) override { Of(control).enabled = enabled; }
    std::vector<WindowId> OpenMenus(WindowId control) const override {
        const auto found = menus_.find(control);
        return found == menus_.end() ? std::vector<WindowId>{} : found->second;
    }
    void ForgetMenu(WindowId control, WindowId menu) override { std::erase(menus_[control], menu); }
    void AnnounceClosed(WindowId popup) override { closed.push_back(popup); }
    void HidePopup(WindowId popup) override { std::erase(shown, popup); }
    void ClearHot(WindowId control) override { log.push_back("cool " + std::to_string(control)); }
    void MakeFirstItemHot(WindowId control) override {
        log.push_back("first hot " + std::to_string(control));
    }
    void DeliverKey(WindowId control, int key) override {
        log.push_back("key " + std::to_string(key) + " to " + std::to_string(control));
        if (onKey)
            onKey(control, key);
    }
    bool RunShortcut(int key, int) override {
        log.push_back("search " + std::to_string(key));
        return key == shortcut;
    }
    WindowId ForegroundWindow() const override { return foreground; }
    void WatchPresses(bool on) override { watched = on; }
    WindowId WindowUnderPointer() const override { return underPointer; }
    bool HasItemUnderPointer(WindowId) const override { return itemUnderPointer; }

    std::vector<MenuControl> controls;
    std::vector<WindowId> shown;  ///< popups, oldest first
    std::vector<WindowId> closed; ///< popups in the order of their `AfterShowMenu`
    std::vector<std::string> log; ///< what happened to keys and hot items
    std::function<void(WindowId control, int key)> onKey;
    int shortcut = 0;
    WindowId foreground = kTop;
    bool watched = false;
    WindowId underPointer = 0;
    bool itemUnderPointer = false;

private:
    void Open(WindowId popup, WindowId source, bool free) {
        Of(popup).enabled = true;
        tracking.PopupOpening(source);
        if (!free)
            menus_[source].push_back(popup);
        shown.push_back(popup);
        tracking.PopupOpened(popup, source, free);
    }

    std::map<WindowId, std::vector<WindowId>> menus_;
};

} // namespace quillshift
