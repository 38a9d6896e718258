#include "controls/LinkAccess.h"

#include "controls/HyperLink.h"
#include "platform/qt/QtText.h"

#include <QAccessibleWidget>

namespace quillshift {
namespace {

class LinkInterface final : public QAccessibleWidget {
public:
    explicit LinkInterface(HyperLink& link) : QAccessibleWidget(&link, QAccessible::Link) {}

    QString text(QAccessible::Text which) const override {
        switch (which) {
        case QAccessible::Name:
            return ToQString(Link().Caption());
        case QAccessible::Value:
            return ToQString(Link().Address());
        default:
            return QAccessibleWidget::text(which);
        }
    }
    // The label within is the link's own matter.
    int childCount() const override { return 0; }
    QAccessibleInterface* child(int /*index*/) const override { return nullptr; }
    int indexOfChild(const QAccessibleInterface* /*child*/) const override { return -1; }

    QStringList actionNames() const override { return {pressAction(), setFocusAction()}; }
    void doAction(const QString& name) override {
        if (name == pressAction())
            Link().Click();
        else
            QAccessibleWidget::doAction(name);
    }

private:
    HyperLink& Link() const { return *static_cast<HyperLink*>(widget()); }
};

QAccessibleInterface* Make(const QString& /*className*/, QObject* object) {
    auto* const link = qobject_cast<HyperLink*>(object);
    return link != nullptr ? new LinkInterface(*link) : nullptr;
}

} // namespace

void AnnounceLinks() {
    QAccessible::installFactory(Make); // a second time does nothing
}

} // namespace quillshift
