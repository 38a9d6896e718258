#pragma once

#include <QTabBar>

namespace quillshift {

class QtTabStrip;

/// One row of tabs. It hands all that a person does on to its strip, which decides, and shows what is
/// selected there.
class QtTabRow final : public QTabBar {
    Q_OBJECT

public:
    explicit QtTabRow(QtTabStrip& strip);

    int First() const { return first_; }
    void SetFirst(int position) { first_ = position; }
    QSize SizeOf(int index) const { return tabSizeHint(index); }

protected:
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* /*event*/) override {}
    void mouseMoveEvent(QMouseEvent* /*event*/) override {}
    void wheelEvent(QWheelEvent* event) override;
    /// Enter, the arrows and their neighbours end here; every other key is the dialog's.
    void keyPressEvent(QKeyEvent* event) override;
    void initStyleOption(QStyleOptionTab* option, int index) const override;
    QSize tabSizeHint(int index) const override;
    void paintEvent(QPaintEvent* event) override;

private:
    void DrawByOwner();
    void DrawButtons();
    void DrawOver();

    QtTabStrip& strip_;
    int first_ = 0; ///< the position of its first tab in the strip
};

} // namespace quillshift
