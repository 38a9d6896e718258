#include "controls/hooks/MSubclass.h"

#include <array>
#include <charconv>
#include <utility>

namespace quillshift {
namespace {

std::string HandlerName(WindowId window) {
    return std::to_string(window);
}
std::string CountName(WindowId window) {
    return HandlerName(window) + "C";
}
std::string MessageCountName(WindowId window, int message) {
    return HandlerName(window) + "#" + std::to_string(message) + "C";
}
std::string ClientName(WindowId window, int message, MessageValue index) {
    return HandlerName(window) + "#" + std::to_string(message) + "#" + std::to_string(index);
}

std::string Hex(MessageValue value) {
    std::array<char, 2 * sizeof value> digits{};
    const auto end =
        std::to_chars(digits.data(), digits.data() + digits.size(), std::bit_cast<std::uintptr_t>(value), 16);
    std::string text(digits.data(), end.ptr);
    for (char& digit : text)
        if (digit >= 'a')
            digit = static_cast<char>(digit - 'a' + 'A');
    return text;
}

} // namespace

MSubclass::MSubclass(WindowMessages& windows, std::u16string executable, Trace trace)
    : windows_(windows), executable_(std::move(executable)), trace_(std::move(trace)) {}

void MSubclass::AttachMessage(ISubclass& client, WindowId window, int message) {
    if (!windows_.IsWindow(window))
        Raise(HookFailure::InvalidWindow);
    if (!windows_.IsLocal(window))
        Raise(HookFailure::ExternalWindow);
    if (IndexOf(client, window, message) != 0)
        Raise(HookFailure::AlreadyHandled);

    const MessageValue index = MessageCount(window, message) + 1;
    if (!SetMessageCount(window, message, index))
        Raise(HookFailure::InvalidCall);
    if (!SetClient(window, message, index, &client)) {
        SetMessageCount(window, message, index - 1);
        Raise(HookFailure::InvalidCall);
    }
    const auto undo = [&](HookFailure failure) {
        SetClient(window, message, index, nullptr);
        SetMessageCount(window, message, index - 1);
        Raise(failure);
    };
    const MessageValue attachments = WindowCount(window);
    if (attachments == 0)
        if (const auto failure = Hook(window))
            undo(*failure);
    if (!SetWindowCount(window, attachments + 1)) {
        if (attachments == 0)
            Unhook(window);
        undo(HookFailure::InvalidCall);
    }
}

void MSubclass::DetachMessage(ISubclass& client, WindowId window, int message) {
    if (!windows_.IsWindow(window) || !windows_.IsLocal(window))
        return;
    const MessageValue place = IndexOf(client, window, message);
    if (place == 0)
        return;
    const MessageValue count = MessageCount(window, message);
    for (MessageValue index = place; index < count; ++index)
        SetClient(window, message, index, Client(window, message, index + 1));
    SetClient(window, message, count, nullptr);
    SetMessageCount(window, message, count - 1);

    const MessageValue attachments = WindowCount(window);
    if (attachments == 1)
        Unhook(window);
    if (attachments > 0) // a window that is being destroyed has none left
        SetWindowCount(window, attachments - 1);
}

MessageValue MSubclass::CallOldWindowProc(WindowId window, int message, MessageValue wParam,
                                          MessageValue lParam) {
    WindowHandler* const old = OldHandler(window);
    return old ? old->HandleMessage(window, message, wParam, lParam) : 0;
}

// The old handler is looked up once: a client may detach, and with it take the window out of the registry,
// before the handler's turn comes.
MessageValue MSubclass::HandleMessage(WindowId window, int message, MessageValue wParam,
                                      MessageValue lParam) {
    WindowHandler* const old = OldHandler(window);
    if (!old)
        return 0;
    const MessageValue count = MessageCount(window, message);
    if (count == 0)
        return PassUnwatched(*old, window, message, wParam, lParam);

    MessageValue answer = 0;
    std::optional<MessageResponse> response; // none if the first client has gone by its turn
    for (MessageValue index = count; index >= 1; --index) {
        ISubclass* const client = Client(window, message, index);
        if (!client)
            continue;
        currentMessage_ = message;
        if (index == 1) {
            response = client->MsgResponse();
            if (response == MessageResponse::Before)
                old->HandleMessage(window, message, wParam, lParam);
        }
        answer = client->WindowProc(window, message, wParam, lParam);
    }
    // A message that nobody is left to decide about is the window's own, as if it weren't watched.
    if (response.value_or(MessageResponse::After) == MessageResponse::After)
        answer = old->HandleMessage(window, message, wParam, lParam);
    return answer;
}

MessageValue MSubclass::PassUnwatched(WindowHandler& old, WindowId window, int message, MessageValue wParam,
                                      MessageValue lParam) {
    if (message == message::kDestroy) {
        Unhook(window);
        SetWindowCount(window, 0);
    }
    return old.HandleMessage(window, message, wParam, lParam);
}

WindowHandler* MSubclass::OldHandler(WindowId window) const {
    return AsAddress<WindowHandler>(windows_.Property(window, HandlerName(window)));
}

MessageValue MSubclass::WindowCount(WindowId window) const {
    return windows_.Property(window, CountName(window));
}

MessageValue MSubclass::MessageCount(WindowId window, int message) const {
    return windows_.Property(window, MessageCountName(window, message));
}

ISubclass* MSubclass::Client(WindowId window, int message, MessageValue index) const {
    return AsAddress<ISubclass>(windows_.Property(window, ClientName(window, message, index)));
}

// 0 if the client isn't on the message.
MessageValue MSubclass::IndexOf(const ISubclass& client, WindowId window, int message) const {
    for (MessageValue index = MessageCount(window, message); index >= 1; --index)
        if (Client(window, message, index) == &client)
            return index;
    return 0;
}

bool MSubclass::SetOldHandler(WindowId window, WindowHandler* handler) {
    return Change(window, HandlerName(window), AsValue(handler), "Window Proc for " + Hex(window));
}

bool MSubclass::SetWindowCount(WindowId window, MessageValue count) {
    return Change(window, CountName(window), count, "message count for " + Hex(window));
}

bool MSubclass::SetMessageCount(WindowId window, int message, MessageValue count) {
    return Change(window, MessageCountName(window, message), count,
                  "message count for " + Hex(window) + " Message " + Hex(message));
}

bool MSubclass::SetClient(WindowId window, int message, MessageValue index, ISubclass* client) {
    return Change(window, ClientName(window, message, index), AsValue(client),
                  "message class for " + Hex(window) + " Message " + Hex(message) + " Index " + Hex(index));
}

bool MSubclass::Change(WindowId window, const std::string& property, MessageValue value,
                       const std::string& traceName) {
    if (!windows_.SetProperty(window, property, value))
        return false;
    if (trace_)
        trace_("Changed " + traceName + " to " + Hex(value));
    return true;
}

std::optional<HookFailure> MSubclass::Hook(WindowId window) {
    WindowHandler* const old = windows_.SetHandler(window, *this);
    if (!old)
        return HookFailure::CantSubclass;
    if (SetOldHandler(window, old))
        return std::nullopt;
    windows_.SetHandler(window, *old);
    return HookFailure::InvalidCall;
}

void MSubclass::Unhook(WindowId window) {
    if (WindowHandler* const old = OldHandler(window))
        windows_.SetHandler(window, *old);
    SetOldHandler(window, nullptr);
}

} // namespace quillshift
