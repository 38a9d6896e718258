#include "platform/qt/QtTabRow.h"

#include "platform/qt/QtSurface.h"
#include "platform/qt/QtTabStrip.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QStyleOptionButton>
#include <QStyleOptionTab>
#include <QStylePainter>
#include <QWheelEvent>

#include <utility>

namespace quillshift {

QtTabRow::QtTabRow(QtTabStrip& strip) : QTabBar(&strip), strip_(strip) {
    setDrawBase(false);
    setExpanding(false);
    setUsesScrollButtons(true);
    // So do assistive programs, and nobody else but the strip.
    connect(this, &QTabBar::currentChanged, this, [this](int index) {
        strip_.SelectByHand(first_ + index);
        setCurrentIndex(strip_.Selection() - first_);
    });
}

// --- What a person does

void QtTabRow::mousePressEvent(QMouseEvent* event) {
    strip_.setFocus(Qt::MouseFocusReason);
    if (event->button() == Qt::LeftButton && tabAt(event->pos()) >= 0)
        strip_.SelectByHand(first_ + tabAt(event->pos()));
    else if (event->button() == Qt::RightButton && strip_.Notices.rightClick)
        strip_.Notices.rightClick();
}

void QtTabRow::wheelEvent(QWheelEvent* event) {
    const QPoint turn = event->angleDelta();
    const int way = turn.y() != 0 ? turn.y() : turn.x();
    if (way != 0)
        strip_.SelectByHand(strip_.Selection() + (way < 0 ? 1 : -1));
}

void QtTabRow::keyPressEvent(QKeyEvent* event) {
    switch (event->key()) {
    case Qt::Key_Left:
    case Qt::Key_Up:
        return strip_.SelectByHand(strip_.Selection() - 1);
    case Qt::Key_Right:
    case Qt::Key_Down:
        return strip_.SelectByHand(strip_.Selection() + 1);
    case Qt::Key_Home:
        return strip_.SelectByHand(0);
    case Qt::Key_End:
        return strip_.SelectByHand(strip_.Count() - 1);
    case Qt::Key_PageUp:
    case Qt::Key_PageDown:
    case Qt::Key_Return:
    case Qt::Key_Enter:
        return;
    default:
        event->ignore();
    }
}

// --- How it looks

void QtTabRow::initStyleOption(QStyleOptionTab* option, int index) const {
    QTabBar::initStyleOption(option, index);
    const int position = first_ + index;
    const auto item = strip_.Item(position);
    const bool isSelected = position == strip_.Selection();
    option->state.setFlag(QStyle::State_Selected, isSelected);
    option->state.setFlag(QStyle::State_HasFocus, hasFocus() && isSelected);
    const bool isUnderPointer = strip_.Styles().hotTrack && option->state.testFlag(QStyle::State_MouseOver);
    option->state.setFlag(QStyle::State_MouseOver, isUnderPointer || (item && item->hot));
}

QSize QtTabRow::tabSizeHint(int index) const {
    const QSize size = QTabBar::tabSizeHint(index) + strip_.Padding() * 2;
    if (!strip_.Styles().ownerDraw || !strip_.Notices.measure)
        return size;
    const auto told = strip_.Notices.measure(first_ + index, {size.width(), size.height()});
    return told ? QSize(told->width, told->height) : size;
}

void QtTabRow::paintEvent(QPaintEvent* event) {
    if (strip_.Styles().ownerDraw && strip_.Notices.draw)
        DrawByOwner();
    else if (strip_.Styles().buttons)
        DrawButtons();
    else
        QTabBar::paintEvent(event);
    if (strip_.Notices.painted)
        DrawOver();
}

// In the strip's places, as its owner knows no rows.
void QtTabRow::DrawByOwner() {
    QPainter painter(this);
    painter.translate(-pos());
    const QtTextMeasurer texts;
    QtSurface surface(painter, texts);
    for (int position = first_; position < first_ + count(); ++position)
        strip_.Notices.draw(position, surface, strip_.ItemPlace(position), position == strip_.Selection());
}

void QtTabRow::DrawOver() {
    QPainter painter(this);
    painter.translate(-pos());
    const QtTextMeasurer texts;
    QtSurface surface(painter, texts);
    strip_.Notices.painted(surface);
}

void QtTabRow::DrawButtons() {
    QStylePainter painter(this);
    const bool isFlat = strip_.Styles().flatButtons;
    for (int index = 0; index < count(); ++index) {
        QStyleOptionTab tab;
        initStyleOption(&tab, index);
        const bool isDown = tab.state.testFlag(QStyle::State_Selected);
        QStyleOptionButton button;
        button.initFrom(this);
        button.rect = tab.rect.adjusted(1, 1, -1, -1);
        button.state = tab.state & (QStyle::State_Enabled | QStyle::State_MouseOver | QStyle::State_Active);
        button.state |= isDown ? QStyle::State_Sunken | QStyle::State_On : QStyle::State_Raised;
        if (!isFlat)
            painter.drawPrimitive(QStyle::PE_PanelButtonCommand, button);
        else if (isDown || button.state.testFlag(QStyle::State_MouseOver))
            painter.drawPrimitive(QStyle::PE_PanelButtonTool, button);
        painter.drawControl(QStyle::CE_TabBarTabLabel, tab);
        if (isFlat && strip_.FlatSeparators() && index + 1 < count()) {
            const bool isUpright = IsAtSide(strip_.Styles().align);
            QStyleOption separator;
            separator.initFrom(this);
            separator.state.setFlag(QStyle::State_Horizontal, !isUpright);
            separator.rect = isUpright
                                 ? QRect(tab.rect.left(), tab.rect.bottom() - 2, tab.rect.width(), 6)
                                 : QRect(tab.rect.right() - 2, tab.rect.top() + 2, 6, tab.rect.height() - 4);
            painter.drawPrimitive(QStyle::PE_IndicatorToolBarSeparator, separator);
        }
    }
}

} // namespace quillshift
