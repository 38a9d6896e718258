#include "platform/qt/QtBarSystem.h"

#include "platform/Keys.h"
#include "platform/qt/Appearance.h"
#include "platform/qt/QtBarWindow.h"
#include "platform/qt/X11Compositing.h"
#include "platform/qt/X11Display.h"
#include "platform/qt/X11Presses.h"

#include <QApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
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
                                              {Qt::Key_Shift, key::kShift},
                                              {Qt::Key_Control, key::kCtrl},
                                              {Qt::Key_AltGr, key::kCtrl},
                                              {Qt::Key_Meta, key::kWindows},
                                              {Qt::Key_Alt, key::kAlt},
                                              {Qt::Key_CapsLock, key::kCapsLock},
                                              {Qt::Key_NumLock, key::kNumLock},
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

int VirtualKeyOf(int pressed) {
    if ((pressed >= Qt::Key_A && pressed <= Qt::Key_Z) || (pressed >= Qt::Key_0 && pressed <= Qt::Key_9))
        return pressed;
    if (pressed >= Qt::Key_F1 && pressed <= Qt::Key_F24)
        return key::kF1 + pressed - Qt::Key_F1;
    for (const auto& [named, code] : kNamedKeys)
        if (named == pressed)
            return code;
    return pressed >= Qt::Key_Super_L && pressed <= Qt::Key_Direction_R ? key::kWindows : 0;
}

KeyEvent FromQt(const QKeyEvent& event) {
    const Qt::KeyboardModifiers held = event.modifiers();
    return {.key = VirtualKeyOf(event.key()),
            .up = event.type() == QEvent::KeyRelease,
            .repeated = event.isAutoRepeat(),
            .modifiers = (held.testFlag(Qt::ShiftModifier) ? modifier::kShift : 0) |
                         (held.testFlag(Qt::ControlModifier) ? modifier::kCtrl : 0) |
                         (held.testFlag(Qt::AltModifier) ? modifier::kAlt : 0)};
}

bool IsPress(QEvent::Type type) {
    return type == QEvent::MouseButtonPress || type == QEvent::MouseButtonDblClick ||
           type == QEvent::NonClientAreaMouseButtonPress || type == QEvent::NonClientAreaMouseButtonDblClick;
}

bool IsMouse(QEvent::Type type) {
    return IsPress(type) || type == QEvent::MouseMove || type == QEvent::MouseButtonRelease ||
           type == QEvent::Wheel;
}

// What a window manager does with a window, by Alt and the mouse or by the title bar, shows only in the
// window. A dialog that goes by Alt+F4 leaves the end of Alt to the window behind it.
bool Interrupts(const QWidget& widget, QEvent::Type type) {
    if (type == QEvent::WindowDeactivate)
        return widget.windowType() == Qt::Window || widget.windowType() == Qt::Dialog;
    return (type == QEvent::Move || type == QEvent::WindowStateChange || type == QEvent::WindowBlocked) &&
           widget.windowType() == Qt::Window;
}

Rect FromQt(const QRect& rect) {
    return RectAt(rect.x(), rect.y(), rect.width(), rect.height());
}

Colour FromQt(const QColor& colour) {
    return Rgb(static_cast<std::uint8_t>(colour.red()), static_cast<std::uint8_t>(colour.green()),
               static_cast<std::uint8_t>(colour.blue()));
}

// Of menus that opened in the same breath nothing is on the screen yet.
void AddUnseenMenus(QImage& image, const QRect& area) {
    QPainter painter(&image);
    for (const QWidget* const window : QApplication::topLevelWidgets())
        for (QWidget* const menu : window->findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly))
            if (menu->windowType() == Qt::ToolTip && menu->isVisible() && !menu->windowHandle()->isExposed())
                menu->render(&painter, menu->pos() - area.topLeft());
}

} // namespace

QtBarSystem::QtBarSystem(QtWindowMessages& ids) : ids_(ids) {
    qApp->installEventFilter(this);
}

// Menus have no grab, so that other programs get their clicks. Those over none of this program's windows are
// only told of by the X server, to whoever asks.
void QtBarSystem::WatchPresses(bool on) {
    if (_XDisplay* const display = X11Display())
        quillshift::WatchPresses(display, on);
    if (on)
        qApp->installNativeEventFilter(this);
    else
        qApp->removeNativeEventFilter(this);
}

bool QtBarSystem::nativeEventFilter(const QByteArray& /*type*/, void* message, qintptr* /*result*/) {
    _XDisplay* const display = X11Display();
    if (display == nullptr || !IsWatchedPress(display, message))
        return false;
    const bool ours = std::ranges::any_of(WindowsUnderPointer(display),
                                          [](WId window) { return QWidget::find(window) != nullptr; });
    if (!ours && filter_ != nullptr)
        filter_->MouseFilter(true);
    return true;
}

// Input comes to the window first, and only then to its widgets: there it is seen once.
bool QtBarSystem::eventFilter(QObject* watched, QEvent* event) {
    const QEvent::Type type = event->type();
    if (filter_ == nullptr)
        return false;
    if (watched->isWidgetType() && Interrupts(*static_cast<QWidget*>(watched), type))
        filter_->OnInterruption();
    if (!watched->isWindowType())
        return false;
    if (type == QEvent::KeyPress || type == QEvent::KeyRelease)
        return QApplication::activePopupWidget() == nullptr &&
               filter_->KeyboardFilter(FromQt(*static_cast<QKeyEvent*>(event)));
    if (IsMouse(type))
        filter_->MouseFilter(IsPress(type));
    return false;
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
    _XDisplay* const display = X11Display();
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
    QImage image =
        screen->grabWindow(0, part.left - origin.x(), part.top - origin.y(), part.Width(), part.Height())
            .toImage()
            .scaled(part.Width(), part.Height())
            .convertToFormat(QImage::Format_RGB32);
    if (image.isNull())
        return {};
    AddUnseenMenus(image, area);
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

bool QtSystemColours::HighContrast() const {
    return IsHighContrast(QGuiApplication::palette());
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

bool QtTheme::DrawProgressPart(Surface& surface, int part, const Rect& area) const {
    auto* const target = dynamic_cast<QtSurface*>(&surface);
    if (target == nullptr)
        return false;
    const bool isFrame = part == 1 || part == 2;
    QStyleOptionProgressBar option;
    option.rect = QRect(area.left, area.top, area.Width(), area.Height());
    option.palette = QGuiApplication::palette();
    option.state = QStyle::State_Enabled | QStyle::State_Active;
    option.state.setFlag(QStyle::State_Horizontal, part % 2 == 1);
    option.bottomToTop = true; // of an upright one
    option.maximum = 1;
    option.progress = 1;
    QApplication::style()->drawControl(
        isFrame ? QStyle::CE_ProgressBarGroove : QStyle::CE_ProgressBarContents, &option, &target->Painter());
    return true;
}

bool QtTheme::DrawProgressText(Surface& surface, const Rect& area, std::u16string_view text,
                               const FontSpec& font) const {
    surface.DrawText(area, text, font, QtSystemColours().Of(SystemColour::WindowText),
                     {.align = TextLayout::Align::Left, .rotated = false, .mnemonics = false});
    return true;
}

} // namespace quillshift
