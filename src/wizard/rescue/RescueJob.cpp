#include "wizard/rescue/RescueJob.h"

#include "wizard/files/Findings.h"

#include <sys/resource.h>
#include <unistd.h>
#include <utility>

namespace quillshift::wizard {

namespace {

constexpr int kNice = 10;

/// Of this thread, and those it starts.
void YieldTheProcessor() {
    setpriority(PRIO_PROCESS, static_cast<id_t>(gettid()), kNice);
}

} // namespace

RescueJob::RescueJob(std::function<void(RescueJob&)> work)
    : thread_([this, work = std::move(work)] {
          YieldTheProcessor();
          work(*this);
          const std::lock_guard lock(posting_);
          ended_ = true;
          ending_.notify_all();
      }) {}

void RescueJob::WaitFor(std::chrono::milliseconds longest) {
    std::unique_lock lock(posting_);
    ending_.wait_for(lock, longest, [this] { return HasEnded(); });
}

RescueJob::~RescueJob() {
    Stop();
    thread_.join();
}

void RescueJob::ForEach(std::size_t count, const std::function<void(std::size_t)>& work) {
    total_ = count;
    if (GoesOn())
        InTwoThreads(count, work, [this](std::size_t done) {
            done_ = done;
            return GoesOn();
        });
}

void RescueJob::Post(std::function<void()> news) {
    const std::lock_guard lock(posting_);
    news_.push_back(std::move(news));
}

std::vector<std::function<void()>> RescueJob::Take() {
    const std::lock_guard lock(posting_);
    return std::exchange(news_, {});
}

} // namespace quillshift::wizard
