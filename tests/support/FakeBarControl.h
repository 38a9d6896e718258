#pragma once

#include "commandbar/BarControl.h"
#include "commandbar/CommandBarHandles.h"
#include "commandbar/CommandBarModel.h"
#include "commandbar/ItemMeasure.h"
#include "commandbar/PanelControl.h"
#include "support/RecordingSurface.h"

#include <deque>
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
    bool IsPopup() const override { return false; }
    void OnBarChanged(const cCommandBarInt& bar, ChangeReason reason, const cButtonInt* button) override {
        notices.push_back(bar.Key + " " + std::to_string(static_cast<int>(reason)) +
                          (button ? " " + button->Key : std::string()));
    }

    /// What came since the last call.
    std::vector<std::string> Notices() { return std::exchange(notices, {}); }

private:
    std::vector<std::string> notices;
    WindowId window_;
    WindowId top_;
};

class FakePanel final : public PanelControl {
public:
    bool Visible() const override { return true; }
    void SetVisible(bool) override {}
    WindowId Container() const override { return container_; }
    void SetContainer(WindowId control) override { container_ = control; }
    int Height() const override { return 21; }
    int LeastWidth() const override { return least; }
    void Move(const Rect&) override {}

    int least = 0;

private:
    WindowId container_ = 0;
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

/// A bar put together in a test. Its buttons stay where they are.
class TestBar {
public:
    ButtonRecord& Icon(int index = 0) {
        ButtonRecord& button = Add();
        button.IconIndex = index;
        return button;
    }
    ButtonRecord& Caption(std::u16string caption) {
        ButtonRecord& button = Add();
        button.Caption = std::move(caption);
        button.ShowCaptionInToolbar = true;
        return button;
    }
    ButtonRecord& Separator() {
        ButtonRecord& button = Add();
        button.Style = ButtonStyle::Separator;
        return button;
    }
    ButtonRecord& Add() {
        pointers_.push_back(&records_.emplace_back());
        return records_.back();
    }
    ButtonRecord& operator[](std::size_t index) { return records_[index]; }
    BarButtons Buttons() const { return pointers_; }

private:
    std::deque<ButtonRecord> records_;
    std::vector<const ButtonRecord*> pointers_;
};

/// Measures with text of a fixed pitch.
inline ItemMeasure FixedPitchMeasure(const cMeasureButtonParams& params) {
    return [&params](const ButtonRecord& button) { return MeasureItem(button, params, RecordingSurface()); };
}

/// Any bar, for a button that has to have one.
inline cCommandBarInt* SomeBar() {
    static int place = 0;
    return reinterpret_cast<cCommandBarInt*>(&place);
}
inline PanelControl* SomePanel(int least = 0) {
    static FakePanel panel;
    panel.least = least;
    return &panel;
}

} // namespace quillshift
