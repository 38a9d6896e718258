#pragma once

#include <chrono>
#include <functional>
#include <memory>

namespace quillshift {

class Timer {
public:
    virtual ~Timer() = default;

    /// Ticks after each interval (1 ms and up) until stopped. Starting anew replaces the earlier start.
    virtual void StartInterval(std::chrono::milliseconds interval) = 0;
    /// Ticks once, behind the present event at the earliest, and is stopped by then.
    virtual void StartOnce(std::chrono::milliseconds delay = std::chrono::milliseconds(1)) = 0;
    virtual void Stop() = 0;
    virtual bool IsRunning() const = 0;
};

class Timers {
public:
    virtual ~Timers() = default;

    virtual std::unique_ptr<Timer> Make(std::function<void()> tick) = 0;
};

} // namespace quillshift
