#include "platform/qt/BarAccess.h"

#include "platform/qt/QtBarWindow.h"
#include "platform/qt/QtText.h"

#include <QAccessibleWidget>
#include <QApplication>
#include <QMetaObject>

#include <algorithm>
#include <map>
#include <optional>
#include <utility>

namespace quillshift {
namespace {

class BarInterface;

std::vector<BarItem> ItemsBelow(const QtBarWindow* bar, const BarPath& path) {
    return bar != nullptr && bar->Listener() != nullptr ? bar->Listener()->ItemsBelow(path)
                                                        : std::vector<BarItem>();
}

QRect PlaceOf(const BarItem& item) {
    return {item.place.left, item.place.top, item.place.Width(), item.place.Height()};
}

/// An item, or the menu that it opens. Asks the bar at each question, and keeps nothing but its way there.
class ItemInterface final : public QAccessibleInterface, public QAccessibleActionInterface {
public:
    ItemInterface(BarInterface& bar, BarPath path, bool menu)
        : bar_(bar), path_(std::move(path)), menu_(menu) {}

    bool isValid() const override { return Item().has_value(); }
    QObject* object() const override { return nullptr; }
    QWindow* window() const override;
    QAccessibleInterface* childAt(int x, int y) const override;
    QAccessibleInterface* parent() const override;
    QAccessibleInterface* child(int index) const override;
    int childCount() const override;
    int indexOfChild(const QAccessibleInterface* child) const override;
    QString text(QAccessible::Text which) const override;
    void setText(QAccessible::Text /*which*/, const QString& /*text*/) override {}
    QRect rect() const override;
    QAccessible::Role role() const override;
    QAccessible::State state() const override;
    void* interface_cast(QAccessible::InterfaceType type) override {
        return type == QAccessible::ActionInterface && !menu_ ? static_cast<QAccessibleActionInterface*>(this)
                                                              : nullptr;
    }
    QStringList actionNames() const override;
    void doAction(const QString& name) override;
    QStringList keyBindingsForAction(const QString& /*name*/) const override { return {}; }

private:
    std::optional<BarItem> Item() const;

    BarInterface& bar_;
    BarPath path_;
    bool menu_;
};

class BarInterface final : public QAccessibleWidget {
public:
    explicit BarInterface(QtBarWindow& bar) : QAccessibleWidget(&bar) {}
    BarInterface(const BarInterface&) = delete;
    BarInterface& operator=(const BarInterface&) = delete;
    ~BarInterface() override {
        for (const auto& [way, id] : std::exchange(known_, {}))
            QAccessible::deleteAccessibleInterface(id);
    }

    QtBarWindow* Bar() const { return static_cast<QtBarWindow*>(widget()); }
    QAccessible::Role role() const override {
        const BarWindowListener* const listener = Bar()->Listener();
        if (listener == nullptr || listener->Role() == BarRole::ToolBar)
            return QAccessible::ToolBar;
        return listener->Role() == BarRole::MenuBar ? QAccessible::MenuBar : QAccessible::PopupMenu;
    }
    QString text(QAccessible::Text which) const override {
        const QString own = QAccessibleWidget::text(which);
        const BarWindowListener* const listener = Bar()->Listener();
        const bool isUnnamed = which == QAccessible::Name && own.isEmpty() && listener != nullptr;
        return isUnnamed ? ToQString(listener->Title()) : own;
    }
    int childCount() const override { return static_cast<int>(Children().size()); }
    QAccessibleInterface* child(int index) const override { return Children().value(index); }
    int indexOfChild(const QAccessibleInterface* child) const override {
        return static_cast<int>(Children().indexOf(child));
    }
    QAccessibleInterface* childAt(int x, int y) const override {
        for (const BarItem& item : ItemsBelow(Bar(), {}))
            if (PlaceOf(item).contains(x, y))
                return Of({item.key}, false);
        return QAccessibleWidget::childAt(x, y);
    }

    /// The one interface of an item or of its menu.
    QAccessibleInterface* Of(const BarPath& path, bool menu) const {
        QAccessible::Id& id = known_[{path, menu}];
        if (id == 0)
            id = QAccessible::registerAccessibleInterface(
                new ItemInterface(const_cast<BarInterface&>(*this), path, menu));
        return QAccessible::accessibleInterface(id);
    }

private:
    // The controls on the bar stand among its items as they are seen.
    QList<QAccessibleInterface*> Children() const {
        QList<QAccessibleInterface*> all;
        for (const BarItem& item : ItemsBelow(Bar(), {}))
            all.append(Of({item.key}, false));
        for (int i = 0; i < QAccessibleWidget::childCount(); ++i) {
            QAccessibleInterface* const control = QAccessibleWidget::child(i);
            const auto behind = std::ranges::find_if(all, [&](const QAccessibleInterface* item) {
                return !item->rect().isEmpty() && item->rect().left() > control->rect().left();
            });
            all.insert(behind, control);
        }
        return all;
    }

