#include "document/UndoHistory.h"

#include "document/TextChange.h"

#include <utility>

namespace quillshift {
namespace {

std::size_t LengthDifference(std::size_t a, std::size_t b) {
    return a > b ? a - b : b - a;
}

// What was put back or in again: a character or a line break has the caret behind it, more is selected.
void SpliceIn(TextSurface& surface, std::size_t place, std::u16string_view span) {
    surface.SetSelStart(place);
    surface.SetSelLength(0);
    surface.SetSelText(span);
    surface.SetSelStart(place);
    if (span.size() < 2 || span == u"\r\n")
        surface.SetSelStart(place + span.size());
    else
        surface.SetSelLength(span.size());
}

void CutOut(TextSurface& surface, std::size_t place, std::size_t length) {
    surface.SetSelStart(place);
    surface.SetSelLength(length);
    surface.SetSelText(u"");
}

} // namespace

std::u16string ChangedSpan(std::u16string_view first, std::u16string_view second, std::size_t place) {
    const std::u16string_view longer = first.size() > second.size() ? first : second;
    const std::size_t difference = LengthDifference(first.size(), second.size());
    if (place < difference + 1)
        return {};
    const std::size_t start = place - difference - 1;
    return start < longer.size() ? std::u16string(longer.substr(start, difference)) : std::u16string();
}

void UndoHistory::Record(const TextSurface& surface) {
    if (!UndoCapture)
        return;
    states_.resize(undoSteps_);
    const std::u16string_view text = surface.Text();
    const std::size_t caret = surface.SelStart();
    const TextChange change = ChangeBetween(present_, text, caret);
    // A command that sets the whole text leaves the caret at its start, and undo would splice there.
    const bool atOnePlace = (change.removed == 0) != (change.added == 0);
    states_.push_back({.SelStart = atOnePlace ? change.place + change.added : caret,
                       .TextLen = text.size(),
                       .place = change.place,
                       .length = change.added,
                       .otherPart = present_.substr(change.place, change.removed)});
    present_.replace(change.place, change.removed, text.substr(change.place, change.added));
    ++undoSteps_;
}

// Between the texts on the two sides of a state's edit.
void UndoHistory::Exchange(clsUndoRedo& state) {
    std::u16string part = present_.substr(state.place, state.length);
    present_.replace(state.place, state.length, state.otherPart);
    state.length = state.otherPart.size();
    state.otherPart = std::move(part);
}

void UndoHistory::StepBack() {
    Exchange(states_[--undoSteps_]);
}

void UndoHistory::StepForward() {
    Exchange(states_[undoSteps_++]);
}

void UndoHistory::UndoEdit(TextSurface& surface) {
    if (undoSteps_ > 1 && UndoCapture) {
        UndoCapture = false;
        const clsUndoRedo& now = states_[undoSteps_ - 1];
        const clsUndoRedo& before = states_[undoSteps_ - 2];
        const std::size_t difference = LengthDifference(before.TextLen, now.TextLen);
        if (before.TextLen < now.TextLen) {
            StepBack();
            CutOut(surface, now.SelStart > difference ? now.SelStart - difference : 0, difference);
        } else {
            const std::u16string after = present_;
            StepBack();
            SpliceIn(surface, now.SelStart, ChangedSpan(present_, after, now.SelStart + 1 + difference));
        }
    }
    UndoCapture = true;
    surface.SetFocus();
}

void UndoHistory::RedoEdit(TextSurface& surface) {
    if (RedoSteps() > 0 && UndoCapture) {
        UndoCapture = false;
        StepForward();
        const std::size_t caret = states_[undoSteps_ - 1].SelStart;
        const std::size_t length = surface.Text().size();
        if (present_.size() < length) {
            CutOut(surface, caret, length - present_.size());
        } else {
            const std::u16string span = ChangedSpan(surface.Text(), present_, caret + 1);
            SpliceIn(surface, caret > span.size() ? caret - span.size() : 0, span);
        }
    }
    UndoCapture = true;
    surface.SetFocus();
}

} // namespace quillshift
