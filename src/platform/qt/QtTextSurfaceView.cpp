// What a surface shows: scrolling, and the place that is kept while the text is laid out anew.

#include "platform/qt/QtTextSurface.h"
#include "platform/qt/ViewLayout.h"

#include <QScopedValueRollback>
#include <QScrollBar>
#include <QWheelEvent>

#include <algorithm>
#include <cmath>

namespace quillshift {
namespace {

constexpr qreal kPercent = 100;
constexpr int kZoomStep = 10; // in percent, as the others
constexpr int kLeastZoom = 20;
constexpr int kMostZoom = 500;

} // namespace

// Whether other lines than those asked for came into sight, or at another place.
bool QtTextSurface::BringIntoView(bool toEnd) {
    QScrollBar& bar = *verticalScrollBar();
    const int asked = bar.value();
    const QSizeF size = layout_->documentSize();
    const QScopedValueRollback following(following_, true); // the bar's range may change
    constexpr int kTries = 3;                               // or end before the place
    const auto bring = [&] {
        for (int tries = 0, top = -1; top != bar.value() && tries < kTries; ++tries) {
            top = layout_->BringIntoView(bar.value(), viewport()->height(), toEnd || tries > 0);
            bar.setValue(top);
        }
    };
    bring();
    if (PlaceBorders()) {
        bring();
        return true;
    }
    return bar.value() != asked || layout_->documentSize() != size;
}

void QtTextSurface::FollowView(int top) {
    const QScopedValueRollback following(following_, true);
    QScrollBar& bar = *verticalScrollBar();
    bar.setMaximum(std::max(bar.maximum(), top));
    bar.setValue(top);
    viewport()->update();
}

void QtTextSurface::scrollContentsBy(int dx, int dy) {
    if (following_)
        return;
    const QScrollBar& bar = *verticalScrollBar();
    if (bar.value() == bar.maximum())
        FillAll();
    if (dy != 0 && BringIntoView(bar.value() > 0 && bar.value() == bar.maximum()))
        viewport()->update();
    else
        QTextEdit::scrollContentsBy(dx, dy);
}

void QtTextSurface::paintEvent(QPaintEvent* event) {
    if (BringIntoView(false))
        viewport()->update(); // the event may be for a part
    QTextEdit::paintEvent(event);
}

void QtTextSurface::KeepPlace(const std::function<void()>& work) {
    const QTextCursor first = cursorForPosition({0, 0});
    const int top = cursorRect(first).top();
    work();
    const int by = cursorRect(first).top() - top;
    verticalScrollBar()->setValue(verticalScrollBar()->value() + by);
}

void QtTextSurface::resizeEvent(QResizeEvent* event) {
    KeepPlace([&] { QTextEdit::resizeEvent(event); });
}

void QtTextSurface::changeEvent(QEvent* event) {
    KeepPlace([&] { QTextEdit::changeEvent(event); });
}

void QtTextSurface::SetRightMargin(Twips margin) {
    rightMargin_ = margin;
    KeepPlace([&] { ApplyRightMargin(); });
}

void QtTextSurface::ApplyRightMargin() {
    setLineWrapMode(rightMargin_.value > 0 ? QTextEdit::FixedPixelWidth : QTextEdit::WidgetWidth);
    const int plain = ToPixels(rightMargin_);
    const int zoomed = static_cast<int>(std::lround(plain * layout_->Zoom()));
    setLineWrapColumnOrWidth(std::min(zoomed, std::max(plain, viewport()->width()))); // stays in sight
}

int QtTextSurface::Zoom() const {
    return static_cast<int>(std::lround(layout_->Zoom() * kPercent));
}

void QtTextSurface::SetZoom(int percent) {
    if (percent == Zoom())
        return;
    KeepPlace([&] {
        layout_->SetZoom(percent / kPercent);
        ApplyRightMargin();
    });
    viewport()->update();
}

void QtTextSurface::wheelEvent(QWheelEvent* event) {
    if (!event->modifiers().testFlag(Qt::ControlModifier)) {
        QTextEdit::wheelEvent(event);
        return;
    }
    wheelled_ += event->angleDelta().y();
    const int steps = wheelled_ / QWheelEvent::DefaultDeltasPerStep;
    wheelled_ -= steps * QWheelEvent::DefaultDeltasPerStep;
    SetZoom(std::clamp(Zoom() + steps * kZoomStep, kLeastZoom, kMostZoom));
    event->accept();
}

std::size_t QtTextSurface::TopPosition() const {
    return SurfacePosition(cursorForPosition({0, 0}).position());
}

void QtTextSurface::SetTopPosition(std::size_t position) {
    QTextCursor cursor(document());
    cursor.setPosition(DocumentPosition(position));
    const int by = cursorRect(cursor).top();
    verticalScrollBar()->setValue(verticalScrollBar()->value() + by);
}

} // namespace quillshift
