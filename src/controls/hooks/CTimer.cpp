#include "controls/hooks/CTimer.h"

namespace quillshift {

void CTimer::SetInterval(int milliseconds) {
    if (milliseconds < 1) {
        Stop();
    } else if (milliseconds != interval_) {
        Stop();
        identifier_ = table_.Create(*this, milliseconds);
        interval_ = milliseconds;
    }
}

void CTimer::PulseTimer() const {
    const auto handler = ThatTime; // outlives a handler that ends the timer
    if (handler)
        handler();
}

void CTimer::Stop() {
    if (identifier_ != 0)
        table_.Delete(identifier_);
    identifier_ = 0;
    interval_ = 0;
}

} // namespace quillshift
