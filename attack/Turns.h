#pragma once

#include <atomic>
#include <chrono>
#include <string>
#include <sys/types.h>
#include <thread>
#include <vector>

namespace quillshift::attack {

/// Measures from outside how long a window's event loop takes to come round: asks the window again and again
/// for a sign of life, as window managers do. The time in which a program that takes part was ready but had
/// no processor is no part of a turn.
class Turns {
public:
    /// `takesPart`: the processes whose waiting for a processor is left out, such as the window's own.
    Turns(const std::string& display, unsigned long window, std::vector<pid_t> takesPart);
    ~Turns();
    Turns(const Turns&) = delete;
    Turns& operator=(const Turns&) = delete;

    /// The longest turn since this was asked last, once the one under way has ended, within half a minute.
    std::chrono::microseconds TakeLongest();

    /// As long as one is there, nothing is asked: a window that is asked without pause is never quiet.
    class Pause {
    public:
        explicit Pause(Turns& turns) : turns_(turns) { turns_.pauses_ = true; }
        ~Pause() { turns_.pauses_ = false; }
        Pause(const Pause&) = delete;
        Pause& operator=(const Pause&) = delete;

    private:
        Turns& turns_;
    };

private:
    void Run(const std::string& display, unsigned long window);
    std::chrono::microseconds WithoutProcessor() const;

    std::vector<pid_t> takesPart_;
    std::atomic<long> longest_ = 0; // microseconds
    std::atomic<long> answers_ = 0;
    std::atomic<bool> ends_ = false;
    std::atomic<bool> pauses_ = false;
    std::thread thread_;
};

} // namespace quillshift::attack
