#pragma once

#include "wizard/command/Talk.h"

#include <chrono>
#include <cstddef>

namespace quillshift::wizard {

/// A bar on the terminal's standard error once the work takes more than half a second; gone at the end.
class ProgressLine {
public:
    ProgressLine(const Talk& talk, std::size_t total) : talk_(talk), total_(total) {}
    ~ProgressLine();
    ProgressLine(const ProgressLine&) = delete;
    ProgressLine& operator=(const ProgressLine&) = delete;

    void Show(std::size_t done);

private:
    using Clock = std::chrono::steady_clock;
    const Talk& talk_;
    std::size_t total_;
    Clock::time_point next_ = Clock::now() + std::chrono::milliseconds(500);
    bool isShown_ = false;
};

} // namespace quillshift::wizard
