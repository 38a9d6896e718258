#include "platform/posix/PosixRecoveryStore.h"

#include <chrono>
#include <system_error>
#include <utility>

namespace quillshift {

PosixRecoveryStore::PosixRecoveryStore(const std::filesystem::path& folder, Post post)
    : keeps_(!folder.empty()), own_(folder), left_(folder), post_(std::move(post)) {}

PosixRecoveryStore::~PosixRecoveryStore() {
    {
        const std::lock_guard lock(mutex_);
        ends_ = true;
    }
    hasWork_.notify_one();
    if (thread_.joinable())
        thread_.join();
}

// A whole text makes up for all that was to be written before it.
void PosixRecoveryStore::Push(Kind kind, std::function<int()> run) {
    if (!keeps_)
        return;
    const std::lock_guard lock(mutex_);
    while (kind == Kind::Replaces && jobs_.size() > 1 && jobs_.back().kind != Kind::Other)
        jobs_.pop_back();
    jobs_.push_back({kind, std::move(run)});
    try {
        if (!thread_.joinable())
            thread_ = std::thread([this] { Work(); });
        hasWork_.notify_one();
    } catch (const std::system_error&) { // no thread to be had now
        jobs_.clear();
        NoteFailure();
    }
}

void PosixRecoveryStore::Work() {
    std::unique_lock lock(mutex_);
    for (;;) {
        hasWork_.wait(lock, [this] { return ends_ || !jobs_.empty(); });
        if (jobs_.empty())
            return;
        const Job& job = jobs_.front(); // stays where it is while others come behind it
        lock.unlock();
        if (job.kind != Kind::Adds || !hasFailed_) {
            const int error = job.run();
            if (error != 0)
                NoteFailure();
            else if (job.kind == Kind::Replaces)
                hasFailed_ = false;
        }
        lock.lock();
        jobs_.pop_front();
        if (jobs_.empty())
            isIdle_.notify_all();
    }
}

void PosixRecoveryStore::NoteFailure() {
    hasFailed_ = true;
    post_([this] {
        if (OnFailure)
            OnFailure();
    });
}

void PosixRecoveryStore::Finish() {
    constexpr std::chrono::seconds kPatience(2);
    std::unique_lock lock(mutex_);
    isIdle_.wait_for(lock, kPatience, [this] { return jobs_.empty(); });
}

void PosixRecoveryStore::Replace(std::function<std::string()> contents) {
    Push(Kind::Replaces, [this, contents = std::move(contents)] { return own_.Replace(contents()); });
}

void PosixRecoveryStore::Append(std::string bytes) {
    Push(Kind::Adds, [this, bytes = std::move(bytes)] { return own_.Append(bytes); });
}

void PosixRecoveryStore::Rewrite(std::function<std::optional<std::string>(std::string_view)> shorten) {
    Push(Kind::Adds, [this, shorten = std::move(shorten)] { return own_.Rewrite(shorten); });
}

void PosixRecoveryStore::SetAside() {
    Push(Kind::Other, [this] { return own_.SetAside(); });
}

void PosixRecoveryStore::Remove() {
    Push(Kind::Other, [this] { return own_.Remove(); });
}

void PosixRecoveryStore::RemoveAll() {
    Push(Kind::Other, [this] { return own_.RemoveAll(); });
}

void PosixRecoveryStore::Take(const std::string& name) {
    Push(Kind::Other, [this, name] { return own_.Take(name); });
}

} // namespace quillshift
