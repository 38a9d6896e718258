#pragma once

#include "shell/MainView.h"
#include "support/FakeBarControl.h"
#include "support/FakeBarWindow.h"
#include "support/FakeSurface.h"
#include "support/FakeWindowMessages.h"

#include <deque>
#include <map>
#include <string>
#include <vector>

namespace quillshift {

/// The main window over fake surfaces and fake windows of bars, on a fake window system.
class FakeMainView final : public MainView {
public:
    static constexpr WindowId kTop = 1;

    explicit FakeMainView(FakeWindowMessages& messages) : messages_(messages) {
        messages.Open(kTop);
        int top = 100;
        for (const int height : {21, 24, 24}) {
            OpenWindow(kTop, RectAt(100, top, 780, height));
            top += height + 2;
        }
    }

    TextSurface& RichTextBox() override { return document; }
    TextSurface& RichTextBoxBackup() override { return backup; }
    TextSurface& RichTextBoxImport() override { return import; }
    TextSurface& RtfTemp() override { return inserted; }
    FakeBarWindow& CmdBar(int bar) override { return windows[static_cast<std::size_t>(bar)]; }
    FakeBarWindow& AddPopupWindow() override { return OpenWindow(0, {}); }
    void SetBarVisible(int bar, bool visible) override { barVisible[bar] = visible; }
    int Density() const override { return 1; }
    PanelControl& CmbDecode() override { return panel; }
    int Direction() const override { return direction; }
    void SetDirection(int number) override { direction = number; }
    void EnableDirections(bool enabled) override { directionsEnabled = enabled; }
    void LayOut(const EditorLayout& layout) override { layouts.push_back(layout); }
    void Show() override {
        shown = true;
        if (whenShown)
            whenShown();
    }
    void Hide() override { shown = false; }
    bool IsFree() const override { return isFree; }
    void Close() override { ++closeRequests; }

    void SetTitle(std::u16string_view text) override { title = text; }
    void SetTopMost(bool value) override { topMost = value; }
    void SetPointer(Pointer value) override { pointer = value; }
    WindowState State() const override { return state; }
    void SetState(WindowState value) override {
        if (state == WindowState::Normal)
            restored = bounds;
        state = value;
        bounds = state == WindowState::Maximised ? screen : restored;
    }
    TwipsRect Bounds() const override { return bounds; }
    TwipsRect RestoredBounds() const override { return state == WindowState::Normal ? bounds : restored; }
    void SetBounds(const TwipsRect& value) override {
        (state == WindowState::Normal ? bounds : restored) = value;
    }

    FakeSurface document, backup, import, inserted;
    FakePanel panel;
    std::deque<FakeBarWindow> windows; ///< the three bars', then the popups'
    std::map<int, bool> barVisible;
    std::vector<EditorLayout> layouts;
    int direction = 0;
    bool directionsEnabled = true;
    bool isFree = true;
    int closeRequests = 0;
    bool shown = false;
    std::function<void()> whenShown; ///< what happens on the way of its first show
    bool topMost = false;
    Pointer pointer = Pointer::Default;
    std::u16string title = u"Morvane Quillshift 3.0";
    WindowState state = WindowState::Normal;
    TwipsRect bounds{0_twips, 0_twips, 11700_twips, 9150_twips};
    TwipsRect restored = bounds;
    TwipsRect screen{0_twips, 0_twips, 19200_twips, 12000_twips};

private:
    FakeBarWindow& OpenWindow(WindowId top, Rect place) {
        const auto id = static_cast<WindowId>(2 + windows.size());
        messages_.Open(id);
        return windows.emplace_back(id, top == 0 ? id : top, place);
    }

    FakeWindowMessages& messages_;
};

} // namespace quillshift
