#pragma once

#include "shell/Commands.h"
#include "shell/MainLoad.h"
#include "shell/ProgramParts.h"
#include "shell/modMain.h"

namespace quillshift {

/// The whole program over a platform, a hidden main window and the command bars' toolkit: it holds the parts
/// and ties the notices of one to the operations of another.
class Program {
public:
    Program(Platform& platform, MainView& window, mCommandBars& toolkit, const MakeDialogs& makeDialogs);

    /// From the notices to the first window.
    void Main() { main_.Main(); }
    /// The system ends the program: the unsaved text is written, and nobody is asked.
    void EndAtOnce();
    /// The desktop ends soon, and may end the program with it.
    void SaveWhatIsNew() { parts_.recovery.FlushAndWait(); }
    /// Runs the command of an entry of the catalogue.
    void Run(std::string_view key) { commands_.Run(key); }
    ProgramParts& Parts() { return parts_; }

private:
    void ConnectWindow();
    void ConnectSurface();
    void OnDirectionChange();
    void TellNoAnswer();

    ProgramParts parts_;
    Commands commands_;
    MainLoad load_;
    modMain main_;
    std::unique_ptr<Timer> timerNoAnswer_; ///< tells so behind the event that wanted a text
    bool wantedWhileLocked_ = false;
};

} // namespace quillshift
