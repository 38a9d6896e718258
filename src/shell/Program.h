#pragma once

#include "document/UndoHistory.h"
#include "document/modDocument.h"
#include "document/modEdit.h"
#include "platform/Platform.h"
#include "recoding/ClipboardWatcher.h"
#include "recoding/RecodingJob.h"
#include "settings/Settings.h"
#include "settings/SoundEvents.h"
#include "shell/MainView.h"

#include <functional>
#include <memory>
#include <string_view>

namespace quillshift {

/// The whole program over a platform: its state, its components, the way in and the way out.
class Program {
public:
    /// `mainView` makes the main window when it is first shown.
    Program(Platform& platform, std::function<std::unique_ptr<MainView>()> mainView);

    // Start-up

    /// From the notices to the first window. Any failure on the way is reported in a box.
    void Main();
    /// Shows the first of the welcome dialog, the getting-started dialog and the main window that applies.
    void ShowFirstWindow();

    // What the main window forwards

    /// Runs the command of a key; a key without one is ignored.
    void Dispatch(std::string_view commandKey);
    void OnResize();
    /// The choice in the list of directions has changed.
    void OnDirectionChange();
    /// Brings the commands' states up to what has changed since, without waiting for the next turn.
    void UpdatePendingStates();
    /// Runs the closing. True if the window may close; then the process has been ended already.
    bool OnClose();

    /// Recodes by the pair of the recoding dialog.
    void RecodeFromDialog(Direction direction);

    Settings& StoredSettings() { return settings_; }
    SoundEvents& Sounds() { return sounds_; }
    RecodingState& Recoding() { return recoding_; }
    DocumentState& Document() { return document_; }
    RecodingJob& Job() { return *job_; }
    bool OpenAtStart = false; ///< the main window's load shows the dialog for opening

private:
    enum class StartDialog { Splash, Welcome, WorkBegin };

    bool ShowStartDialog(StartDialog dialog);
    void ShowFirstRunNotice();
    bool RefusesSecondCopy();
    void ShowMainWindow();
    void LoadMainWindow();
    void GreyWhatIsToCome();
    void LoadToolBars();
    void AttachToolBars();
    void ApplyBarOptions();
    void LoadItems(std::string_view root, ItemBar bar);
    void LoadPlace();
    void LoadTitle();
    void ConnectSurface();
    void UpdateStates();
    void EnableTextCommands();
    void OnClipboardChange();
    static bool IsToCome(std::string_view commandKey);

    void RunJob(const std::function<void()>& road);
    void OpenDecodeDialog();
    void RunWizard();
    void OpenLink(std::u16string_view link);
    void SetOnTop();
    void SwitchBar(int bar, std::string_view key, Setting setting);

    bool AskToLeave();
    void StorePlace();

    Platform& platform_;
    std::function<std::unique_ptr<MainView>()> makeMainView_;
    Settings settings_;
    SoundEvents sounds_;
    RecodingState recoding_;
    DocumentState document_;
    UndoHistory history_;
    bool barShown_[3] = {true, false, false};
    bool closeAfterJob_ = false;

    std::unique_ptr<MainView> main_;
    std::unique_ptr<RecodingJob> job_;
    std::unique_ptr<modDocument> modDocument_;
    std::unique_ptr<modEdit> modEdit_;
    std::unique_ptr<Timer> timerCommandBars_; ///< applies the bars' options over what the load has set
    std::unique_ptr<Timer> timerUpdate_; ///< lays the window out behind the event that showed or hid a bar
    std::unique_ptr<Timer> timerEdit_;   ///< follows the inputs of the commands' states, once per turn
    std::unique_ptr<ClipboardWatcher> watcher_;
    std::unique_ptr<Timer> timerClose_; ///< closes the window once a stopped job has left the stack
};

} // namespace quillshift
