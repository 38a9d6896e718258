#pragma once

#include "platform/Clipboard.h"
#include "platform/TextSurface.h"
#include "platform/Timer.h"
#include "recoding/RecodingState.h"
#include "settings/Settings.h"

#include <deque>
#include <functional>
#include <memory>

namespace quillshift {

/// Takes new text on the clipboard into the document, re-coded or as it came, once all of it has arrived. A
/// repaired text always as it came.
/// Never writes to the clipboard. The memory of what was last seen lies in the settings store; characters
/// that the store can't hold make no difference to it, and for a text that is too long to be taken in a short
/// mark stands there.
class ClipboardWatcher {
public:
    struct Services {
        Clipboard& clipboard;
        Settings& settings;
        RecodingState& recoding;
        TextSurface& document;
        Timers& timers;
        std::function<void()> gatherText; ///< the document gets what is being written elsewhere
        std::function<void()> replaces;   ///< the document's text is about to go
        std::function<void()> tookIn;     ///< the document has been changed
        const bool& inUse;                ///< somebody counts on the document as it is
    };

    explicit ClipboardWatcher(Services services);

    /// From now on changes are taken in, and what is on the clipboard already, if it is new.
    void Start();
    /// To be told of every change of the clipboard.
    void OnClipboardChange();
    /// Runs something that puts a text on the clipboard which is no news: it is remembered, not taken in.
    void Overlook(const std::function<void()>& copy);

private:
    struct Copy {
        std::u16string text;
        bool recodes;
    };
    void TakeInAll();
    void TakeIn(Copy copy);
    bool Recodes(const CopiedText& copied) const;
    bool Fits(const CopiedText& copied) const;
    bool Remember(const CopiedText& copied);

    Services services_;
    bool watches_ = false;
    std::deque<Copy> copied_;               ///< to be taken in
    std::unique_ptr<Timer> timerClipboard_; ///< takes them in
};

} // namespace quillshift
