#include "platform/qt/QtTimers.h"

#include <QTimer>

#include <utility>

namespace quillshift {
namespace {

class QtTimer final : public Timer {
public:
    explicit QtTimer(std::function<void()> tick) {
        timer_.setTimerType(Qt::PreciseTimer);
        QObject::connect(&timer_, &QTimer::timeout, std::move(tick));
    }
    void StartInterval(std::chrono::milliseconds interval) override {
        timer_.setSingleShot(false);
        timer_.start(interval);
    }
    void StartOnce(std::chrono::milliseconds delay) override {
        timer_.setSingleShot(true);
        timer_.start(delay);
    }
    void Stop() override { timer_.stop(); }
    bool IsRunning() const override { return timer_.isActive(); }

private:
    QTimer timer_;
};

} // namespace

std::unique_ptr<Timer> QtTimers::Make(std::function<void()> tick) {
    return std::make_unique<QtTimer>(std::move(tick));
}

} // namespace quillshift
