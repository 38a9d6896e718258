#pragma once

#include <QObject>
#include <QTimer>

#include <chrono>

namespace quillshift {

/// Lets the caret of all text fields stop blinking, and stand, once nobody has touched key or button for a
/// while: an idle program then does nothing at all.
class CaretRest final : public QObject {
    Q_OBJECT

public:
    explicit CaretRest(std::chrono::milliseconds after = std::chrono::seconds(10));

private:
    bool eventFilter(QObject* watched, QEvent* event) override;

    int flashTime_; // what the desktop has asked for
    QTimer timer_;
};

} // namespace quillshift
