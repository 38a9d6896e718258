#pragma once

#include "controls/hooks/HookError.h"
#include "controls/hooks/ISubclass.h"

#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace quillshift {

/// Gives any object a place in the message path of any window of the process, one message at a time.
///
/// The registry lies in the named properties of the window concerned, and goes with it:
///
///     window                            the window's old handler
///     window "C"                        how many attachments the window has
///     window "#" message "C"            how many clients the message has
///     window "#" message "#" index      a client, from 1, in order of attachment
///
/// Clients are held by address: a client detaches before it goes. One thread.
class MSubclass final : private WindowHandler {
public:
    /// Takes a line for each change of the registry.
    using Trace = std::function<void(std::string_view line)>;

    /// `executable`: name of the program, for the source of errors.
    MSubclass(WindowMessages& windows, std::u16string executable, Trace trace = {});
    MSubclass(const MSubclass&) = delete;
    MSubclass& operator=(const MSubclass&) = delete;

    /// Puts `client` on a message of the window. Throws Error 5 or, above the object-error base, 13081 to
    /// 13084; the registry is then as it was.
    void AttachMessage(ISubclass& client, WindowId window, int message);
    /// Takes `client` off the message; does nothing if it isn't there. Never throws.
    void DetachMessage(ISubclass& client, WindowId window, int message);
    /// Gives a message to the handler that the window had before it was hooked; 0 if it isn't hooked.
    MessageValue CallOldWindowProc(WindowId window, int message, MessageValue wParam, MessageValue lParam);

    /// The message that is being dispatched. Holds during a client's `MsgResponse` and `WindowProc`, up to
    /// an inner message that these bring about.
    int CurrentMessage() const { return currentMessage_; }
    bool IsWindowLocal(WindowId window) const { return windows_.IsLocal(window); }

private:
    MessageValue HandleMessage(WindowId window, int message, MessageValue wParam,
                               MessageValue lParam) override;
    MessageValue PassUnwatched(WindowHandler& old, WindowId window, int message, MessageValue wParam,
                               MessageValue lParam);

    WindowHandler* OldHandler(WindowId window) const;
    MessageValue WindowCount(WindowId window) const;
    MessageValue MessageCount(WindowId window, int message) const;
    ISubclass* Client(WindowId window, int message, MessageValue index) const;
    MessageValue IndexOf(const ISubclass& client, WindowId window, int message) const;

    bool SetOldHandler(WindowId window, WindowHandler* handler);
    bool SetWindowCount(WindowId window, MessageValue count);
    bool SetMessageCount(WindowId window, int message, MessageValue count);
    bool SetClient(WindowId window, int message, MessageValue index, ISubclass* client);

    bool Change(WindowId window, const std::string& property, MessageValue value,
                const std::string& traceName);

    /// Puts the dispatcher in the handler's place. Answers what went wrong, if anything did.
    std::optional<HookFailure> Hook(WindowId window);
    void Unhook(WindowId window);
    [[noreturn]] void Raise(HookFailure failure) const { RaiseHookError(failure, executable_); }

    WindowMessages& windows_;
    std::u16string executable_;
    Trace trace_;
    int currentMessage_ = 0;
};

} // namespace quillshift
