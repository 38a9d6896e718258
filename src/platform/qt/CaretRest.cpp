#include "platform/qt/CaretRest.h"

#include <QApplication>
#include <QEvent>

namespace quillshift {

CaretRest::CaretRest(std::chrono::milliseconds after) : flashTime_(QApplication::cursorFlashTime()) {
    timer_.setSingleShot(true);
    timer_.setInterval(after);
    timer_.callOnTimeout([] { QApplication::setCursorFlashTime(0); });
    qApp->installEventFilter(this);
}

bool CaretRest::eventFilter(QObject* watched, QEvent* event) {
    const QEvent::Type type = event->type();
    const bool touches =
        type == QEvent::KeyPress || type == QEvent::MouseButtonPress || type == QEvent::FocusIn;
    if (!touches || !watched->isWindowType())
        return false;
    if (!timer_.isActive())
        QApplication::setCursorFlashTime(flashTime_);
    timer_.start();
    return false;
}

} // namespace quillshift
