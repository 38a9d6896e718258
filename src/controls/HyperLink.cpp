#include "controls/HyperLink.h"

#include "base/Twips.h"
#include "controls/LinkAccess.h"
#include "platform/qt/PointerOver.h"
#include "platform/qt/QtText.h"

#include <QFile>
#include <QGuiApplication>
#include <QLabel>
#include <QMouseEvent>
#include <QStyleOptionFocusRect>
#include <QStylePainter>

#include <chrono>

// The library's resources come in only when they are asked for, and not from within a namespace.
static void BringResources() {
    Q_INIT_RESOURCE(sounds);
}

namespace quillshift {
namespace {

constexpr std::chrono::milliseconds kInterval(50);
constexpr std::u16string_view kSampleAddress = u"https://quillshift.example/";
constexpr int kAroundCaption = 2; // room for the mark of the keyboard

std::int16_t ButtonBits(Qt::MouseButtons buttons) {
    return static_cast<std::int16_t>((buttons.testFlag(Qt::LeftButton) ? 1 : 0) |
                                     (buttons.testFlag(Qt::RightButton) ? 2 : 0) |
                                     (buttons.testFlag(Qt::MiddleButton) ? 4 : 0));
}

std::int16_t ShiftBits(Qt::KeyboardModifiers held) {
    return static_cast<std::int16_t>((held.testFlag(Qt::ShiftModifier) ? 1 : 0) |
                                     (held.testFlag(Qt::ControlModifier) ? 2 : 0) |
                                     (held.testFlag(Qt::AltModifier) ? 4 : 0));
}

HyperLink::Mouse MouseOf(const QMouseEvent& event, Qt::MouseButtons buttons) {
    return {.button = ButtonBits(buttons),
            .shift = ShiftBits(event.modifiers()),
            .x = FromPixels(event.pos().x()).value,
            .y = FromPixels(event.pos().y()).value};
}

} // namespace

HyperLink::HyperLink(const Platform& platform, QWidget* parent)
    : QWidget(parent),
      platform_(platform),
      lblHyperLink_(new QLabel(this)),
      myTimer_(platform.timers.Make([this] { EndHoverIfLeft(); })),
      address_(kSampleAddress) {
    BringResources();
    AnnounceLinks();
    lblHyperLink_->setObjectName(QStringLiteral("lblHyperLink"));
    lblHyperLink_->setTextFormat(Qt::PlainText);
    lblHyperLink_->setMargin(kAroundCaption);
    lblHyperLink_->setMouseTracking(true);
    setMouseTracking(true);
    setFocusPolicy(Qt::StrongFocus);
    SetCaption(kSampleAddress);
}

HyperLink::~HyperLink() = default;

// --- Properties

void HyperLink::SetAddress(std::u16string_view address) {
    address_ = FromQString(ToQString(address).trimmed());
}

std::u16string HyperLink::Caption() const {
    return FromQString(lblHyperLink_->text());
}

void HyperLink::SetCaption(std::u16string_view caption) {
    if (caption == Caption())
        return;
    lblHyperLink_->setText(ToQString(caption));
    Fit();
    if (OnChange)
        OnChange();
}

void HyperLink::SetAlignment(Justify alignment) {
    alignment_ = alignment;
    const Qt::Alignment across = alignment == Justify::Left    ? Qt::AlignLeft
                                 : alignment == Justify::Right ? Qt::AlignRight
                                                               : Qt::AlignHCenter;
    lblHyperLink_->setAlignment(across | Qt::AlignTop);
    Fit();
}

void HyperLink::SetAutoSize(bool on) {
    autoSize_ = on;
    if (!on) {
        setMinimumSize(0, 0);
        setMaximumSize(QWIDGETSIZE_MAX, QWIDGETSIZE_MAX);
    }
    Fit();
}

void HyperLink::SetAppearance(Look look) {
    appearance_ = look;
    ShowBorder();
}

void HyperLink::SetBorderStyle(Border style) {
    borderStyle_ = style;
    ShowBorder();
}

void HyperLink::ShowBorder() {
    if (borderStyle_ == Border::None)
        lblHyperLink_->setFrameStyle(QFrame::NoFrame);
    else if (appearance_ == Look::Flat)
        lblHyperLink_->setFrameStyle(QFrame::Box | QFrame::Plain);
    else
        lblHyperLink_->setFrameStyle(QFrame::Panel | QFrame::Sunken);
    Fit();
}

QColor HyperLink::ForeColor() const {
    return lblHyperLink_->palette().color(QPalette::Active, QPalette::WindowText);
}

void HyperLink::SetForeColor(const QColor& colour) {
    SetLabelColour(colour);
}

void HyperLink::SetLabelColour(const QColor& colour) {
    QPalette palette = lblHyperLink_->palette();
    palette.setColor(QPalette::Active, QPalette::WindowText, colour);
    palette.setColor(QPalette::Inactive, QPalette::WindowText, colour);
    lblHyperLink_->setPalette(palette);
}

QColor HyperLink::BackColor() const {
    return palette().color(QPalette::Window);
}

void HyperLink::SetBackColor(const QColor& colour) {
    QPalette changed = palette();
    changed.setColor(QPalette::Window, colour);
    setPalette(changed);
    setAutoFillBackground(true);
}

void HyperLink::Underline(bool on) {
    QFont changed = lblHyperLink_->font();
    changed.setUnderline(on);
    lblHyperLink_->setFont(changed);
}

// --- Size

void HyperLink::Fit() {
    if (autoSize_)
        setFixedSize(lblHyperLink_->sizeHint());
    lblHyperLink_->resize(size());
}

QSize HyperLink::sizeHint() const {
    return lblHyperLink_->sizeHint();
}

void HyperLink::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    Fit();
}

