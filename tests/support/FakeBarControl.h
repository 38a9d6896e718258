#pragma once

#include "commandbar/BarControl.h"
#include "commandbar/CommandBarHandles.h"
#include "commandbar/CommandBarModel.h"
#include "commandbar/PanelControl.h"

#include <map>
#include <string>
#include <utility>
#include <vector>

namespace quillshift {

/// Finds the controls that a test has put into it; one taken out has been destroyed.
class FakeControlDirectory final : public ControlDirectory {
public:
    BarControl* ControlOf(WindowId window) const override {
        const auto found = controls.find(window);
        return found == controls.end() ? nullptr : found->second;
    }

    std::map<WindowId, BarControl*> controls;
};

/// A control that records what it is told about bars, as "BAR reason BUTTON".
class FakeBarControl final : public BarControl {
public:
    FakeBarControl(FakeControlDirectory& directory, WindowId window, WindowId top)
        : window_(window), top_(top) {
        directory.controls[window] = this;
    }

    WindowId Window() const override { return window_; }
    WindowId TopWindow() const override { return top_; }
    bool IsPopup() const override { return popup; }
    void OnBarChanged(const cCommandBarInt& bar, ChangeReason reason, const cButtonInt* button) override {
        notices.push_back(bar.Key + " " + std::to_string(static_cast<int>(reason)) +
                          (button ? " " + button->Key : std::string()));
    }

    /// What came since the last call.
    std::vector<std::string> Notices() { return std::exchange(notices, {}); }

    bool popup = false;
    std::vector<std::string> notices;

private:
    WindowId window_;
    WindowId top_;
};

class FakePanel final : public PanelControl {
public:
    bool Visible() const override { return visible; }
    void SetVisible(bool value) override { visible = value; }
    WindowId Container() const override { return container; }
    void SetContainer(WindowId control) override { container = control; }
    int Height() const override { return 21; }
    int LeastWidth() const override { return least; }
    void Move(const Rect& value) override { area = value; }

    bool visible = false;
    WindowId container = 0;
    int least = 0;
    Rect area;
};

/// A model with the control of window 1, in the top-level window 100, open and reached through its handles.
struct TestBars {
    FakeControlDirectory directory;
    FakeBarControl control{directory, 1, 100};
    CommandBarModel model{directory};
    cButtons buttons{model, 1};
    cCommandBars bars{model, 1};

    TestBars() { model.Open(); }

    /// Makes a bar of buttons: each key goes with the given style, one that begins with "-" is a separator.
    cCommandBar Bar(const std::string& key, const std::vector<std::string>& keys,
                    ButtonStyle style = ButtonStyle::Normal) {
        cCommandBar bar = bars.Add(key);
        for (const std::string& each : keys)
            bar.Buttons().Add(buttons.Add(each, -1, {}, each[0] == '-' ? ButtonStyle::Separator : style));
        return bar;
    }
    void Show(const std::string& key) { Show(key, control); }
    void Show(const std::string& key, const BarControl& by) { model.Show(*model.FindBar(key), by); }
    /// The keys on a bar, in order, each behind a blank.
    std::string Keys(const std::string& key) const {
        std::string keys;
        for (const auto& entry : model.FindBar(key)->Buttons)
            keys += " " + entry.key;
        return keys;
    }
    /// The keys of the checked buttons on a bar, likewise.
    std::string Checked(const std::string& key) const {
        std::string keys;
        for (const auto& entry : model.FindBar(key)->Buttons)
            keys += entry.value->Checked ? " " + entry.key : "";
        return keys;
    }
};

} // namespace quillshift
