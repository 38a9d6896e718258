#include "platform/qt/PointerOver.h"

#include "platform/qt/X11Display.h"
#include "platform/qt/X11Presses.h"

#include <QCursor>
#include <QWidget>

#include <algorithm>

namespace quillshift {

bool IsPointerOver(const QWidget& widget) {
    _XDisplay* const display = X11Display();
    if (display == nullptr)
        return widget.underMouse();
    return widget.isVisible() && widget.rect().contains(widget.mapFromGlobal(QCursor::pos())) &&
           std::ranges::count(WindowsUnderPointer(display), widget.window()->winId()) != 0;
}

} // namespace quillshift
