#include "platform/qt/ScreenReaders.h"

#include "platform/qt/QtBarWindow.h"
#include "platform/qt/TextAccess.h"

#include <QAccessible>
#include <QAccessibleObject>
#include <QApplication>
#include <QFrame>
#include <QWidget>

namespace quillshift {
namespace {

bool IsOnScreen(const QObject* object) {
    const auto* const widget = qobject_cast<const QWidget*>(object);
    return widget == nullptr || widget->window()->isVisible();
}

// A menu that an item has opened is told of through the item, and a shadow is nothing but paint.
bool IsWindowOfItsOwn(const QObject* object) {
    const auto* const widget = qobject_cast<const QWidget*>(object);
    if (widget == nullptr)
        return true;
    const auto* const bar = qobject_cast<const QtBarWindow*>(widget);
    const bool below = bar != nullptr && bar->Listener() != nullptr && bar->Listener()->IsBelowItem();
    return !below && !widget->windowFlags().testFlag(Qt::WindowTransparentForInput);
}

/// The root of what assistive programs walk. The toolkit's own lists hidden windows, too.
class ScreenRoot final : public QAccessibleApplication {
public:
    int childCount() const override { return static_cast<int>(Shown().size()); }
    QAccessibleInterface* child(int index) const override { return Shown().value(index); }
    int indexOfChild(const QAccessibleInterface* child) const override {
        return static_cast<int>(Shown().indexOf(child));
    }

private:
    QList<QAccessibleInterface*> Shown() const {
        QList<QAccessibleInterface*> shown;
        for (int i = 0; i < QAccessibleApplication::childCount(); ++i)
            if (auto* const window = QAccessibleApplication::child(i);
                window && IsOnScreen(window->object()) && IsWindowOfItsOwn(window->object()))
                shown.append(window);
        return shown;
    }
};

/// A widget of no kind of its own. The toolkit takes a window for a part of one, and lines and boxes for
/// windows. What is asked for early gets its parent or its shape later.
class PlainInterface final : public QAccessibleWidget {
public:
    explicit PlainInterface(QWidget& plain) : QAccessibleWidget(&plain) {}

    QAccessible::Role role() const override {
        const auto* const frame = qobject_cast<const QFrame*>(widget());
        if (frame == nullptr)
            return widget()->windowType() == Qt::Window ? QAccessible::Window : QAccessible::Client;
        const QFrame::Shape shape = frame->frameShape();
        return shape == QFrame::HLine || shape == QFrame::VLine ? QAccessible::Separator
                                                                : QAccessible::Grouping;
    }
};

QAccessibleInterface* Make(const QString& className, QObject* object) {
    if (object == qApp)
        return new ScreenRoot;
    const bool isPlain = className == QLatin1String("QWidget") || className == QLatin1String("QFrame");
    return isPlain ? new PlainInterface(*static_cast<QWidget*>(object)) : nullptr;
}

/// How many letters an event would send over the bus.
std::size_t LettersIn(const QAccessibleEvent& event) {
    const auto size = [](const QString& text) { return static_cast<std::size_t>(text.size()); };
    switch (event.type()) {
    case QAccessible::TextInserted:
        return size(static_cast<const QAccessibleTextInsertEvent&>(event).textInserted());
    case QAccessible::TextRemoved:
        return size(static_cast<const QAccessibleTextRemoveEvent&>(event).textRemoved());
    case QAccessible::TextUpdated: {
        const auto& update = static_cast<const QAccessibleTextUpdateEvent&>(event);
        return size(update.textRemoved()) + size(update.textInserted());
    }
    default:
        return 0;
    }
}

// An event holds what has changed, such as the letters that came. That a window went is told.
void PassOn(QAccessibleEvent* event) {
    const bool goes =
        event->type() == QAccessible::ObjectHide || event->type() == QAccessible::ObjectDestroyed;
    if ((!goes && !IsOnScreen(event->object())) || !IsWindowOfItsOwn(event->object()) ||
        IsToldOfDocument(*event))
        return;
    QAccessible::installUpdateHandler(nullptr);
    if (LettersIn(*event) > kMostTold) {
        QAccessibleEvent changed(event->object(), QAccessible::VisibleDataChanged);
        QAccessible::updateAccessibility(&changed);
    } else {
        QAccessible::updateAccessibility(event);
    }
    QAccessible::installUpdateHandler(PassOn);
}

} // namespace

void ShowScreenReadersTheScreenAlone() {
    QAccessible::installFactory(Make);
    QAccessible::installUpdateHandler(PassOn);
}

void ForgetHiddenFromScreenReaders() {
    for (QWidget* const widget : QApplication::allWidgets())
        if (!IsOnScreen(widget))
            QAccessible::deleteAccessibleInterface(
                QAccessible::uniqueId(QAccessible::queryAccessibleInterface(widget)));
}

} // namespace quillshift
