#pragma once

#include "platform/Dialogs.h"
#include "shell/ProgramParts.h"
#include "support/FakeSurface.h"

#include <algorithm>
#include <iterator>
#include <map>
#include <memory>
#include <optional>
#include <set>
#include <stdexcept>
#include <string>
#include <vector>

namespace quillshift {

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
            return;
        }
        if (kind == DialogKind::FullScreen) {
            if (!fullScreen)
                fullScreen = std::make_unique<FakeFullScreen>(parts_.fullScreen);
            return;
        }
        if (kind != DialogKind::Decoding) {
            loaded_.insert(kind);
            return;
        }
        if (!decoding)
            decoding = std::make_unique<FakeDecoding>(parts_.job, atStep);
        decoding->visible = true;
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

} // namespace quillshift
