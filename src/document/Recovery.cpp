#include "document/Recovery.h"

#include <algorithm>
#include <chrono>
#include <utility>

namespace quillshift {
namespace {

using namespace std::chrono_literals;

constexpr std::chrono::milliseconds kSoon = 1s;
constexpr std::chrono::milliseconds kAfterFailure = 10s;
constexpr std::size_t kMostEdits = 256;
constexpr std::size_t kLeastGrowth = std::size_t{64} << 10U;
constexpr std::size_t kPiece = std::size_t{1} << 20U; // between two events

std::optional<std::string> Shorten(std::string_view bytes) {
    const auto left = ReadRecoveryFile(bytes);
    return left ? std::optional(RecoveryFile(left->text, left->place)) : std::nullopt;
}

} // namespace

Recovery::Recovery(const Services& services)
    : services_(services),
      text_(&services.document),
      timer_(services.timers.Make([this] { FlushBitByBit(); })) {
    services_.store.OnFailure = [this] {
        if (LacksText() && !timer_->IsRunning())
            timer_->StartOnce(kAfterFailure);
    };
}

// --- What is new

void Recovery::Edited(const TextSurface& surface, const TextEdit& edit) {
    if (&surface != text_ || edit.went == edit.came)
        return;
    copy_.Follow(edit);
    if (!needsWhole_)
        Gather(edit);
    NoteChange();
}

void Recovery::NoteChange() {
    isUnsaved_ = true;
    isUnwritten_ = true;
    if (!timer_->IsRunning())
        timer_->StartOnce(services_.store.HasFailed() ? kAfterFailure : kSoon);
}

// An edit that touches the last one becomes one with it.
void Recovery::Gather(const TextEdit& edit) {
    gathered_ += edit.came.size();
    if (gathered_ >= std::max(kLeastGrowth, text_->Length())) {
        ForgetEdits();
        return;
    }
    const std::size_t end = edit.place + edit.went.size();
    if (edits_.empty() || end < edits_.back().place ||
        edit.place > edits_.back().place + edits_.back().came.size()) {
        edits_.push_back({edit.place, edit.went.size(), std::u16string(edit.came)});
        return;
    }
    Edit& last = edits_.back();
    const std::size_t lastEnd = last.place + last.came.size();
    const std::size_t from = std::max(edit.place, last.place) - last.place;
    const std::size_t to = std::min(end, lastEnd) - last.place;
    last.came.replace(from, to - from, edit.came);
    const std::size_t before = last.place - std::min(edit.place, last.place);
    last.went += before + (end - std::min(end, lastEnd));
    last.place -= before;
}

void Recovery::ForgetEdits() {
    edits_.clear();
    copy_ = {};
    gathered_ = 0;
    needsWhole_ = true;
}

void Recovery::Follow(const TextSurface& surface) {
    const bool isSame = text_->Text() == surface.Text();
    text_ = &surface;
    if (isSame)
        return;
    ForgetEdits();
    NoteChange();
}

void Recovery::SetLocked(bool isLocked) {
    isLocked_ = isLocked;
    isUnwritten_ = isUnsaved_;
    Flush();
}

// --- Writing

bool Recovery::NeedsText() const {
    return needsWhole_ || LacksText();
}

// A long text is copied between the events: at once it would hold up a key.
void Recovery::FlushBitByBit() {
    if (IsOn() && NeedsText()) {
        CopyPiece();
        if (copy_.Length() < text_->Length()) {
            timer_->StartOnce(0ms);
            return;
        }
    }
    Flush();
}

void Recovery::CopyPiece() {
    copy_.Append(text_->Part(copy_.Length(), kPiece));
}

// What a failed write left out is in none of the edits to come.
void Recovery::Flush() {
    timer_->Stop();
    if (!std::exchange(isUnwritten_, false) && !LacksText())
        return;
    if (!IsOn()) {
        ForgetEdits();
        RemoveAll();
    } else if (text_->Length() == 0) { // nothing that could be lost
        ForgetEdits();
        if (std::exchange(hasWritten_, false))
            services_.store.Remove();
    } else if (NeedsText()) {
        WriteWhole();
    } else {
        WriteEdits();
    }
}

void Recovery::WriteWhole() {
    while (copy_.Length() < text_->Length())
        CopyPiece();
    services_.store.Replace(
        [copy = std::move(copy_), place = Place()] { return RecoveryFile(copy.Joined(), place); });
    ForgetEdits();
    needsWhole_ = false;
    hasWritten_ = true;
    leavesTrace_ = true;
    appended_ = grown_ = 0;
}

void Recovery::WriteEdits() {
    std::string records;
    for (const Edit& edit : edits_)
        records += EditRecord(edit.place, edit.went, edit.came);
    records += PlaceRecord(Place());
    appended_ += edits_.size();
    grown_ += records.size();
    ForgetEdits();
    needsWhole_ = false;
    services_.store.Append(std::move(records));
    if (appended_ < kMostEdits && grown_ < std::max(kLeastGrowth, text_->Length()))
        return;
    services_.store.Rewrite(Shorten);
    appended_ = grown_ = 0;
}

RecoveryPlace Recovery::Place() const {
    const DocumentState& state = services_.state;
    return {.caret = text_->SelStart(),
            .isRich = state.isRich,
            .reopenAvailable = state.ReopenAvailable,
            .saveAvailable = state.SaveAvailable,
            .isLocked = isLocked_,
            .knownDigest = state.knownDigest,
            .path = state.path,
            .saveTarget = state.saveTarget};
}

void Recovery::FlushAndWait() {
    Flush();
    services_.store.Finish();
}

// --- What becomes of a text

void Recovery::KeepReplaced() {
    if (!isUnsaved_ || text_->Length() == 0 || !IsOn())
        return;
    Flush();
    services_.store.SetAside();
    hasWritten_ = false;
    ForgetEdits();
}

void Recovery::Settled() {
    timer_->Stop();
    ForgetEdits();
    isUnsaved_ = false;
    isUnwritten_ = false;
    if (std::exchange(hasWritten_, false))
        services_.store.Remove();
}

// Where nothing is to be kept the file stays what it is, and the next start offers it again.
void Recovery::Restored(const std::string& file) {
    isUnsaved_ = true;
    if (!IsOn())
        return;
    services_.store.Take(file);
    WriteWhole();
}

void Recovery::End() {
    Settled();
    RemoveAll();
    services_.store.Finish();
}

void Recovery::RemoveAll() {
    hasWritten_ = false;
    if (std::exchange(leavesTrace_, false))
        services_.store.RemoveAll();
}

} // namespace quillshift
