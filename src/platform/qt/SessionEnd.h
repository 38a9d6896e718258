#pragma once

#include <QObject>

#include <functional>

namespace quillshift {

/// Hears of the desktop's end. There is one of these.
class SessionEnd final : public QObject {
public:
    struct Notices {
        std::function<void()> save; ///< the end may come, or the display is gone and the process with it
        std::function<void()> end;  ///< the session is over
    };

    explicit SessionEnd(Notices notices);
    ~SessionEnd() override;
    SessionEnd(const SessionEnd&) = delete;
    SessionEnd& operator=(const SessionEnd&) = delete;

private:
    bool eventFilter(QObject* watched, QEvent* event) override;

    Notices notices_;
};

} // namespace quillshift