    mutable std::map<std::pair<BarPath, bool>, QAccessible::Id> known_;
};

// --- An item

std::optional<BarItem> ItemInterface::Item() const {
    for (BarItem& item : ItemsBelow(bar_.Bar(), BarPath(path_.begin(), path_.end() - 1)))
        if (item.key == path_.back() && (!menu_ || item.opensMenu))
            return std::move(item);
    return std::nullopt;
}

QWindow* ItemInterface::window() const {
    return bar_.window();
}

QAccessibleInterface* ItemInterface::childAt(int x, int y) const {
    for (int i = 0; i < childCount(); ++i)
        if (QAccessibleInterface* const below = child(i); below != nullptr && below->rect().contains(x, y))
            return below;
    return nullptr;
}

QAccessibleInterface* ItemInterface::parent() const {
    if (menu_)
        return bar_.Of(path_, false);
    if (path_.size() == 1)
        return &bar_;
    return bar_.Of(BarPath(path_.begin(), path_.end() - 1), true);
}

QAccessibleInterface* ItemInterface::child(int index) const {
    if (!menu_)
        return index == 0 && childCount() == 1 ? bar_.Of(path_, true) : nullptr;
    const auto items = ItemsBelow(bar_.Bar(), path_);
    if (index < 0 || index >= static_cast<int>(items.size()))
        return nullptr;
    BarPath below = path_;
    below.push_back(items[static_cast<std::size_t>(index)].key);
    return bar_.Of(below, false);
}

int ItemInterface::childCount() const {
    if (menu_)
        return static_cast<int>(ItemsBelow(bar_.Bar(), path_).size());
    const auto item = Item();
    return item && item->opensMenu ? 1 : 0;
}

int ItemInterface::indexOfChild(const QAccessibleInterface* sought) const {
    for (int i = 0; i < childCount(); ++i)
        if (child(i) == sought)
            return i;
    return -1;
}

QString ItemInterface::text(QAccessible::Text which) const {
    const auto item = Item();
    if (!item)
        return {};
    switch (which) {
    case QAccessible::Name:
        return ToQString(item->name);
    case QAccessible::Description:
        return menu_ ? QString() : ToQString(item->description);
    case QAccessible::Accelerator:
        return menu_ ? QString() : ToQString(item->shortcut);
    default:
        return {};
    }
}

QRect ItemInterface::rect() const {
    if (menu_) {
        QRect whole;
        for (const BarItem& item : ItemsBelow(bar_.Bar(), path_))
            whole |= PlaceOf(item);
        return whole;
    }
    return PlaceOf(Item().value_or(BarItem{}));
}

QAccessible::Role ItemInterface::role() const {
    if (menu_)
        return QAccessible::PopupMenu;
    if (path_.size() > 1 || bar_.role() != QAccessible::ToolBar)
        return QAccessible::MenuItem;
    return childCount() != 0 ? QAccessible::ButtonMenu : QAccessible::Button;
}

QAccessible::State ItemInterface::state() const {
    QAccessible::State state;
    const auto item = Item();
    if (!item) {
        state.invalid = true;
        return state;
    }
    if (menu_) {
        state.invisible = !item->menuOpen;
        return state;
    }
    state.invisible = item->place.IsEmpty();
    state.disabled = !item->enabled;
    state.focusable = state.selectable = item->enabled;
    state.focused = state.selected = item->hot;
    state.checkable = item->checkable;
    state.checked = item->checked;
    state.hasPopup = state.expandable = item->opensMenu;
    state.expanded = item->menuOpen;
    state.collapsed = item->opensMenu && !item->menuOpen;
    return state;
}

// Also of what is greyed, whose shortcut is told with its action.
QStringList ItemInterface::actionNames() const {
    const auto item = Item();
    if (!item)
        return {};
    return {item->opensMenu ? showMenuAction() : pressAction()};
}

// The answer goes out first: what is pressed may show a dialog, which comes back only when it is closed.
void ItemInterface::doAction(const QString& name) {
    if (!actionNames().contains(name))
        return;
    QtBarWindow* const bar = bar_.Bar();
    QMetaObject::invokeMethod(
        bar,
        [bar, path = path_] {
            const QWidget* const modal = QApplication::activeModalWidget();
            const bool blocked = modal != nullptr && modal != bar->window();
            if (bar->Listener() != nullptr && bar->isVisible() && bar->isEnabled() && !blocked)
                bar->Listener()->PressItem(path);
        },
        Qt::QueuedConnection);
}

// --- All bars

QAccessibleInterface* Make(const QString& /*className*/, QObject* object) {
    auto* const bar = qobject_cast<QtBarWindow*>(object);
    return bar != nullptr ? new BarInterface(*bar) : nullptr;
}

} // namespace

void AnnounceBars() {
    QAccessible::installFactory(Make); // a second time does nothing
}

void AnnounceBarItem(QtBarWindow& bar, const BarPath& path) {
    if (!QAccessible::isActive() || !bar.isVisible())
        return;
    if (path.empty()) {
        if (QWidget* const focus = QApplication::focusWidget()) {
            QAccessibleEvent back(focus, QAccessible::Focus);
            QAccessible::updateAccessibility(&back);
        }
        return;
    }
    auto* const told = dynamic_cast<BarInterface*>(QAccessible::queryAccessibleInterface(&bar));
    if (told == nullptr)
        return;
    QAccessibleInterface* const item = told->Of(path, false);
    for (const QAccessible::Event what : {QAccessible::Focus, QAccessible::Selection}) {
        QAccessibleEvent event(item, what);
        QAccessible::updateAccessibility(&event);
    }
}

} // namespace quillshift
