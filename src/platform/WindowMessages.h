#pragma once

#include "platform/WindowId.h"

#include <bit>
#include <cstdint>
#include <string_view>

namespace quillshift {

/// The messages that a window system sends to every window, by number.
namespace message {
inline constexpr int kDestroy = 2; ///< the window is going; its last message
inline constexpr int kSize = 5;    ///< second value: the new width in the low 16 bits, height above, pixels
inline constexpr int kPaint = 15;
inline constexpr int kEraseBackground = 20;     ///< before each paint
inline constexpr int kSettingChange = 26;       ///< colours, fonts, style or screens of the system
inline constexpr int kActivateApplication = 28; ///< first value: 1 activated, 0 deactivated
} // namespace message

/// A value that comes with a message, its result, or a named property: a number, or an address as one.
using MessageValue = std::intptr_t;

template <typename T>
MessageValue AsValue(T* address) {
    return std::bit_cast<MessageValue>(address);
}
/// The address that `AsValue` made a number of; null for 0.
template <typename T>
T* AsAddress(MessageValue value) {
    return std::bit_cast<T*>(value);
}

/// What answers the messages of a window.
class WindowHandler {
public:
    virtual ~WindowHandler() = default;
    virtual MessageValue HandleMessage(WindowId window, int message, MessageValue wParam,
                                       MessageValue lParam) = 0;
};

/// The way into the message path of any window.
class WindowMessages {
public:
    virtual ~WindowMessages() = default;

    virtual bool IsWindow(WindowId window) const = 0;
    /// Whether the window belongs to this process.
    virtual bool IsLocal(WindowId window) const = 0;

    /// A named property of a window, which goes with it; 0 if there is none.
    virtual MessageValue Property(WindowId window, std::string_view name) const = 0;
    /// 0 removes the property. False if it can't be stored.
    virtual bool SetProperty(WindowId window, std::string_view name, MessageValue value) = 0;

    /// Replaces what answers the window's messages; not owned. Answers the earlier handler, which may still
    /// be called; null if it can't be replaced.
    virtual WindowHandler* SetHandler(WindowId window, WindowHandler& handler) = 0;
};

} // namespace quillshift