void HyperLink::changeEvent(QEvent* event) {
    QWidget::changeEvent(event);
    if (event->type() == QEvent::FontChange)
        Fit();
}

// --- Pointer

void HyperLink::mousePressEvent(QMouseEvent* event) {
    Mouse mouse = MouseOf(*event, event->button());
    if (OnMouseDown)
        OnMouseDown(mouse);
}

void HyperLink::mouseMoveEvent(QMouseEvent* event) {
    if (hover_)
        return;
    BeginHover();
    Mouse mouse = MouseOf(*event, event->buttons());
    if (OnMouseMove)
        OnMouseMove(mouse);
}

void HyperLink::mouseReleaseEvent(QMouseEvent* event) {
    Mouse mouse = MouseOf(*event, event->button());
    if (OnMouseUp)
        OnMouseUp(mouse);
    if (event->button() == Qt::LeftButton && rect().contains(event->pos()))
        Click();
}

void HyperLink::BeginHover() {
    hover_ = true;
    if (mouseOverPointer_)
        lblHyperLink_->setCursor(Qt::PointingHandCursor);
    saved_ = ForeColor();
    SetLabelColour(hoverColor_);
    if (mouseOverUnderline_)
        Underline(true);
    lblHyperLink_->setToolTip(autoToolTip_ ? ToQString(address_) : toolTip());
    myTimer_->StartInterval(kInterval);
}

// The toolkit tells when the pointer has left, but not under each window system, and not while something else
// has the mouse.
void HyperLink::EndHoverIfLeft() {
    if (IsPointerOver(*this))
        return;
    hover_ = false;
    SetLabelColour(saved_);
    if (mouseOverUnderline_)
        Underline(font().underline());
    myTimer_->Stop();
    if (OnMouseLeft)
        OnMouseLeft();
}

// --- Opening

void HyperLink::keyPressEvent(QKeyEvent* event) {
    switch (event->key()) {
    case Qt::Key_Space:
    case Qt::Key_Return:
    case Qt::Key_Enter:
        Click();
        break;
    default:
        QWidget::keyPressEvent(event);
    }
}

void HyperLink::Click() {
    if (!address_.empty()) {
        if (soundOn_)
            Play();
        QGuiApplication::setOverrideCursor(Qt::WaitCursor);
        platform_.shell.OpenWithDefault(address_); // the caption tells a person where it would have led
        QGuiApplication::restoreOverrideCursor();
    }
    if (OnClick)
        OnClick();
}

void HyperLink::Play() {
    QFile resource(QStringLiteral(":/SOUND/%1").arg(soundId_));
    if (resource.open(QIODevice::ReadOnly))
        platform_.sound.PlayFromMemory(resource.readAll().toStdString());
}

void HyperLink::paintEvent(QPaintEvent* /*event*/) {
    if (!hasFocus())
        return;
    QStylePainter painter(this);
    QStyleOptionFocusRect option;
    option.initFrom(this);
    option.backgroundColor = BackColor();
    painter.drawPrimitive(QStyle::PE_FrameFocusRect, option);
}

} // namespace quillshift
