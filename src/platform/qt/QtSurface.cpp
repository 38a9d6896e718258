#include "platform/qt/QtSurface.h"

#include "platform/qt/QtText.h"

#include <QLinearGradient>
#include <QPaintDevice>
#include <QTransform>

#include <algorithm>
#include <cmath>

namespace quillshift {
namespace {

QRect ToQRect(const Rect& rect) {
    return {rect.left, rect.top, rect.Width(), rect.Height()};
}

QColor ToQColor(Colour colour) {
    return {colour.Red(), colour.Green(), colour.Blue()};
}

int TextFlags(bool mnemonics) {
    return Qt::TextSingleLine | (mnemonics ? Qt::TextShowMnemonic : 0);
}

int AlignFlag(TextLayout::Align align) {
    switch (align) {
    case TextLayout::Align::Left:
        break;
    case TextLayout::Align::Centre:
        return Qt::AlignHCenter;
    case TextLayout::Align::Right:
        return Qt::AlignRight | Qt::AlignAbsolute;
    }
    return Qt::AlignLeft | Qt::AlignAbsolute;
}

// Puts back the painter's transformation.
class KeptTransform {
public:
    explicit KeptTransform(QPainter& painter) : painter_(painter), kept_(painter.worldTransform()) {}
    ~KeptTransform() { painter_.setWorldTransform(kept_); }
    KeptTransform(const KeptTransform&) = delete;
    KeptTransform& operator=(const KeptTransform&) = delete;

private:
    QPainter& painter_;
    QTransform kept_;
};

// Whether each pixel becomes a block of whole pixels, which has to stay sharp.
bool IsWholeMultiple(double target, int source) {
    return std::fmod(target, source) == 0;
}

} // namespace

Size QtTextMeasurer::TextExtent(std::u16string_view text, const FontSpec& font, bool mnemonics) const {
    const QSize size = fonts_.Find(font).metrics.size(TextFlags(mnemonics), ToQString(text));
    return {size.width(), size.height()};
}

QtSurface::QtSurface(QPainter& painter, const QtTextMeasurer& texts) : painter_(painter), texts_(texts) {
    painter_.setRenderHint(QPainter::Antialiasing, false);
}

void QtSurface::FillRect(const Rect& area, Colour colour) {
    if (!area.IsEmpty())
        painter_.fillRect(ToQRect(area), ToQColor(colour));
}

void QtSurface::FillGradient(const Rect& area, Colour start, Colour end, bool horizontal) {
    if (area.IsEmpty())
        return;
    const QPointF last = horizontal ? QPointF(area.right, area.top) : QPointF(area.left, area.bottom);
    QLinearGradient gradient(QPointF(area.left, area.top), last);
    gradient.setColorAt(0, ToQColor(start));
    gradient.setColorAt(1, ToQColor(end));
    painter_.fillRect(ToQRect(area), gradient);
}

void QtSurface::FrameRect(const Rect& area, Colour colour) {
    if (area.IsEmpty())
        return;
    const Rect inner = area.Inset(1);
    FillRect({area.left, area.top, area.right, inner.top}, colour);
    FillRect({area.left, inner.bottom, area.right, area.bottom}, colour);
    FillRect({area.left, inner.top, inner.left, inner.bottom}, colour);
    FillRect({inner.right, inner.top, area.right, inner.bottom}, colour);
}

void QtSurface::DrawLine(Point from, Point to, Colour colour) {
    const auto [left, right] = std::minmax(from.x, to.x);
    const auto [top, bottom] = std::minmax(from.y, to.y);
    if (left == right || top == bottom)
        return FillRect({left, top, right + 1, bottom + 1}, colour);
    const int steps = std::max(right - left, bottom - top);
    for (int i = 0; i <= steps; ++i) {
        const auto at = [&](int first, int last) {
            return first + static_cast<int>(std::lround(static_cast<double>(last - first) * i / steps));
        };
        FillRect(RectAt(at(from.x, to.x), at(from.y, to.y), 1, 1), colour);
    }
}

void QtSurface::DrawText(const Rect& area, std::u16string_view text, const FontSpec& font, Colour colour,
                         const TextLayout& layout) {
    if (area.IsEmpty() || text.empty())
        return;
    const KeptTransform kept(painter_);
    QRect place = ToQRect(area);
    if (layout.rotated) {
        painter_.translate(area.right, area.top);
        painter_.rotate(90);
        place = {0, 0, area.Height(), area.Width()};
    }
    painter_.setFont(texts_.FontOf(font));
    painter_.setPen(ToQColor(colour));
    painter_.drawText(place, TextFlags(layout.mnemonics) | AlignFlag(layout.align) | Qt::AlignVCenter,
                      ToQString(text));
}

void QtSurface::Composite(const Rect& target, const PixelView& source, const Rect& part,
                          std::uint8_t constantAlpha) {
    if (source.bits == nullptr || target.IsEmpty() || part.IsEmpty())
        return;
    const QImage pixels(source.bits, source.width, source.height, qsizetype{source.width} * 4,
                        QImage::Format_ARGB32_Premultiplied);
    // The lines run bottom up, and the painter's image top down: both turned over, all is right.
    const KeptTransform kept(painter_);
    painter_.translate(0, target.top + target.bottom);
    painter_.scale(1, -1);
    const QRectF fromBottom(part.left, source.height - part.bottom, part.Width(), part.Height());
    const bool sharp = IsWholeMultiple(target.Width() * Density(), part.Width()) &&
                       IsWholeMultiple(target.Height() * Density(), part.Height());
    painter_.setRenderHint(QPainter::SmoothPixmapTransform, !sharp);
    painter_.setOpacity(constantAlpha / 255.0);
    painter_.drawImage(QRectF(ToQRect(target)), pixels, fromBottom);
    painter_.setOpacity(1);
}

void QtSurface::SetClip(const Rect& area) {
    painter_.setClipRect(ToQRect(area));
}

void QtSurface::ClearClip() {
    painter_.setClipping(false);
}

double QtSurface::Density() const {
    return painter_.device()->devicePixelRatio();
}

void QtMemorySurface::Paint(QPainter& target, Size client, const std::function<void(Surface&)>& paint) {
    const double density = target.device()->devicePixelRatio();
    const QSize size(static_cast<int>(std::ceil(client.width * density)),
                     static_cast<int>(std::ceil(client.height * density)));
    if (size.isEmpty())
        return;
    if (pixels_.size() != size)
        pixels_ = QImage(size, QImage::Format_ARGB32_Premultiplied);
    pixels_.setDevicePixelRatio(density);
    pixels_.fill(Qt::transparent);
    {
        QPainter painter(&pixels_);
        QtSurface surface(painter, texts_);
        paint(surface);
    }
    target.drawImage(QPoint(0, 0), pixels_);
}

} // namespace quillshift
