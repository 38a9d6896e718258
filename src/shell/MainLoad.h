#pragma once

#include "shell/Commands.h"
#include "shell/ProgramParts.h"

#include <exception>
#include <memory>

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
    void LoadToolBars();
    void AttachToolBars();
    void LoadItems(std::string_view root, ItemBar bar);
    void LoadBars();
    void LoadPlace();
    void LoadDocument();
    void LoadFont();
    void OfferRecovered();
    void ApplyBarOptions();

    ProgramParts& parts_;
    Commands& commands_;
    std::exception_ptr failure_;              ///< the first of the load
    std::unique_ptr<Timer> timerCommandBars_; ///< applies the bars' options over what the load has set
};

} // namespace quillshift
