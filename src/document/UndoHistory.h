#pragma once

#include "platform/TextSurface.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace quillshift {

/// One state of the document: where its edit ended and how long the text was then. The text itself is kept as
/// what differs from the neighbouring state that is nearer to the present one.
struct clsUndoRedo {
    std::size_t SelStart = 0;
    std::size_t TextLen = 0;

    std::size_t place = 0;    ///< where the two texts begin to differ
    std::size_t length = 0;   ///< of the differing part in the text nearer to the present
    std::u16string otherPart; ///< what stands in its stead in the other text
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

    std::size_t UndoSteps() const { return undoSteps_; } ///< the present state among them
    std::size_t RedoSteps() const { return states_.size() - undoSteps_; }

private:
    void StepBack();
    void StepForward();
    void Exchange(clsUndoRedo& state);

    std::vector<clsUndoRedo> states_; // in the order of the edits: those to undo, then those to redo
    std::size_t undoSteps_ = 0;
    std::u16string present_; // text of the last state to undo
};

/// The characters that the longer of two texts (the second, if they are of equal length) has more than the
/// shorter: as many as the difference of their lengths, from the 1-based position `place` less that number.
/// What would lie outside the text is left out.
std::u16string ChangedSpan(std::u16string_view first, std::u16string_view second, std::size_t place);

} // namespace quillshift
