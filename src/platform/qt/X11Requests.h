#pragma once

#include <QAbstractNativeEventFilter>

#include <chrono>
#include <cstdint>

struct xcb_connection_t;
struct xcb_selection_request_event_t;

namespace quillshift {

/// Sees what other programs ask of this one before the toolkit does. A request for several forms at once with
/// a malformed list of them is refused: the toolkit would write past its memory.
class X11Requests final : public QAbstractNativeEventFilter {
public:
    explicit X11Requests(xcb_connection_t* connection);
    ~X11Requests() override;

    bool nativeEventFilter(const QByteArray& kind, void* message, qintptr* result) override;

    /// When another program last asked for something, or took what it had asked for.
    std::chrono::steady_clock::time_point LastAsked() const { return lastAsked_; }
    /// The time that the last drop from another program came with; its text is to be asked for with it.
    std::uint32_t DropTime() const { return dropTime_; }

private:
    bool IsSound(const xcb_selection_request_event_t& request) const;
    void Refuse(const xcb_selection_request_event_t& request) const;

    xcb_connection_t* connection_;
    std::uint32_t multiple_, pair_, drop_;
    std::chrono::steady_clock::time_point lastAsked_;
    std::uint32_t dropTime_ = 0;
};

} // namespace quillshift
