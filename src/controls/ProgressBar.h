#pragma once

#include "base/Colour.h"

#include <QWidget>

#include <string>

namespace quillshift {

/// The bar of the progress dialog. Each change of a property redraws it at once and then runs the pending
/// events, so that anything may happen inside a setter.
class ProgressBar final : public QWidget {
    Q_OBJECT

public:
    explicit ProgressBar(QWidget* parent = nullptr);

    float Value() const { return value_; }
    /// A percentage; an amount out of `TotalValue` while `CalculatePercentage` is on.
    void SetValue(float value);
    bool CalculatePercentage() const { return calculatePercentage_; }
    /// Sets `TotalValue` to 100 if it was 0, or to 0 when switched off.
    void SetCalculatePercentage(bool on);
    double TotalValue() const { return totalValue_; }
    /// Has effect only while `CalculatePercentage` is on; then a value of 0 or less throws Error 0x800403E9.
    void SetTotalValue(double total);
    bool ShowStatus() const { return showStatus_; }
    void SetShowStatus(bool on);
    const std::u16string& Text() const { return text_; }
    void SetText(std::u16string_view text);
    void SetProgressColor(Colour colour);

    /// The text on the bar: `Text` and, if `ShowStatus` is on, the whole percentage.
    std::u16string Label() const;
    double Percentage() const;
    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    void Redraw();

    float value_ = 0;
    bool calculatePercentage_ = false;
    double totalValue_ = 0;
    bool showStatus_ = true;
    std::u16string text_;
    Colour progressColor_ = Rgb(0, 0, 0x80);
};

} // namespace quillshift
