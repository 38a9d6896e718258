#include "platform/qt/SessionEnd.h"

#include <QCoreApplication>
#include <QEvent>
#include <QGuiApplication>

#include <cstdlib>
#include <utility>

namespace quillshift {
namespace {

std::function<void()> saveAtExit; // the toolkit leaves by `exit` when the display is gone

} // namespace

SessionEnd::SessionEnd(Notices notices) : notices_(std::move(notices)) {
    connect(qApp, &QGuiApplication::commitDataRequest, this, notices_.save, Qt::DirectConnection);
    qApp->installEventFilter(this);
    saveAtExit = notices_.save;
    std::atexit([] {
        if (saveAtExit)
            saveAtExit();
    });
}

SessionEnd::~SessionEnd() {
    saveAtExit = nullptr;
}

// The toolkit would close the windows one by one, as if the user had. Nothing in the program asks for this
// event: it doesn't end with its last window.
bool SessionEnd::eventFilter(QObject* watched, QEvent* event) {
    if (watched != qApp || event->type() != QEvent::Quit)
        return false;
    notices_.end();
    return true;
}

} // namespace quillshift
