#pragma once

#include "shell/Commands.h"
#include "shell/ProgramParts.h"

#include <exception>

namespace quillshift {

/// The main window's load: from the stored settings to a window that a person can work in.
class MainLoad {
public:
    MainLoad(ProgramParts& parts, Commands& commands);

    /// Loads the window and shows it. Throws the failure that the load ended in, once the window is shown.
    void ShowMainWindow();

private:
    void Attempt(void (MainLoad::*step)());
    void Load();
    void LoadBars();
    void LoadPlace();
    void LoadDocument();
    void LoadFont();
    void OfferRecovered();

    ProgramParts& parts_;
    Commands& commands_;
    std::exception_ptr failure_; ///< the first of the load
};

} // namespace quillshift
