#pragma once

#include "shell/Command.h"
#include "shell/ProgramParts.h"

#include <cstddef>
#include <memory>
#include <optional>
#include <string_view>

namespace quillshift {

/// All that the enabled states of commands depend on.
struct CommandInputs {
    bool selection = false;     ///< some text is selected
    bool text = false;          ///< the document is not empty
    bool clipboardText = false; ///< the clipboard holds text
    std::size_t undoSteps = 0;  ///< entries of the undo list, the present state among them
    std::size_t redoSteps = 0;
    bool recodeUndo = false; ///< `RecodeUndoAvailable`
    bool reopen = false;     ///< `ReopenAvailable`
    bool save = false;       ///< `SaveAvailable`

    bool operator==(const CommandInputs&) const = default;
};

/// Whether a command can be given.
bool IsEnabled(Command command, const CommandInputs& inputs);

/// Runs the commands and says which can be given.
class Commands {
public:
    explicit Commands(ProgramParts& parts);

    /// Runs the command of an entry; a key without one is ignored.
    void Run(std::string_view key);

    /// Something that the states depend on may have changed. They follow behind the present event.
    /// Before they were shown for the first time there are no bars to show them.
    void InputsChanged() {
        if (shown_)
            timerEdit_->StartOnce();
    }
    /// Brings the states up to what has changed since, without waiting.
    void UpdatePendingStates();
    void UpdateStates();

private:
    CommandInputs Inputs() const;

    ProgramParts& parts_;
    std::optional<CommandInputs> shown_; ///< what the states show
    std::unique_ptr<Timer> timerEdit_;
};

} // namespace quillshift
