#include "platform/qt/CapsLock.h"

#include <QGuiApplication>

#include <cstdlib>
#include <memory>
#include <xcb/xproto.h>

namespace quillshift {

bool IsCapsLockOn() {
    const auto* const x11 = qApp->nativeInterface<QNativeInterface::QX11Application>();
    xcb_connection_t* const connection = x11 != nullptr ? x11->connection() : nullptr;
    if (connection == nullptr)
        return false;
    const xcb_window_t root = xcb_setup_roots_iterator(xcb_get_setup(connection)).data->root;
    const std::unique_ptr<xcb_query_pointer_reply_t, decltype(&std::free)> reply(
        xcb_query_pointer_reply(connection, xcb_query_pointer(connection, root), nullptr), &std::free);
    return reply != nullptr && (reply->mask & XCB_MOD_MASK_LOCK) != 0;
}

} // namespace quillshift
