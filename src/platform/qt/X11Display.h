#pragma once

#include <QGuiApplication>

namespace quillshift {

/// The toolkit's connection to the X server; null under another window system.
inline _XDisplay* X11Display() {
    const auto* const x11 = qApp->nativeInterface<QNativeInterface::QX11Application>();
    return x11 != nullptr ? x11->display() : nullptr;
}

} // namespace quillshift
