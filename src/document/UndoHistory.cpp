#include "document/UndoHistory.h"

#include <algorithm>
#include <utility>

namespace quillshift {
namespace {

// The span that two texts differ by, as what turns the first into the second.
clsUndoRedo Difference(std::u16string_view from, std::u16string_view to) {
    const std::size_t shorter = std::min(from.size(), to.size());
    const auto same =
        std::mismatch(from.begin(), from.begin() + static_cast<std::ptrdiff_t>(shorter), to.begin());
    const auto front = static_cast<std::size_t>(same.first - from.begin());
    const auto back = static_cast<std::size_t>(
        std::mismatch(from.rbegin(), from.rbegin() + static_cast<std::ptrdiff_t>(shorter - front),
                      to.rbegin())
            .first -
        from.rbegin());
    return {.SelStart = 0,
            .TextLen = to.size(),
            .place = front,
            .removed = std::u16string(from.substr(front, from.size() - front - back)),
            .added = std::u16string(to.substr(front, to.size() - front - back))};
}

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
    redoList_.clear();
    const std::u16string_view text = surface.Text();
    clsUndoRedo& state = undoList_.emplace_back(Difference(present_, text));
    state.SelStart = surface.SelStart();
    present_.replace(state.place, state.removed.size(), state.added);
}

// The last state goes to the redo list; the one before it is the present.
void UndoHistory::StepBack() {
    clsUndoRedo& last = redoList_.emplace_back(std::move(undoList_.back()));
    undoList_.pop_back();
    present_.replace(last.place, last.added.size(), last.removed);
}

void UndoHistory::StepForward() {
    clsUndoRedo& next = undoList_.emplace_back(std::move(redoList_.back()));
    redoList_.pop_back();
    present_.replace(next.place, next.removed.size(), next.added);
}

void UndoHistory::UndoEdit(TextSurface& surface) {
    if (undoList_.size() > 1 && UndoCapture) {
        UndoCapture = false;
        const std::size_t caret = undoList_.back().SelStart;
        const std::size_t length = undoList_.back().TextLen;
        const std::u16string after = present_;
        StepBack();
        const std::size_t difference = LengthDifference(present_.size(), length);
        if (present_.size() < length)
            CutOut(surface, caret > difference ? caret - difference : 0, difference);
        else
            SpliceIn(surface, caret, ChangedSpan(present_, after, caret + 1 + difference));
    }
    UndoCapture = true;
    surface.SetFocus();
}

void UndoHistory::RedoEdit(TextSurface& surface) {
    if (!redoList_.empty() && UndoCapture) {
        UndoCapture = false;
        StepForward();
        const std::size_t caret = undoList_.back().SelStart;
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
