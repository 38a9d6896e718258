#pragma once

#include "platform/Dialogs.h"
#include "platform/Shell.h"
#include "platform/SoundOutput.h"
#include "platform/Timer.h"
#include "settings/Settings.h"

#include <cstddef>
#include <functional>
#include <memory>

namespace quillshift {

/// What shows between the start of the process and the main window: the splash and the start dialogs, each if
/// its switch is 1 when its turn comes, one after another.
class StartChain {
public:
    struct Services {
        Settings& settings;
        Dialogs& dialogs;
        Timers& timers;
        SoundOutput& sound;
        Shell& shell;
    };

    explicit StartChain(const Services& services);

    /// Shows the splash, which goes by itself after six seconds, or the first window.
    void Begin();
    /// Shows the first of the start dialogs that applies, else the main window.
    void ShowFirstWindow() { ShowFrom(0); }

    /// A start dialog was left by a button: unloads it and goes on with what comes behind it. `notAgain`
    /// switches it off for later starts.
    void GoOn(DialogKind from, bool notAgain);
    /// A start dialog was closed by its window's close box: no window is left, and the program ends.
    void Leave(DialogKind from);

    bool OpenAtStart = false;             ///< the main window's load shows the dialog for opening
    std::function<void()> ShowMainWindow; ///< the end of the chain

private:
    void ShowFrom(std::size_t step);
    void EndSplash();

    Services services_;
    std::function<void()> next_;
    std::unique_ptr<Timer> timerSplash_;
    std::unique_ptr<Timer> timerNext_; ///< goes on once the dialog before is gone, behind its own event
};

} // namespace quillshift
