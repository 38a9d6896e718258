#pragma once

#include "platform/TextSurface.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace quillshift {

/// One state of the document: where the caret stood and how long the text was just after an edit. The text
/// itself is kept as what differs from the state before it.
struct clsUndoRedo {
    std::size_t SelStart = 0;
    std::size_t TextLen = 0;

    std::size_t place = 0; ///< where the two texts begin to differ
    std::u16string removed;
    std::u16string added;
};

/// The program's own undo: a list of states whose last one is the present, and a list of those taken back. A
/// state means the whole text and costs what its edit was. Undo and redo do not restore a state wholesale:
/// they splice the one span that two neighbouring states differ by, as if each edit were one insertion or
/// removal at the caret.
class UndoHistory {
public:
    bool UndoCapture = true; ///< edits are recorded; false only while undo or redo is at work

    /// Records the present state of the surface, which ends the possibility of redoing.
    void Record(const TextSurface& surface);
    /// The first state has nothing before it, so the first edit of all is not undone.
    void UndoEdit(TextSurface& surface);
    void RedoEdit(TextSurface& surface);

    std::size_t UndoSteps() const { return undoList_.size(); } ///< the present state among them
    std::size_t RedoSteps() const { return redoList_.size(); }

private:
    void StepBack();
    void StepForward();

    std::vector<clsUndoRedo> undoList_;
    std::vector<clsUndoRedo> redoList_; // each follows the one behind it, the last one the present
    std::u16string present_;            // text of the last state in `undoList_`
};

/// The characters that the longer of two texts (the second, if they are of equal length) has more than the
/// shorter: as many as the difference of their lengths, from the 1-based position `place` less that number.
/// What would lie outside the text is left out.
std::u16string ChangedSpan(std::u16string_view first, std::u16string_view second, std::size_t place);

} // namespace quillshift
