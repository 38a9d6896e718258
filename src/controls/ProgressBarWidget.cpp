#include "controls/ProgressBarWidget.h"

#include "platform/qt/QtBarSystem.h"

namespace quillshift {

ProgressBarWidget::ProgressBarWidget(QWidget* parent) : QWidget(parent) {
    bar_.Font = {.name = u"MS Sans Serif", .points = 8};
}

void ProgressBarWidget::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    memory_.Paint(painter, {width(), height()}, [this](Surface& surface) {
        bar_.Paint(surface, {width(), height()}, QtSystemColours(), QtTheme());
    });
}

} // namespace quillshift
