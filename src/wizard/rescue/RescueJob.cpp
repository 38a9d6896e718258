#include "wizard/rescue/RescueJob.h"

#include "wizard/files/Findings.h"

#include <utility>

namespace quillshift::wizard {

RescueJob::RescueJob(std::function<void(RescueJob&)> work)
    : thread_([this, work = std::move(work)] {
          work(*this);
          ended_ = true;
      }) {}

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
