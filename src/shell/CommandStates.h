#pragma once

#include <cstddef>
#include <functional>
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

/// Calls `set` for each command whose state depends on them, in order. The list of directions goes by the key
/// of its panel, "TOOLBAR2:DECODE". Commands that are not named here are never disabled.
void ForEachCommandState(const CommandInputs& inputs,
                         const std::function<void(std::string_view key, bool enabled)>& set);

} // namespace quillshift
