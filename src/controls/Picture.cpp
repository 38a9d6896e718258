#include "controls/Picture.h"

#include <QPainter>

#include <algorithm>

namespace quillshift {
namespace {

constexpr double kPlainDensity = 96 / 0.0254; // dots per metre

} // namespace

Picture::Picture(std::string_view bytes, QWidget* parent) : QWidget(parent) {
    image_.loadFromData(reinterpret_cast<const uchar*>(bytes.data()), static_cast<int>(bytes.size()));
    image_.setDevicePixelRatio(std::max(image_.dotsPerMeterX() / kPlainDensity, 1.0));
    setFixedSize(sizeHint());
}

QSize Picture::sizeHint() const {
    return image_.isNull() ? QSize(0, 0) : image_.deviceIndependentSize().toSize();
}

void Picture::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    painter.drawImage(rect(), image_);
}

} // namespace quillshift
