#include "platform/qt/QtBarSystem.h"

#include "platform/Keys.h"
#include "platform/qt/QtBarWindow.h"
#include "platform/qt/X11Compositing.h"

#include <QApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPalette>
#include <QScreen>
#include <QStyleOption>
#include <QStyleOptionToolButton>
#include <QWindow>

#include <algorithm>
#include <array>
#include <cstring>

namespace quillshift {
namespace {

// Virtual key codes of the keys that are no letters, digits or function keys.
constexpr std::pair<int, int> kNamedKeys[] = {{Qt::Key_Backspace, key::kBackspace},
                                              {Qt::Key_Tab, key::kTab},
                                              {Qt::Key_Return, key::kEnter},
                                              {Qt::Key_Enter, key::kEnter},
                                              {Qt::Key_Alt, key::kAlt},
                                              {Qt::Key_Escape, key::kEscape},
                                              {Qt::Key_Space, key::kSpace},
                                              {Qt::Key_PageUp, key::kPageUp},
                                              {Qt::Key_PageDown, key::kPageDown},
                                              {Qt::Key_End, key::kEnd},
                                              {Qt::Key_Home, key::kHome},
                                              {Qt::Key_Left, key::kLeft},
                                              {Qt::Key_Up, key::kUp},
                                              {Qt::Key_Right, key::kRight},
                                              {Qt::Key_Down, key::kDown},
                                              {Qt::Key_Insert, key::kInsert},
                                              {Qt::Key_Delete, key::kDelete}};

// 0 for a key that the bars have no use for, the modifiers but Alt among them.
int VirtualKeyOf(const QKeyEvent& event) {
    const int pressed = event.key();
    if ((pressed >= Qt::Key_A && pressed <= Qt::Key_Z) || (pressed >= Qt::Key_0 && pressed <= Qt::Key_9))
        return pressed;
    if (pressed >= Qt::Key_F1 && pressed <= Qt::Key_F24)
        return key::kF1 + pressed - Qt::Key_F1;
    for (const auto& [named, code] : kNamedKeys)
        if (named == pressed)
            return code;
    return 0;
}

bool IsModifier(const QKeyEvent& event) {
    switch (event.key()) {
    case Qt::Key_Shift:
    case Qt::Key_Control:
    case Qt::Key_Meta:
    case Qt::Key_AltGr:
    case Qt::Key_CapsLock:
    case Qt::Key_NumLock:
        return true;
    default:
        return event.key() >= Qt::Key_Super_L && event.key() <= Qt::Key_Direction_R;
    }
}

bool IsPress(QEvent::Type type) {
    return type == QEvent::MouseButtonPress || type == QEvent::MouseButtonDblClick ||
           type == QEvent::NonClientAreaMouseButtonPress || type == QEvent::NonClientAreaMouseButtonDblClick;
}

bool IsMouse(QEvent::Type type) {
    return IsPress(type) || type == QEvent::MouseMove || type == QEvent::MouseButtonRelease ||
           type == QEvent::Wheel;
}

Rect FromQt(const QRect& rect) {
    return RectAt(rect.x(), rect.y(), rect.width(), rect.height());
}

Colour FromQt(const QColor& colour) {
    return Rgb(static_cast<std::uint8_t>(colour.red()), static_cast<std::uint8_t>(colour.green()),
               static_cast<std::uint8_t>(colour.blue()));
}

} // namespace

QtBarSystem::QtBarSystem(QtWindowMessages& ids) : ids_(ids) {
    qApp->installEventFilter(this);
}

// Input comes to the window first, and only then to its widgets: there it is seen once.
bool QtBarSystem::eventFilter(QObject* watched, QEvent* event) {
    if (watched->isWidgetType())
        NoteInterruption(*static_cast<QWidget*>(watched), event->type());
    if (!watched->isWindowType())
        return false;
    const QEvent::Type type = event->type();
    if (type == QEvent::KeyPress || type == QEvent::KeyRelease)
        return keyboardFilter_ != nullptr && QApplication::activePopupWidget() == nullptr &&
               FilterKey(*static_cast<QKeyEvent*>(event));
    if (IsPress(type))
        altAlone_ = false;
    if (mouseFilter_ != nullptr && IsMouse(type))
        mouseFilter_->FilterMouse(IsPress(type));
    return false;
}

// What a window manager does with a window, by Alt and the mouse or by the title bar, shows only in the
// window.
void QtBarSystem::NoteInterruption(const QWidget& widget, QEvent::Type type) {
    const bool interrupts = type == QEvent::Move || type == QEvent::WindowStateChange ||
                            type == QEvent::WindowBlocked || type == QEvent::WindowDeactivate;
    if (!interrupts || widget.windowType() != Qt::Window)
        return;
    altAlone_ = false;
    if (mouseFilter_ != nullptr)
        mouseFilter_->OnInterruption();
}

// Alt counts when it goes up without another key in between: it is also half of Alt+TAB, and of Alt+Shift, by
// which many change between Russian and Latin letters.
bool QtBarSystem::FilterKey(const QKeyEvent& event) {
    const int code = VirtualKeyOf(event);
    const bool up = event.type() == QEvent::KeyRelease;
    const bool wasAlone = std::exchange(altAlone_, code == key::kAlt && !up);
    // A key without a code is told, too: an open menu keeps every key from the text.
    if ((code == 0 && IsModifier(event)) || (up && (event.isAutoRepeat() || code != key::kAlt || !wasAlone)))
        return false;
    if (code == key::kAlt && !up && event.isAutoRepeat())
        return false;
    const Qt::KeyboardModifiers held = event.modifiers();
    const int modifiers = (held.testFlag(Qt::ShiftModifier) ? modifier::kShift : 0) |
                          (held.testFlag(Qt::ControlModifier) ? modifier::kCtrl : 0) |
                          (held.testFlag(Qt::AltModifier) ? modifier::kAlt : 0);
    return keyboardFilter_->FilterKey(code, up, modifiers);
}

Point QtBarSystem::PointerPosition() const {
    return {QCursor::pos().x(), QCursor::pos().y()};
}

WindowId QtBarSystem::WindowUnderPointer() const {
    QWidget* const widget = QApplication::widgetAt(QCursor::pos());
    if (widget == nullptr)
        return 0;
    for (QWidget* each = widget; each != nullptr; each = each->parentWidget())
        if (auto* const bar = qobject_cast<QtBarWindow*>(each))
            return bar->Id();
        else if (each->isWindow())
            break;
    return ids_.Add(*widget->window());
}

WindowId QtBarSystem::ForegroundWindow() const {
    QWidget* const active = QApplication::activeWindow();
    const QWidget* const modal = QApplication::activeModalWidget();
    if (active == nullptr || active->isMinimized() || (modal != nullptr && modal != active))
        return 0;
    return ids_.Add(*active);
}

std::vector<MonitorInfo> QtBarSystem::Monitors() const {
    std::vector<MonitorInfo> monitors;
    int handle = 0;
    for (const QScreen* screen : QGuiApplication::screens())
        monitors.push_back({.handle = ++handle,
                            .name = screen->name().toStdU16String(),
                            .bounds = FromQt(screen->geometry()),
                            .workArea = FromQt(screen->availableGeometry()),
                            .primary = screen == QGuiApplication::primaryScreen()});
    return monitors;
}

bool QtBarSystem::Layered() const {
    const auto* const x11 = qApp->nativeInterface<QNativeInterface::QX11Application>();
    auto* const display = x11 != nullptr ? x11->display() : nullptr;
    return display == nullptr || IsComposited(display);
}

ScreenCopy QtBarSystem::CopyOfScreen(const Rect& part) const {
    QScreen* const screen = QGuiApplication::screenAt(QPoint(part.left, part.top));
    if (screen == nullptr || part.IsEmpty())
        return {};
    // What a menu that has just closed lay upon is not painted again yet.
    const QRect area(part.left, part.top, part.Width(), part.Height());
    for (QWidget* const widget : QApplication::allWidgets())
        widget->repaint(area.translated(-widget->mapToGlobal(QPoint())));
    const QPoint origin = screen->geometry().topLeft();
    const QImage image =
        screen->grabWindow(0, part.left - origin.x(), part.top - origin.y(), part.Width(), part.Height())
            .toImage()
            .scaled(part.Width(), part.Height())
            .convertToFormat(QImage::Format_RGB32);
    if (image.isNull())
        return {};
    ScreenCopy copy{.bits = {}, .size = {image.width(), image.height()}};
    const std::size_t lineBytes = static_cast<std::size_t>(image.width()) * 4;
    copy.bits.resize(lineBytes * static_cast<std::size_t>(image.height()));
    for (int y = 0; y < image.height(); ++y)
        std::memcpy(copy.bits.data() + lineBytes * static_cast<std::size_t>(image.height() - 1 - y),
                    image.constScanLine(y), lineBytes);
    return copy;
}

// --- Colours and theme

Colour QtSystemColours::Of(SystemColour name) const {
    const QPalette palette = QGuiApplication::palette();
    const auto active = [&](QPalette::ColorRole role) {
        return FromQt(palette.color(QPalette::Active, role));
    };
    switch (name) {
    case SystemColour::ButtonFace:
    case SystemColour::Menu:
        return active(QPalette::Window);
    case SystemColour::ButtonShadow:
        return active(QPalette::Dark);
    case SystemColour::Highlight3D:
        return active(QPalette::Light);
    case SystemColour::DarkShadow3D:
        return active(QPalette::Shadow);
    case SystemColour::Light3D:
        return active(QPalette::Midlight);
    case SystemColour::Highlight:
        return active(QPalette::Highlight);
    case SystemColour::HighlightText:
        return active(QPalette::HighlightedText);
    case SystemColour::Window:
        return active(QPalette::Base);
    case SystemColour::WindowText:
        return active(QPalette::WindowText);
    case SystemColour::GrayText:
        return FromQt(palette.color(QPalette::Disabled, QPalette::WindowText));
    }
    return {};
}

int QtSystemColours::BitsPerPixel() const {
    return QGuiApplication::primaryScreen()->depth();
}

bool QtTheme::DrawToolbarPart(Surface& surface, int part, int state, const Rect& area) const {
    auto* const target = dynamic_cast<QtSurface*>(&surface);
    if (target == nullptr)
        return false;
    enum Part { kButton = 1, kSplitMain = 3, kSplitArrow = 4, kSeparator = 5, kUprightSeparator = 6 };
    enum State { kNormal = 1, kHot = 2, kPressed = 3, kDisabled = 4, kChecked = 5, kHotChecked = 6 };
    const QRect rect(area.left, area.top, area.Width(), area.Height());
    QStyle& style = *QApplication::style();
    if (part == kSeparator || part == kUprightSeparator) {
        QStyleOption option;
        option.rect = rect;
        option.state = QStyle::State_Enabled;
        option.state.setFlag(QStyle::State_Horizontal, part == kSeparator);
        style.drawPrimitive(QStyle::PE_IndicatorToolBarSeparator, &option, &target->Painter());
        return true;
    }
    if (state == kNormal || state == kDisabled)
        return true; // a tool button that nobody touches has no ground of its own
    QStyleOptionToolButton option;
    option.rect = rect;
    option.palette = QGuiApplication::palette();
    option.state = QStyle::State_Enabled | QStyle::State_AutoRaise;
    option.state.setFlag(QStyle::State_MouseOver, state == kHot || state == kPressed || state == kHotChecked);
    option.state.setFlag(QStyle::State_Sunken, state == kPressed);
    option.state.setFlag(QStyle::State_On, state == kChecked || state == kHotChecked);
    option.state.setFlag(QStyle::State_Raised, state == kHot);
    style.drawPrimitive(QStyle::PE_PanelButtonTool, &option, &target->Painter());
    return true;
}

} // namespace quillshift
