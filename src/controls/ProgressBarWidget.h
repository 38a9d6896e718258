#pragma once

#include "controls/qsProgressBar.h"
#include "platform/qt/QtSurface.h"

#include <QWidget>

namespace quillshift {

/// A place in a window for the progress bar, which paints itself in the desktop's colours and theme.
class ProgressBarWidget final : public QWidget {
public:
    explicit ProgressBarWidget(QWidget* parent = nullptr);

    const qsProgressBar& Bar() const { return bar_; }
    /// Changes properties of the bar, and has it painted anew.
    template <class With>
    void Change(With change) {
        change(bar_);
        Changed();
    }
    QSize sizeHint() const override { return {302, 21}; } // whole segments within its border

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    void Changed();

    qsProgressBar bar_;
    QtTextMeasurer texts_;
    QtMemorySurface memory_{texts_};
};

} // namespace quillshift
