#pragma once

#include "platform/Dialogs.h"
#include "shell/MainView.h"
#include "shell/Program.h"
#include "shell/ProgramParts.h"
#include "support/FakeBarControl.h"
#include "support/FakeBarWindow.h"
#include "support/FakePlatform.h"
#include "support/FakeSurface.h"
#include "support/FakeWindowMessages.h"
#include "support/RecordingSurface.h"

#include <stdexcept>

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

/// A progress dialog that records what it is told. `atStep` runs where the real one runs pending events.
class FakeDecoding final : public DecodingView {
public:
    FakeDecoding(RecodingJob& job, const std::function<void()>& step)
        : path(job.DocumentName()), atStep(step), job_(job) {
        job.Attach(*this);
    }
    ~FakeDecoding() override { job_.Detach(*this); }
    FakeDecoding(const FakeDecoding&) = delete;
    FakeDecoding& operator=(const FakeDecoding&) = delete;

    void SetWaiting(bool isWaiting) override { waiting = isWaiting; }
    void SetCode(std::u16string_view pair) override { code = pair; }
    void Hide() override { visible = false; }
    void SetProgress(float percentage) override {
        progress.push_back(percentage);
        const auto step = atStep; // it may close this dialog
        if (step)
            step();
    }

    bool visible = false;
    bool waiting = false;
    std::u16string path, code;
    std::vector<float> progress;
    const std::function<void()>& atStep;

private:
    RecodingJob& job_;
};

/// The window of the full screen, without a window.
struct FakeFullScreen {
    explicit FakeFullScreen(FullScreen& mode) : mode_(mode) { mode.Attach(surface); }
    ~FakeFullScreen() { mode_.Detach(surface); }
    FakeFullScreen(const FakeFullScreen&) = delete;
    FakeFullScreen& operator=(const FakeFullScreen&) = delete;
    FakeSurface surface;

private:
    FullScreen& mode_;
};

/// The boxes of the settings dialog, without a window: what was stored when it was loaded.
struct FakeSettingsDialog final : PrintBoxes {
    explicit FakeSettingsDialog(ProgramParts& parts)
        : print_(parts.print), printers_(parts.platform.printers) {
        Settings& settings = parts.settings;
        boxes = {.left = settings.Text(Setting::PositionLeft),
                 .top = settings.Text(Setting::PositionTop),
                 .right = settings.Text(Setting::PositionWidth),
                 .bottom = settings.Text(Setting::PositionHeight),
                 .copies = settings.Text(Setting::Copies)};
        const auto names = printers_.Names();
        printer_ = names.at(std::size_t(StoredPrinter(settings, names)));
        print_.Attach(*this);
    }
    ~FakeSettingsDialog() override { print_.Detach(*this); }
    FakeSettingsDialog(const FakeSettingsDialog&) = delete;
    FakeSettingsDialog& operator=(const FakeSettingsDialog&) = delete;
    PrintBoxTexts Boxes() const override {
        printers_.MakeCurrent(printer_);
        return boxes;
    }
    PrintBoxTexts boxes;

private:
    modPrint& print_;
    Printers& printers_;
    std::u16string printer_;
};

/// Makes no windows. Modal dialogs run what the test gives them for the time they are up.
class FakeDialogs final : public Dialogs {
public:
    explicit FakeDialogs(ProgramParts& parts) : parts_(parts) {}

    void Load(DialogKind kind) override {
        if (kind != DialogKind::Settings)
            throw std::logic_error("does not stay loaded");
        if (!settings)
            settings = std::make_unique<FakeSettingsDialog>(parts_);
    }

    void Show(DialogKind kind, int argument = 0) override {
        shown.emplace_back(kind, argument);
        if (IsModal(kind)) {
            if (whileModal)
                whileModal();
        } else if (kind == DialogKind::FullScreen) {
            if (!fullScreen)
                fullScreen = std::make_unique<FakeFullScreen>(parts_.fullScreen);
        } else if (kind == DialogKind::Decoding) {
            if (!decoding)
                decoding = std::make_unique<FakeDecoding>(parts_.job, atStep);
            decoding->visible = true;
        } else {
            loaded_.insert(kind);
        }
    }
    /// As the real one, which is in the middle of its own event: it goes later.
    void Close(DialogKind kind) override {
        loaded_.erase(kind);
        if (kind == DialogKind::Decoding && decoding)
            closed_.push_back(std::move(decoding));
        if (kind == DialogKind::FullScreen)
            fullScreen.reset();
    }
    bool IsLoaded(DialogKind kind) const override {
        return loaded_.contains(kind) || (kind == DialogKind::FullScreen && fullScreen) ||
               (kind == DialogKind::Decoding && decoding);
    }
    void HideAll() override { ++hidings; }
    void BringBack() override { --hidings; }

    std::vector<std::pair<DialogKind, int>> shown;
    std::unique_ptr<FakeDecoding> decoding;
    std::unique_ptr<FakeFullScreen> fullScreen;
    std::unique_ptr<FakeSettingsDialog> settings; ///< loaded, and hidden
    std::function<void()> atStep;
    std::function<void()> whileModal;
    int hidings = 0; ///< 1: all windows but the main one are off the screen

private:
    static bool IsModal(DialogKind kind) {
        constexpr DialogKind kModal[] = {DialogKind::Decode,          DialogKind::About, DialogKind::License,
                                         DialogKind::Recovery,        DialogKind::Lock,  DialogKind::Printing,
                                         DialogKind::ToolBarCustomize};
        return std::ranges::find(kModal, kind) != std::end(kModal);
    }

    ProgramParts& parts_;
    std::set<DialogKind> loaded_; // of those that stand beside others, and are up
    std::vector<std::unique_ptr<FakeDecoding>> closed_;
};

/// A whole program over fakes, its bars included: set what the store holds, then `Start`.
struct TestProgram : FakePlatform {
    explicit TestProgram(FileSystem* other = nullptr);
    ~TestProgram();
    TestProgram(const TestProgram&) = delete;
    TestProgram& operator=(const TestProgram&) = delete;

    Settings settings{store};
    FakeWindowMessages messages;
    FakeBarSystem system;
    FakeSystemColours colours;
    FakeTheme theme;
    MSubclass subclass{messages, u"test"};
    mCommandBars toolkit{{system, messages, subclass, colours, theme, timers}};
    FakeMainView window{messages};
    FakeDialogs* dialogs = nullptr;
    Program program;

    TestProgram& Set(Setting setting, std::u16string_view text) {
        settings.Set(setting, text);
        return *this;
    }
    FakeMainView& Start() {
        system.foreground = FakeMainView::kTop;
        program.Main();
        return window;
    }
    cButton Button(std::string_view key) { return program.Parts().bars.Button(key); }
    /// Opens a file that holds `bytes` by a command that asks for one.
    void OpenFile(std::u16string_view path, std::string_view bytes, std::string_view key = "MENU:FILE:OPEN") {
        files.files[std::u16string(path)] = bytes;
        fileDialog.chosen.emplace_back(path);
        program.Run(key);
    }
    /// Another program copies a text, and this one has a moment.
    void Copied(std::u16string_view text) {
        clipboard.Hold(std::u16string(text));
        timers.Tick();
    }
    void SwitchSoundsOn() {
        for (const SoundEvent& event : kSoundEvents) {
            settings.Switch(event.on, true);
            settings.Set(event.path, event.defaultFile);
        }
    }
    std::u16string LastBox() const { return messageBox.shown.empty() ? u"" : messageBox.shown.back().text; }
};

} // namespace quillshift
