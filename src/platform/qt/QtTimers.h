#pragma once

#include "platform/Timer.h"

namespace quillshift {

class QtTimers final : public Timers {
public:
    std::unique_ptr<Timer> Make(std::function<void()> tick) override;
};

} // namespace quillshift
