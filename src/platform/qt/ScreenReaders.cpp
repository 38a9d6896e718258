#include "platform/qt/ScreenReaders.h"

#include "platform/qt/QtBarWindow.h"

#include <QAccessible>
#include <QAccessibleObject>
#include <QApplication>
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

QAccessibleInterface* MakeRoot(const QString& /*className*/, QObject* object) {
    return object == qApp ? new ScreenRoot : nullptr;
}

/// How many letters an event would send over the bus.
qsizetype LettersIn(const QAccessibleEvent& event) {
    switch (event.type()) {
    case QAccessible::TextInserted:
        return static_cast<const QAccessibleTextInsertEvent&>(event).textInserted().size();
    case QAccessible::TextRemoved:
        return static_cast<const QAccessibleTextRemoveEvent&>(event).textRemoved().size();
    case QAccessible::TextUpdated: {
        const auto& update = static_cast<const QAccessibleTextUpdateEvent&>(event);
        return update.textRemoved().size() + update.textInserted().size();
    }
    default:
        return 0;
    }
}

// An event holds what has changed, such as the letters that came. That a window went is told. Of more than a
// page of letters only that they have changed: whoever wants to read it asks for the part that he is at.
void PassOn(QAccessibleEvent* event) {
    const bool goes =
        event->type() == QAccessible::ObjectHide || event->type() == QAccessible::ObjectDestroyed;
    if (!goes && !IsOnScreen(event->object()))
        return;
    constexpr qsizetype kPage = 4000;
    QAccessibleEvent changed(event->object(), QAccessible::VisibleDataChanged);
    QAccessible::installUpdateHandler(nullptr);
    QAccessible::updateAccessibility(LettersIn(*event) > kPage ? &changed : event);
    QAccessible::installUpdateHandler(PassOn);
}

} // namespace

void ShowScreenReadersTheScreenAlone() {
    QAccessible::installFactory(MakeRoot);
    QAccessible::installUpdateHandler(PassOn);
}

void ForgetHiddenFromScreenReaders() {
    for (QWidget* const widget : QApplication::allWidgets())
        if (!IsOnScreen(widget))
            QAccessible::deleteAccessibleInterface(
                QAccessible::uniqueId(QAccessible::queryAccessibleInterface(widget)));
}

} // namespace quillshift
