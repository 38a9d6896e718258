#include "platform/qt/X11Requests.h"

#include <QCoreApplication>

#include <xcb/xcb.h>

#include <cstdlib>
#include <memory>
#include <string_view>

namespace quillshift {
namespace {

constexpr std::uint32_t kMostPairs = 32; // each costs a copy of the text, which has about ten forms

template <typename Reply>
std::unique_ptr<Reply, void (*)(void*)> Own(Reply* reply) {
    return {reply, std::free};
}

std::uint32_t Atom(xcb_connection_t* connection, std::string_view name) {
    const auto question =
        xcb_intern_atom(connection, 0, static_cast<std::uint16_t>(name.size()), name.data());
    const auto reply = Own(xcb_intern_atom_reply(connection, question, nullptr));
    return reply ? reply->atom : XCB_NONE;
}

} // namespace

X11Requests::X11Requests(xcb_connection_t* connection)
    : connection_(connection),
      multiple_(Atom(connection, "MULTIPLE")),
      pair_(Atom(connection, "ATOM_PAIR")),
      drop_(Atom(connection, "XdndDrop")) {
    QCoreApplication::instance()->installNativeEventFilter(this);
}

X11Requests::~X11Requests() = default; // takes itself out

bool X11Requests::nativeEventFilter(const QByteArray& /*kind*/, void* message, qintptr* /*result*/) {
    constexpr unsigned kSentByProgram = 0x80;
    const auto* const event = static_cast<const xcb_generic_event_t*>(message);
    const unsigned type = event->response_type & ~kSentByProgram;
    if (type == XCB_SELECTION_REQUEST || type == XCB_PROPERTY_NOTIFY)
        lastAsked_ = std::chrono::steady_clock::now();
    if (type == XCB_CLIENT_MESSAGE) {
        const auto& told = *static_cast<const xcb_client_message_event_t*>(message);
        if (told.type == drop_ && told.format == 32)
            dropTime_ = told.data.data32[2];
    }
    if (type != XCB_SELECTION_REQUEST)
        return false;
    const auto& request = *static_cast<const xcb_selection_request_event_t*>(message);
    if (request.target != multiple_ || IsSound(request))
        return false;
    Refuse(request);
    return true;
}

bool X11Requests::IsSound(const xcb_selection_request_event_t& request) const {
    constexpr std::uint32_t kPair = 2; // units of 32 bits
    if (request.property == XCB_NONE)
        return false;
    const auto question = xcb_get_property(connection_, 0, request.requestor, request.property,
                                           XCB_GET_PROPERTY_TYPE_ANY, 0, kMostPairs * kPair);
    const auto list = Own(xcb_get_property_reply(connection_, question, nullptr));
    return list && list->type == pair_ && list->format == 32 && list->bytes_after == 0 &&
           list->value_len > 0 && list->value_len % kPair == 0;
}

void X11Requests::Refuse(const xcb_selection_request_event_t& request) const {
    xcb_selection_notify_event_t refusal{};
    refusal.response_type = XCB_SELECTION_NOTIFY;
    refusal.time = request.time;
    refusal.requestor = request.requestor;
    refusal.selection = request.selection;
    refusal.target = request.target;
    refusal.property = XCB_NONE;
    xcb_send_event(connection_, 0, request.requestor, XCB_EVENT_MASK_NO_EVENT,
                   reinterpret_cast<const char*>(&refusal));
    xcb_flush(connection_);
}

} // namespace quillshift
