#include "platform/qt/QtWindowMessages.h"

#include <QApplication>
#include <QPointer>
#include <QResizeEvent>
#include <QScreen>

#include <string>
#include <utility>

namespace quillshift {
namespace {

bool IsSettingChange(const QEvent& event) {
    switch (event.type()) {
    case QEvent::ApplicationPaletteChange:
    case QEvent::ApplicationFontChange:
    case QEvent::StyleChange:
    case QEvent::ThemeChange:
    case QEvent::ScreenChangeInternal:
        return true;
    default:
        return false;
    }
}

int MessageOf(const QWidget& widget, const QEvent& event) {
    if (event.type() == QEvent::Paint)
        return message::kPaint;
    if (event.type() == QEvent::Resize)
        return message::kSize;
    return widget.isWindow() && IsSettingChange(event) ? message::kSettingChange : 0;
}

MessageValue PackedSize(QSize size) {
    constexpr int kLowBits = 0xFFFF;
    return (static_cast<MessageValue>(size.height() & kLowBits) << 16U) | (size.width() & kLowBits);
}

} // namespace

/// A widget with what hangs on it. It answers messages in the way of the widget itself: by the event that
/// brought them.
class QtWindowMessages::Window final : public WindowHandler {
public:
    explicit Window(QWidget& shown) : widget(&shown) {}

    void Deliver(WindowId window, int message, MessageValue wParam, MessageValue lParam,
                 QEvent* event = nullptr) {
        const Pending outer = std::exchange(pending_, {message, event});
        handler->HandleMessage(window, message, wParam, lParam);
        pending_ = outer;
    }
    MessageValue HandleMessage(WindowId, int message, MessageValue, MessageValue) override {
        if (widget && pending_.event && message == pending_.message)
            static_cast<QObject*>(widget)->event(pending_.event);
        return 0;
    }

    QPointer<QWidget> widget;
    WindowHandler* handler = this;
    std::map<std::string, MessageValue, std::less<>> properties;

private:
    struct Pending {
        int message = 0;
        QEvent* event = nullptr;
    };
    Pending pending_;
};

QtWindowMessages::QtWindowMessages() : active_(QGuiApplication::applicationState() == Qt::ApplicationActive) {
    connect(qApp, &QGuiApplication::applicationStateChanged, this, &QtWindowMessages::OnApplicationState);
    WatchScreens();
}

WindowId QtWindowMessages::Add(QWidget& widget) {
    const auto [place, added] = ids_.try_emplace(&widget, lastId_ + 1);
    const WindowId window = place->second;
    if (!added)
        return window;
    lastId_ = window;
    windows_.emplace(window, std::make_shared<Window>(widget));
    widget.installEventFilter(this);
    connect(&widget, &QObject::destroyed, this,
            [this, window](const QObject* gone) { OnDestroyed(window, gone); });
    return window;
}

QWidget* QtWindowMessages::Widget(WindowId window) const {
    const auto found = Find(window);
    return found ? found->widget.data() : nullptr;
}

MessageValue QtWindowMessages::Property(WindowId window, std::string_view name) const {
    const auto found = Find(window);
    if (!found)
        return 0;
    const auto value = found->properties.find(name);
    return value == found->properties.end() ? 0 : value->second;
}

bool QtWindowMessages::SetProperty(WindowId window, std::string_view name, MessageValue value) {
    const auto found = Find(window);
    if (!found)
        return false;
    if (value == 0)
        found->properties.erase(std::string(name));
    else
        found->properties.insert_or_assign(std::string(name), value);
    return true;
}

WindowHandler* QtWindowMessages::SetHandler(WindowId window, WindowHandler& handler) {
    const auto found = Find(window);
    return found ? std::exchange(found->handler, &handler) : nullptr;
}

bool QtWindowMessages::eventFilter(QObject* watched, QEvent* event) {
    const auto id = ids_.find(watched);
    const auto window = id == ids_.end() ? nullptr : Find(id->second);
    if (!window || !window->widget || window->handler == window.get())
        return false;
    const int message = MessageOf(*window->widget, *event);
    if (message == 0)
        return false;
    const WindowId number = id->second; // `window` is held: a client may destroy the widget
    if (message == message::kPaint)
        window->Deliver(number, message::kEraseBackground, 0, 0);
    const MessageValue size =
        message == message::kSize ? PackedSize(static_cast<QResizeEvent*>(event)->size()) : 0;
    window->Deliver(number, message, 0, size, event);
    return true;
}

std::shared_ptr<QtWindowMessages::Window> QtWindowMessages::Find(WindowId window) const {
    const auto found = windows_.find(window);
    return found == windows_.end() ? nullptr : found->second;
}

void QtWindowMessages::SendToTopLevels(int message, MessageValue wParam) {
    const auto windows = windows_; // a client may add and destroy windows
    for (const auto& [id, window] : windows)
        if (window->widget && window->widget->isWindow())
            window->Deliver(id, message, wParam, 0);
}

void QtWindowMessages::WatchScreens() {
    const auto changed = [this] { SendToTopLevels(message::kSettingChange, 0); };
    const auto watch = [this, changed](const QScreen* screen) {
        connect(screen, &QScreen::availableGeometryChanged, this, changed);
    };
    for (const QScreen* screen : QGuiApplication::screens())
        watch(screen);
    connect(qApp, &QGuiApplication::screenAdded, this, watch);
    connect(qApp, &QGuiApplication::screenAdded, this, changed);
    connect(qApp, &QGuiApplication::screenRemoved, this, changed);
    connect(qApp, &QGuiApplication::primaryScreenChanged, this, changed);
}

void QtWindowMessages::OnApplicationState(Qt::ApplicationState state) {
    const bool active = state == Qt::ApplicationActive;
    if (active == active_)
        return;
    active_ = active;
    SendToTopLevels(message::kActivateApplication, active ? 1 : 0);
}

void QtWindowMessages::OnDestroyed(WindowId window, const QObject* widget) {
    if (const auto found = Find(window))
        found->Deliver(window, message::kDestroy, 0, 0);
    windows_.erase(window);
    ids_.erase(widget);
}

} // namespace quillshift
