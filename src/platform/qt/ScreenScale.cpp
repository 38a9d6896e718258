#include "platform/qt/ScreenScale.h"

#include <QApplication>
#include <QResizeEvent>
#include <QScreen>
#include <QWidget>
#include <QWindow>

namespace quillshift {
namespace {

// The toolkit has reckoned the window's size anew, and tells neither the widget nor the window system.
void Follow(QWidget& window) {
    QWindow* const handle = window.windowHandle();
    if (handle == nullptr || handle->size() == window.size())
        return;
    const QSize before = window.size();
    QResizeEvent now(handle->size(), before);
    QCoreApplication::sendEvent(handle, &now);
    if ((window.windowState() & (Qt::WindowMaximized | Qt::WindowFullScreen)) == 0)
        window.resize(before.boundedTo(window.screen()->availableSize()));
    window.update();
}

void FollowAll() {
    for (QWidget* const window : QApplication::topLevelWidgets())
        if (window->isVisible())
            Follow(*window);
}

} // namespace

void FollowScaleOfScreens(QApplication& application) {
    const auto watch = [&application](const QScreen* screen) {
        QObject::connect(screen, &QScreen::geometryChanged, &application, FollowAll, Qt::QueuedConnection);
    };
    for (const QScreen* screen : QGuiApplication::screens())
        watch(screen);
    QObject::connect(&application, &QGuiApplication::screenAdded, watch);
}

} // namespace quillshift
