#include "controls/ProgressBarAccess.h"

#include "controls/ProgressBar.h"
#include "controls/ProgressBarWidget.h"

#include <QAccessibleWidget>

namespace quillshift {
namespace {

class BarInterface : public QAccessibleWidget, public QAccessibleValueInterface {
public:
    explicit BarInterface(QWidget& bar) : QAccessibleWidget(&bar, QAccessible::ProgressBar) {}

    void* interface_cast(QAccessible::InterfaceType type) override {
        return type == QAccessible::ValueInterface ? static_cast<QAccessibleValueInterface*>(this)
                                                   : QAccessibleWidget::interface_cast(type);
    }
    QVariant minimumStepSize() const override { return 1; }
    void setCurrentValue(const QVariant& /*value*/) override {} // it only shows
};

class WidgetInterface final : public BarInterface {
public:
    explicit WidgetInterface(ProgressBarWidget& bar) : BarInterface(bar), bar_(bar) {}

    QVariant currentValue() const override { return bar_.Bar().Value; }
    QVariant minimumValue() const override { return bar_.Bar().Min; }
    QVariant maximumValue() const override { return bar_.Bar().Max; }

private:
    const ProgressBarWidget& bar_;
};

class PercentageInterface final : public BarInterface {
public:
    explicit PercentageInterface(ProgressBar& bar) : BarInterface(bar), bar_(bar) {}

    QVariant currentValue() const override { return bar_.Percentage(); }
    QVariant minimumValue() const override { return 0; }
    QVariant maximumValue() const override { return 100; }

private:
    const ProgressBar& bar_;
};

QAccessibleInterface* Make(const QString& /*className*/, QObject* object) {
    if (auto* const bar = dynamic_cast<ProgressBarWidget*>(object))
        return new WidgetInterface(*bar);
    auto* const bar = qobject_cast<ProgressBar*>(object);
    return bar != nullptr ? new PercentageInterface(*bar) : nullptr;
}

} // namespace

void AnnounceProgressBars() {
    QAccessible::installFactory(Make); // a second time does nothing
}

} // namespace quillshift
