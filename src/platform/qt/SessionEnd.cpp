#include "platform/qt/SessionEnd.h"

#include <QCoreApplication>
#include <QEvent>
#include <QGuiApplication>

#include <utility>

namespace quillshift {

SessionEnd::SessionEnd(std::function<void()> mayCome, std::function<void()> isThere)
    : isThere_(std::move(isThere)) {
    connect(qApp, &QGuiApplication::commitDataRequest, this, std::move(mayCome), Qt::DirectConnection);
    qApp->installEventFilter(this);
}

// Nothing in the program asks for this event: it doesn't end with its last window.
bool SessionEnd::eventFilter(QObject* watched, QEvent* event) {
    if (watched != qApp || event->type() != QEvent::Quit)
        return false;
    isThere_();
    return true;
}

} // namespace quillshift
