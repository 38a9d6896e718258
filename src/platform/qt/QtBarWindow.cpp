#include "platform/qt/QtBarWindow.h"

#include "platform/qt/BarAccess.h"
#include "platform/qt/QtText.h"

#include <QContextMenuEvent>
#include <QMouseEvent>
#include <QPainter>

#include <optional>

namespace quillshift {
namespace {

// Borderless, above all others, and never given the keyboard, which stays with the text.
constexpr Qt::WindowFlags kPopupFlags =
    Qt::ToolTip | Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint | Qt::WindowDoesNotAcceptFocus;

QRect ToQt(const Rect& rect) {
    return {rect.left, rect.top, rect.Width(), rect.Height()};
}

Point PlaceOf(const QMouseEvent& event) {
    return {static_cast<int>(std::floor(event.position().x())),
            static_cast<int>(std::floor(event.position().y()))};
}

std::optional<MouseButton> ButtonOf(const QMouseEvent& event) {
    switch (event.button()) {
    case Qt::LeftButton:
        return MouseButton::Left;
    case Qt::RightButton:
        return MouseButton::Right;
    case Qt::MiddleButton:
        return MouseButton::Middle;
    default:
        return std::nullopt;
    }
}

// Bottom-up premultiplied pixels as a picture of the top-down kind, with the constant alpha in them.
QImage PictureOf(const ShadowStrip& strip) {
    const PixelView& pixels = strip.pixels;
    QImage picture(pixels.width, pixels.height, QImage::Format_ARGB32_Premultiplied);
    const std::size_t lineBytes = static_cast<std::size_t>(pixels.width) * 4;
    for (int y = 0; y < pixels.height; ++y) {
        const std::uint8_t* source =
            pixels.bits + static_cast<std::size_t>(pixels.height - 1 - y) * lineBytes;
        std::uint8_t* target = picture.scanLine(y);
        for (std::size_t i = 0; i < lineBytes; ++i)
            target[i] = static_cast<std::uint8_t>(source[i] * strip.constantAlpha / 255);
    }
    return picture;
}

} // namespace

class QtBarWindow::Shadow final : public QWidget {
public:
    explicit Shadow(QWidget* parent)
        : QWidget(parent, kPopupFlags | Qt::WindowTransparentForInput | Qt::NoDropShadowWindowHint) {
        setAttribute(Qt::WA_ShowWithoutActivating);
        setAttribute(Qt::WA_TransparentForMouseEvents);
        setAttribute(Qt::WA_TranslucentBackground);
    }

    void Show(const ShadowStrip& strip) {
        picture_ = PictureOf(strip);
        setGeometry(ToQt(strip.place));
        show();
        update();
    }

protected:
    void paintEvent(QPaintEvent* /*event*/) override {
        QPainter painter(this);
        painter.setCompositionMode(QPainter::CompositionMode_Source);
        painter.drawImage(rect(), picture_);
    }

private:
    QImage picture_;
};

QtBarWindow::QtBarWindow(QtWindowMessages& ids, const QtTextMeasurer& texts, QWidget* parent)
    : QWidget(parent), ids_(ids), texts_(texts), id_(ids.Add(*this)), memory_(texts) {
    setAttribute(Qt::WA_OpaquePaintEvent);
    setMouseTracking(true);
    setFocusPolicy(Qt::NoFocus);
    AnnounceBars();
}

QtBarWindow::~QtBarWindow() = default;

Rect QtBarWindow::ParentClient() const {
    const QWidget* const parent = parentWidget();
    if (parent == nullptr || isWindow())
        return {0, 0, width(), height()};
    return RectAt(-x(), -y(), parent->width(), parent->height());
}

Point QtBarWindow::ToScreen(Point client) const {
    const QPoint screen = mapToGlobal(QPoint(client.x, client.y));
    return {screen.x(), screen.y()};
}

Point QtBarWindow::FromScreen(Point screen) const {
    const QPoint client = mapFromGlobal(QPoint(screen.x, screen.y));
    return {client.x(), client.y()};
}

void QtBarWindow::SetDepth(int px, bool upright) {
    if (upright)
        setFixedWidth(px);
    else
        setFixedHeight(px);
}

void QtBarWindow::Repaint(const Rect& part) {
    update(ToQt(part));
}

void QtBarWindow::SetToolTip(std::u16string_view text) {
    setToolTip(ToQString(text));
}

void QtBarWindow::AnnounceItem(const BarPath& path) {
    AnnounceBarItem(*this, path);
}

void QtBarWindow::ShowPopup(const Rect& screen) {
    if (!isWindow()) {
        setWindowFlags(kPopupFlags | Qt::NoDropShadowWindowHint);
        setAttribute(Qt::WA_ShowWithoutActivating);
    }
    setGeometry(ToQt(screen));
    show();
    raise();
}

void QtBarWindow::HidePopup() {
    for (const auto& shadow : shadows_)
        if (shadow)
            shadow->hide();
    hide();
}

void QtBarWindow::ShowShadows(const std::array<ShadowStrip, 2>& strips) {
    for (std::size_t i = 0; i < strips.size(); ++i) {
        if (strips[i].pixels.bits == nullptr) {
            shadows_[i].reset();
            continue;
        }
        if (!shadows_[i])
            shadows_[i] = std::make_unique<Shadow>(parentWidget());
        shadows_[i]->Show(strips[i]);
    }
    raise();
}

void QtBarWindow::paintEvent(QPaintEvent* event) {
    if (listener_ == nullptr)
        return;
    QPainter painter(this);
    painter.setClipRegion(event->region());
    const QRect part = event->rect();
    memory_.Paint(painter, ClientSize(), [&](Surface& surface) {
        listener_->OnPaint(surface, RectAt(part.x(), part.y(), part.width(), part.height()));
    });
}

void QtBarWindow::resizeEvent(QResizeEvent* /*event*/) {
    if (listener_ != nullptr)
        listener_->OnSize();
}

void QtBarWindow::mousePressEvent(QMouseEvent* event) {
    if (const auto button = ButtonOf(*event); button && listener_ != nullptr)
        listener_->OnMousePress(PlaceOf(*event), *button);
}

void QtBarWindow::mouseReleaseEvent(QMouseEvent* event) {
    if (const auto button = ButtonOf(*event); button && listener_ != nullptr)
        listener_->OnMouseRelease(PlaceOf(*event), *button);
}

void QtBarWindow::mouseMoveEvent(QMouseEvent* event) {
    if (listener_ != nullptr)
        listener_->OnMouseMove(PlaceOf(*event));
}

void QtBarWindow::leaveEvent(QEvent* /*event*/) {
    if (listener_ != nullptr)
        listener_->OnMouseLeave();
}

void QtBarWindow::contextMenuEvent(QContextMenuEvent* event) {
    event->accept();
}

} // namespace quillshift
