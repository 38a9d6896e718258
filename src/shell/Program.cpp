#include "shell/Program.h"

#include "base/Texts.h"

namespace quillshift {
namespace {

constexpr std::u16string_view kNoAnswer =
    u"Текст не получен: программа, из которой он скопирован, не ответила вовремя или текст слишком велик.";

// What was pressed in the meantime goes where it was meant for, before a box takes the keyboard.
constexpr std::chrono::milliseconds kUntilKeysAreTaken(50);

} // namespace

Program::Program(Platform& platform, MainView& window, mCommandBars& toolkit, const MakeDialogs& makeDialogs)
    : parts_(platform, window, toolkit, makeDialogs),
      commands_(parts_),
      load_(parts_, commands_),
      main_(parts_, load_),
      timerNoAnswer_(platform.timers.Make([this] { TellNoAnswer(); })) {
    ConnectWindow();
    ConnectSurface();
    parts_.recovered.MaySeeLocked = [this] { return parts_.lock.MaySeeLocked(); };
    toolkit.BeforeShortcut = [this] { commands_.UpdatePendingStates(); };
    parts_.bars.OnClick = [this](std::string_view key) { commands_.Run(key); };
    parts_.bars.OnMenuResize = [this] { parts_.layout.LayOut(); };
    platform.clipboard.OnChange = [this] {
        commands_.InputsChanged();
        parts_.watcher.OnClipboardChange();
    };
    platform.clipboard.OnNoAnswer = [this] {
        wantedWhileLocked_ = parts_.lock.IsLocked();
        timerNoAnswer_->StartOnce(kUntilKeysAreTaken);
    };
    parts_.job.OnEnded = [this] {
        commands_.InputsChanged();
        main_.OnJobEnded();
    };
}

// What was wanted before the lock came is not told over it.
void Program::TellNoAnswer() {
    if (wantedWhileLocked_ == parts_.lock.IsLocked())
        parts_.platform.messageBox.Inform(kNoAnswer);
}

void Program::EndAtOnce() {
    SaveWhatIsNew();
    parts_.platform.shell.EndProcess();
}

void Program::ConnectWindow() {
    parts_.window.OnResize = [this] { parts_.layout.LayOut(); };
    parts_.window.OnClose = [this] { return main_.Close(); };
    parts_.window.OnActivate = [this] { parts_.reopenOffer.Look(); };
    parts_.window.OnDeactivate = [this] { parts_.recovery.Flush(); };
    parts_.window.OnDirectionChange = [this] { OnDirectionChange(); };
}

void Program::ConnectSurface() {
    TextSurface& surface = parts_.window.RichTextBox();
    surface.OnChange = [this](const TextEdit& edit) {
        parts_.history.Record(edit);
        parts_.recovery.Edited(parts_.window.RichTextBox(), edit);
        commands_.InputsChanged();
    };
    surface.OnSelChange = [this] {
        parts_.document.DocumentModified = true;
        commands_.InputsChanged();
    };
    surface.OnKeyPress = surface.OnSelChange;
    surface.OnRightMouseDown = [this](Point screen) { parts_.bars.ShowMenu("MENU:EDIT", screen); };
    surface.OnFileDrop = [this](std::u16string_view path) {
        if (parts_.lock.IsLocked()) // which has come since the drop
            return;
        parts_.fullScreen.End();
        parts_.documents.OpenFile(path);
    };
    surface.OnKeyDown = [this] { parts_.sounds.PlaySoundEvent(sound_event::kKeyDown); };
}

void Program::OnDirectionChange() {
    parts_.fullScreen.End();
    if (!parts_.settings.Is(Setting::DecodeAtCodeChange) || parts_.window.RichTextBox().Length() == 0)
        return;
    parts_.settings.Set(Setting::DefaultCode, WholeNumberText(parts_.window.Direction()));
    parts_.platform.messageBox.Attempt([this] { parts_.job.StartDecode(); });
}

} // namespace quillshift
