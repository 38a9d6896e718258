#include "document/UndoHistory.h"

#include <utility>

namespace quillshift {

void UndoHistory::Record(const TextEdit& edit) {
    if (!UndoCapture || !std::exchange(hasStart_, true) || edit.went == edit.came)
        return;
    steps_.resize(toUndo_);
    steps_.push_back({.place = edit.place, .length = edit.came.size(), .other = std::u16string(edit.went)});
    ++toUndo_;
}

// What comes back as one character or line break has the caret behind it; more is selected.
void UndoHistory::Exchange(TextSurface& surface, clsUndoRedo& step) {
    UndoCapture = false;
    surface.SetSelStart(step.place);
    surface.SetSelLength(step.length);
    std::u16string taken = surface.SelText();
    surface.SetSelText(step.other);
    step.length = step.other.size();
    if (step.length > 1 && step.other != u"\r\n") {
        surface.SetSelStart(step.place);
        surface.SetSelLength(step.length);
    }
    step.other = std::move(taken);
    UndoCapture = true;
}

void UndoHistory::UndoEdit(TextSurface& surface) {
    if (toUndo_ > 0 && UndoCapture)
        Exchange(surface, steps_[--toUndo_]);
    surface.SetFocus();
}

void UndoHistory::RedoEdit(TextSurface& surface) {
    if (RedoSteps() > 0 && UndoCapture)
        Exchange(surface, steps_[toUndo_++]);
    surface.SetFocus();
}

} // namespace quillshift
