#pragma once

#include "shell/MainView.h"
#include "support/FakeSurface.h"

#include <map>
#include <string>
#include <vector>

namespace quillshift {

/// A progress dialog that records what it is told. `atStep` runs where the real one runs pending events.
class FakeDecoding final : public DecodingView {
public:
    bool IsCreated() const override { return created; }
    void Create(std::u16string_view file) override {
        created = true;
        path = file;
    }
    void Destroy() override { created = visible = false; }
    void SetWaiting(bool isWaiting) override { waiting = isWaiting; }
    void SetCode(std::u16string_view pair) override { code = pair; }
    void Show() override { visible = true; }
    void Hide() override { visible = false; }
    void SetProgress(float percentage) override {
        progress.push_back(percentage);
        if (atStep)
            atStep();
    }

    bool created = false;
    bool visible = false;
    bool waiting = false;
    std::u16string path, code;
    std::vector<float> progress;
    std::function<void()> atStep;
};

class FakeMainView final : public MainView {
public:
    TextSurface& RichTextBox() override { return document; }
    TextSurface& RichTextBoxBackup() override { return backup; }
    TextSurface& RichTextBoxImport() override { return import; }
    DecodingView& Decoding() override { return decoding; }

    void BuildBars() override {}
    void SetBarStyle(std::u16string_view) override {}
    void AttachMenu() override {}
    void AttachToolBar(int, ToolBarIcons) override {}
    Twips MenuHeight() const override { return 315_twips; }
    void SetToolTip(std::string_view, std::u16string_view) override {}
    void SetHideInfrequentlyUsed(bool) override {}
    void SetItemVisible(std::string_view, bool) override {}
    void SetBarVisible(int bar, bool visible) override { barVisible[bar] = visible; }
    void SetChecked(std::string_view key, bool on) override { checked[std::string(key)] = on; }
    void SetEnabled(std::string_view key, bool on) override { enabled[std::string(key)] = on; }
    bool IsChecked(std::string_view key) const override { return checked.at(std::string(key)); }
    int Direction() const override { return direction; }
    void SetDirection(int number) override { direction = number; }
    void LayOut(const EditorLayout& layout) override { layouts.push_back(layout); }
    void ShowDecodeDialog() override {}
    void ShowEditMenu(Point) override {}
    void Show() override { shown = true; }
    void Close() override { ++closeRequests; }

    void SetTitle(std::u16string_view text) override { title = text; }
    void SetTopMost(bool) override {}
    void SetPointer(Pointer) override {}
    WindowState State() const override { return state; }
    void SetState(WindowState value) override { state = value; }
    TwipsRect Bounds() const override { return bounds; }
    TwipsRect RestoredBounds() const override { return bounds; }
    void SetBounds(const TwipsRect& value) override { bounds = value; }

    FakeSurface document, backup, import;
    FakeDecoding decoding;
    std::map<int, bool> barVisible;
    std::map<std::string, bool> checked, enabled;
    std::vector<EditorLayout> layouts;
    int direction = 0;
    int closeRequests = 0;
    bool shown = false;
    std::u16string title = u"Morvane Quillshift 3.0";
    WindowState state = WindowState::Normal;
    TwipsRect bounds{0_twips, 0_twips, 11700_twips, 9150_twips};
};

} // namespace quillshift
