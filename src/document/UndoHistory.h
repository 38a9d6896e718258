#pragma once

#include "platform/TextSurface.h"

#include <cstddef>
#include <string>
#include <vector>

namespace quillshift {

/// What lies between two neighbouring states of the document: a span at one place of the text.
struct clsUndoRedo {
    std::size_t place = 0;
    std::size_t length = 0; ///< of the span in the state nearer to the present one
    std::u16string other;   ///< what stands in its stead in the other state
};

/// The program's own undo. A list of states whose last one is the present, and a list of those taken back; a
/// state means the whole text and costs what its edit was. Undo and redo exchange the span that two states
/// differ by, and leave the rest of the document with its formatting alone.
class UndoHistory {
public:
    bool UndoCapture = true; ///< edits are recorded; false only while undo or redo is at work

    /// Records the state after an edit, which ends the possibility of redoing. The first edit of all gives
    /// the state that is not undone; later, one that changes nothing gives none.
    void Record(const TextEdit& edit);
    void UndoEdit(TextSurface& surface);
    void RedoEdit(TextSurface& surface);

    /// States, the present one among them.
    std::size_t UndoSteps() const { return hasStart_ ? toUndo_ + 1 : 0; }
    std::size_t RedoSteps() const { return steps_.size() - toUndo_; }

private:
    void Exchange(TextSurface& surface, clsUndoRedo& step);

    std::vector<clsUndoRedo> steps_; // in the order of the edits: those to undo, then those to redo
    std::size_t toUndo_ = 0;         // how many of them can be undone
    bool hasStart_ = false;
};

} // namespace quillshift
