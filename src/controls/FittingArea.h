#pragma once

#include <QScrollArea>

namespace quillshift {

/// The most that a widget's window may take of the screen that it is on, beside its frame.
QSize RoomOnScreen(const QWidget& widget);

/// Shows the whole of a widget where the screen has the room, and scrolls it where it has not.
class FittingArea final : public QScrollArea {
    Q_OBJECT

public:
    /// `reserved`: what of the screen's height others in the window need.
    explicit FittingArea(QWidget* shown, int reserved = 0);

    QSize sizeHint() const override;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    int reserved_;
};

} // namespace quillshift
