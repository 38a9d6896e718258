#pragma once

#include <chrono>
#include <functional>

namespace quillshift {

/// What befalls a process at one of its calls to the system that have to do with files.
struct Fault {
    enum class Kind { None, Failure, FailuresFromThere, Kill, Act };
    Kind kind = Kind::None;
    int at = 0;                  ///< the number of the call, from 0
    int error = 0;               ///< that a failing one answers with
    std::function<void()> act{}; ///< what somebody does in the moment before it
};

struct Ended {
    int calls = 0;   ///< how many there were
    int struck = -1; ///< the system's number of the first that met the fault
    int code = 0;    ///< the exit code; the number of the signal that ended it, negative
    bool killed = false;
    bool held = false; ///< given up after a while
    std::chrono::microseconds took{};
};

/// Runs `prepare` and then `work`, whose answer becomes the exit code, in a process of their own. The calls
/// of `work` are counted, and one of them meets its fault before the system has seen it.
Ended RunWithFault(const std::function<void()>& prepare, const std::function<int()>& work,
                   const Fault& fault);

} // namespace quillshift
