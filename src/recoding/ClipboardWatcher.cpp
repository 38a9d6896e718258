#include "recoding/ClipboardWatcher.h"

#include "base/Error.h"
#include "base/Windows1251.h"

#include <utility>

namespace quillshift {
namespace {

// A text as the store gives it back.
std::u16string StoredForm(std::u16string_view text) {
    std::string bytes = windows1251::Encode(text);
    bytes.resize(std::min(bytes.find('\0'), bytes.size()));
    return windows1251::Decode(bytes);
}

} // namespace

ClipboardWatcher::ClipboardWatcher(Services services)
    : services_(std::move(services)),
      timerClipboardDetect_(services_.timers.Make([this] { Detect(); })),
      timerClipboard_(services_.timers.Make([this] { TakeIn(); })) {}

void ClipboardWatcher::Start() {
    watches_ = true;
    OnClipboardChange();
}

void ClipboardWatcher::OnClipboardChange() {
    if (watches_)
        timerClipboardDetect_->StartOnce();
}

// Whether it is another text than the one seen last.
bool ClipboardWatcher::Remember(std::u16string_view text) {
    Settings& settings = services_.settings;
    if (settings.Is(Setting::ClipboardText, StoredForm(text)))
        return false;
    settings.Set(Setting::ClipboardText, text);
    return true;
}

void ClipboardWatcher::Detect() {
    if (timerClipboard_->IsRunning()) {
        timerClipboard_->Stop();
        TakeIn();
    }
    auto text = services_.clipboard.Text();
    if (!text || !Remember(*text))
        return;
    copied_ = std::move(*text);
    timerClipboard_->StartOnce();
}

void ClipboardWatcher::TakeIn() {
    std::u16string text = std::exchange(copied_, {});
    RecodingState& recoding = services_.recoding;
    if (services_.settings.Is(Setting::DecodeClipboard)) {
        try {
            text = RecodeText(text, static_cast<Charset>(recoding.Combo1 + 1),
                              static_cast<Charset>(recoding.Combo2 + 1));
        } catch (const Error&) {
            return; // over the recoder's limit: the document is kept as it is
        }
        recoding.SavedText = services_.document.Text();
        recoding.RecodeUndoAvailable = true;
    }
    const std::u16string_view old = services_.document.Text();
    const bool accumulates = services_.settings.Is(Setting::Accumulate);
    if (accumulates && !old.empty())
        text = std::u16string(old) + u'\r' + text;
    services_.document.SetText(text);
    services_.tookIn();
}

} // namespace quillshift
