#include "controls/ProgressBar.h"

#include "base/Error.h"
#include "base/Texts.h"
#include "controls/ProgressBarAccess.h"
#include "platform/qt/Appearance.h"
#include "platform/qt/QtText.h"

#include <QAccessible>
#include <QCoreApplication>
#include <QPainter>

#include <algorithm>
#include <cmath>

namespace quillshift {

ProgressBar::ProgressBar(QWidget* parent) : QWidget(parent) {
    setAttribute(Qt::WA_OpaquePaintEvent);
    setFont(DialogFont());
    AnnounceProgressBars();
}

void ProgressBar::SetValue(float value) {
    value_ = value;
    QAccessibleValueChangeEvent event(this, Percentage());
    QAccessible::updateAccessibility(&event);
    Redraw();
}

void ProgressBar::SetCalculatePercentage(bool on) {
    calculatePercentage_ = on;
    if (!on)
        totalValue_ = 0;
    else if (totalValue_ == 0)
        totalValue_ = 100;
    Redraw();
}

void ProgressBar::SetTotalValue(double total) {
    if (!calculatePercentage_)
        return;
    if (total <= 0)
        throw Error(static_cast<int>(0x800403E9U), u"spbProgressBar",
                    u"Total value must be a postive, non-zero value");
    totalValue_ = total;
    Redraw();
}

void ProgressBar::SetShowStatus(bool on) {
    showStatus_ = on;
    Redraw();
}

void ProgressBar::SetText(std::u16string_view text) {
    text_ = text;
    Redraw();
}

void ProgressBar::SetProgressColor(Colour colour) {
    progressColor_ = colour;
    Redraw();
}

double ProgressBar::Percentage() const {
    const auto value = static_cast<double>(value_);
    return calculatePercentage_ ? value / totalValue_ * 100 : value;
}

std::u16string ProgressBar::Label() const {
    if (!showStatus_)
        return text_;
    return text_ + u" " + WholeNumberText(static_cast<int>(std::floor(Percentage() + 0.5))) + u"%";
}

QSize ProgressBar::sizeHint() const {
    return {300, 21};
}

void ProgressBar::Redraw() {
    repaint();
    QCoreApplication::processEvents();
}

// The bar is drawn over the label so that each bit is the inverse of bar xor label: on white that is the
// bar's own colour, and on the label's black the colour's inverse.
void ProgressBar::paintEvent(QPaintEvent* /*event*/) {
    const qreal density = devicePixelRatioF();
    QImage image(size() * density, QImage::Format_RGB32);
    image.setDevicePixelRatio(density);
    image.fill(Qt::white);
    QPainter painter(&image);
    painter.setFont(font());
    painter.setPen(Qt::black);
    painter.drawText(rect(), Qt::AlignCenter, ToQString(Label()));
    const double share = std::clamp(Percentage() / 100, 0.0, 1.0);
    if (share > 0) {
        painter.setCompositionMode(QPainter::RasterOp_NotSourceXorDestination);
        painter.fillRect(QRectF(0, 0, std::round(width() * share), height()),
                         QColor(progressColor_.Red(), progressColor_.Green(), progressColor_.Blue()));
    }
    painter.end();
    QPainter(this).drawImage(0, 0, image);
}

} // namespace quillshift
