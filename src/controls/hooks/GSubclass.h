#pragma once

#include "controls/hooks/MSubclass.h"

namespace quillshift {

/// The message hooks as an object of one's own. Shares registry, rules and failures with the `MSubclass` it
/// is made on, which outlives it.
class GSubclass {
public:
    explicit GSubclass(MSubclass& hooks) : hooks_(hooks) {}

    void AttachMessage(ISubclass& client, WindowId window, int message) {
        hooks_.AttachMessage(client, window, message);
    }
    void DetachMessage(ISubclass& client, WindowId window, int message) {
        hooks_.DetachMessage(client, window, message);
    }
    /// Whether the window belongs to this process.
    bool IsWindowLocal(WindowId window) const { return hooks_.IsWindowLocal(window); }
    int CurrentMessage() const { return hooks_.CurrentMessage(); }
    MessageValue CallOldWindowProc(WindowId window, int message, MessageValue wParam, MessageValue lParam) {
        return hooks_.CallOldWindowProc(window, message, wParam, lParam);
    }
    /// Whether a development host runs the program; none ever does.
    static constexpr bool InIDE() { return false; }

private:
    MSubclass& hooks_;
};

} // namespace quillshift
