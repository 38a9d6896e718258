#pragma once

#include <atomic>
#include <chrono>
#include <condition_variable>
#include <cstddef>
#include <functional>
#include <mutex>
#include <thread>
#include <vector>

namespace quillshift::wizard {

/// Work in a thread of its own. What it finds out is done by the owner's thread, bit by bit. With this object
/// the work ends: it is asked to stop, and what it has begun is finished. It yields the processor to the
/// window.
class RescueJob {
public:
    explicit RescueJob(std::function<void(RescueJob&)> work);
    ~RescueJob();
    RescueJob(const RescueJob&) = delete;
    RescueJob& operator=(const RescueJob&) = delete;

    // For the work.
    void Post(std::function<void()> news);
    bool GoesOn() const { return !stops_; }
    /// Does something for the numbers below `count`, in two threads, until it is asked to stop.
    void ForEach(std::size_t count, const std::function<void(std::size_t)>& work);

    // For the owner.
    void Stop() { stops_ = true; }
    /// What has been posted since the last time. Ask first whether it has ended.
    std::vector<std::function<void()>> Take();
    bool HasEnded() const { return ended_; }
    /// Waits for the end, so long at most.
    void WaitFor(std::chrono::milliseconds longest);
    std::size_t Done() const { return done_; }
    std::size_t Total() const { return total_; } ///< 0 while it isn't known

private:
    std::mutex posting_;
    std::condition_variable ending_;
    std::vector<std::function<void()>> news_;
    std::atomic<std::size_t> done_ = 0, total_ = 0;
    std::atomic<bool> stops_ = false, ended_ = false;
    std::thread thread_;
};

} // namespace quillshift::wizard
