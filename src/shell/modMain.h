#pragma once

#include "shell/MainLoad.h"
#include "shell/ProgramParts.h"

#include <memory>

namespace quillshift {

/// The way in and the way out of the program.
class modMain {
public:
    modMain(ProgramParts& parts, MainLoad& load);

    /// From the notices to the first window. Any failure on the way is reported in a box.
    void Main();

    /// Runs the closing of the main window. True if it may close; then the process has been ended already.
    bool Close();
    /// A recoding job has ended; a closing that it held up goes on behind it.
    void OnJobEnded();

private:
    void ShowFirstRunNotice();
    bool RefusesSecondCopy();
    void ReportFailureOf(const std::function<void()>& routine);
    void StorePlace();
    bool AskToLeave();

    ProgramParts& parts_;
    MainLoad& load_;
    bool closeAfterJob_ = false;
    std::unique_ptr<Timer> timerClose_; ///< closes the window once a stopped job has left the stack
};

} // namespace quillshift
