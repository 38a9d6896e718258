#include "controls/ProgressBarAccess.h"

#include "controls/ProgressBarWidget.h"

#include <QAccessibleWidget>

namespace quillshift {
namespace {

class BarInterface final : public QAccessibleWidget, public QAccessibleValueInterface {
public:
    explicit BarInterface(ProgressBarWidget& bar) : QAccessibleWidget(&bar, QAccessible::ProgressBar) {}

    void* interface_cast(QAccessible::InterfaceType type) override {
        return type == QAccessible::ValueInterface ? static_cast<QAccessibleValueInterface*>(this)
                                                   : QAccessibleWidget::interface_cast(type);
    }
    QVariant currentValue() const override { return Bar().Value; }
    QVariant minimumValue() const override { return Bar().Min; }
    QVariant maximumValue() const override { return Bar().Max; }
    QVariant minimumStepSize() const override { return 1; }
    void setCurrentValue(const QVariant& /*value*/) override {} // it only shows

private:
    const qsProgressBar& Bar() const { return static_cast<ProgressBarWidget*>(widget())->Bar(); }
};

QAccessibleInterface* Make(const QString& /*className*/, QObject* object) {
    auto* const bar = dynamic_cast<ProgressBarWidget*>(object);
    return bar != nullptr ? new BarInterface(*bar) : nullptr;
}

} // namespace

void AnnounceProgressBars() {
    QAccessible::installFactory(Make); // a second time does nothing
}

} // namespace quillshift
