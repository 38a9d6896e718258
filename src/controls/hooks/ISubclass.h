#pragma once

#include "platform/WindowMessages.h"

namespace quillshift {

/// What becomes of the window's old handler for a message.
enum class MessageResponse {
    Consume = 0, ///< it isn't called
    After = 1,   ///< it runs when the clients are done
    Before = 2   ///< it runs first
};

/// An object that takes part in the messages of a window.
class ISubclass {
public:
    virtual ~ISubclass() = default;

    /// Told a response; a client that knows its own has no use for it.
    virtual void SetMsgResponse(MessageResponse) {}
    /// The response for the message that is being dispatched, `CurrentMessage`. Of the clients on a message
    /// only the one that was attached first is asked.
    virtual MessageResponse MsgResponse() const = 0;
    /// Answers the message; the result becomes that of the message.
    virtual MessageValue WindowProc(WindowId window, int message, MessageValue wParam,
                                    MessageValue lParam) = 0;
};

} // namespace quillshift
