#include "controls/ProgressBarWidget.h"

#include "controls/ProgressBarAccess.h"
#include "platform/qt/QtBarSystem.h"

#include <QAccessible>

namespace quillshift {

ProgressBarWidget::ProgressBarWidget(QWidget* parent) : QWidget(parent) {
    bar_.Font = {.name = u"MS Sans Serif", .points = 8};
    AnnounceProgressBars();
}

void ProgressBarWidget::Changed() {
    update();
    QAccessibleValueChangeEvent event(this, bar_.Value);
    QAccessible::updateAccessibility(&event);
}

void ProgressBarWidget::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    memory_.Paint(painter, {width(), height()}, [this](Surface& surface) {
        bar_.Paint(surface, {width(), height()}, QtSystemColours(), QtTheme());
    });
}

} // namespace quillshift
