#pragma once

#include "controls/hooks/MTimer.h"

#include <functional>

namespace quillshift {

/// A timer with no window: raises `ThatTime` after each `Interval`. Off when it is made and stopped when it
/// goes. The table outlives it.
class CTimer {
public:
    explicit CTimer(MTimer& table) : table_(table) {}
    ~CTimer() { SetInterval(0); }
    CTimer(const CTimer&) = delete;
    CTimer& operator=(const CTimer&) = delete;

    /// Milliseconds; 0 when off.
    int Interval() const { return interval_; }
    /// Starts anew with a value from 1 that differs from the present one; stops at a value below 1. Throws as
    /// `MTimer::Create` does and is off then.
    void SetInterval(int milliseconds);
    /// Raises `ThatTime`.
    void PulseTimer() const;

    std::function<void()> ThatTime; ///< may change the interval and end the timer itself

private:
    void Stop();

    MTimer& table_;
    int interval_ = 0;
    int identifier_ = 0; ///< 0 while no timer runs
};

} // namespace quillshift
