#include "controls/FittingArea.h"

#include <QEvent>
#include <QScreen>
#include <QScrollBar>

namespace quillshift {

QSize RoomOnScreen(const QWidget& widget) {
    constexpr double kBesideFrame = 0.93;
    const bool isBare = widget.window()->windowFlags().testFlag(Qt::FramelessWindowHint);
    return widget.screen()->availableSize() * (isBare ? 1 : kBesideFrame);
}

FittingArea::FittingArea(QWidget* shown, int reserved) : reserved_(reserved) {
    setFrameShape(NoFrame);
    setFocusPolicy(Qt::NoFocus);
    setWidgetResizable(true);
    setWidget(shown);
    shown->setAutoFillBackground(false); // what lies beneath is the ground
    viewport()->setAutoFillBackground(false);
}

// A bar beside takes of the width what it needs itself, and so on.
QSize FittingArea::sizeHint() const {
    const QSize whole = widget()->sizeHint().expandedTo(widget()->minimumSize());
    const QSize room = RoomOnScreen(*this) - QSize(0, reserved_);
    QSize hint = whole;
    if (whole.height() > room.height())
        hint.rwidth() += verticalScrollBar()->sizeHint().width();
    if (hint.width() > room.width())
        hint.rheight() += horizontalScrollBar()->sizeHint().height();
    return hint.boundedTo(room);
}

bool FittingArea::eventFilter(QObject* watched, QEvent* event) {
    if (watched == widget() && event->type() == QEvent::LayoutRequest)
        updateGeometry();
    return QScrollArea::eventFilter(watched, event);
}

} // namespace quillshift
