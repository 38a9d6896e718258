#include "recoding/ClipboardWatcher.h"

#include "base/Windows1251.h"
#include "recoding/modDecode.h"

#include <functional>
#include <string>
#include <utility>

namespace quillshift {
namespace {

// A text as the store gives it back.
std::u16string StoredForm(std::u16string_view text) {
    std::string bytes = windows1251::Encode(text);
    bytes.resize(std::min(bytes.find('\0'), bytes.size()));
    return windows1251::Decode(bytes);
}

// Tells a text from others.
std::u16string MarkOf(std::u16string_view text) {
    const std::size_t hash = std::hash<std::u16string_view>()(text);
    return windows1251::Decode("too long: " + std::to_string(text.size()) + ", " + std::to_string(hash));
}

} // namespace

ClipboardWatcher::ClipboardWatcher(Services services)
    : services_(std::move(services)), timerClipboard_(services_.timers.Make([this] { TakeInAll(); })) {}

void ClipboardWatcher::Start() {
    watches_ = true;
    OnClipboardChange();
}

bool ClipboardWatcher::Recodes(const CopiedText& copied) const {
    return !copied.repaired && services_.settings.Is(Setting::DecodeClipboard);
}

// Whether it is short enough to be taken in.
bool ClipboardWatcher::Fits(const CopiedText& copied) const {
    return copied.whole && (!Recodes(copied) || copied.text.size() <= kRecodingLimit);
}

// Whether it is another text than the one seen last.
bool ClipboardWatcher::Remember(const CopiedText& copied) {
    Settings& settings = services_.settings;
    const std::u16string text = Fits(copied) ? copied.text : MarkOf(copied.text);
    if (settings.Is(Setting::ClipboardText, StoredForm(text)))
        return false;
    settings.Set(Setting::ClipboardText, text);
    return true;
}

void ClipboardWatcher::OnClipboardChange() {
    if (!watches_)
        return;
    auto arrived = services_.clipboard.Arrived();
    if (!arrived)
        return;
    if (!Remember(*arrived) || !Fits(*arrived))
        return;
    const bool recodes = Recodes(*arrived);
    copied_.push_back({std::move(arrived->text), recodes});
    timerClipboard_->StartOnce();
}

void ClipboardWatcher::Overlook(const std::function<void()>& copy) {
    const bool watched = std::exchange(watches_, false);
    copy();
    watches_ = watched;
    if (const auto own = watched ? services_.clipboard.Arrived() : std::nullopt)
        Remember(*own);
}

void ClipboardWatcher::TakeInAll() {
    if (services_.clipboard.IsWaiting() || services_.inUse) {
        timerClipboard_->StartOnce();
        return;
    }
    while (!copied_.empty()) {
        Copy copy = std::move(copied_.front());
        copied_.pop_front();
        TakeIn(std::move(copy));
    }
}

void ClipboardWatcher::TakeIn(Copy copy) {
    services_.gatherText();
    std::u16string text = std::move(copy.text);
    RecodingState& recoding = services_.recoding;
    if (copy.recodes) {
        text = RecodeText(text, static_cast<Charset>(recoding.Combo1 + 1),
                          static_cast<Charset>(recoding.Combo2 + 1));
        recoding.SavedText = services_.document.Text();
        recoding.RecodeUndoAvailable = true;
    }
    const std::u16string_view old = services_.document.Text();
    const bool accumulates = services_.settings.Is(Setting::Accumulate);
    if (accumulates && !old.empty())
        text = std::u16string(old) + u'\r' + text;
    else
        services_.replaces();
    services_.document.SetText(text);
    services_.tookIn();
}

} // namespace quillshift
