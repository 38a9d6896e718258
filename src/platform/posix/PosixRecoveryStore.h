#pragma once

#include "platform/RecoveryStore.h"
#include "platform/posix/LeftRecoveryFiles.h"
#include "platform/posix/OwnRecoveryFile.h"

#include <atomic>
#include <condition_variable>
#include <deque>
#include <filesystem>
#include <mutex>
#include <thread>

namespace quillshift {

/// Recovery files in a folder of the user's. A thread of their own does the writing; it begins with the
/// first job, and sleeps when it has none.
class PosixRecoveryStore final : public RecoveryStore {
public:
    using Post = std::function<void(std::function<void()>)>;

    /// No folder: a user without a home; nothing is kept. `post` runs something in a later event of the
    /// program's, and is called from any thread.
    PosixRecoveryStore(const std::filesystem::path& folder, Post post);
    /// Does first what was asked for. Removes nothing by itself.
    ~PosixRecoveryStore() override;

    void Replace(std::function<std::string()> contents) override;
    void Append(std::string bytes) override;
    void Rewrite(std::function<std::optional<std::string>(std::string_view)> shorten) override;
    void SetAside() override;
    void Remove() override;
    void RemoveAll() override;
    void Take(const std::string& name) override;
    bool HasFailed() const override { return hasFailed_; }
    void Finish() override;

    std::vector<LeftFile> FindLeft() override { return left_.Find(); }
    std::optional<FileFailure> PutIntoTrash(const LeftFile& file) override {
        return left_.PutIntoTrash(file);
    }
    std::u16string PutAway(const std::string& name) override { return left_.PutAway(name); }
    void Release() override { left_.Release(); }

private:
    // What a failure before a job means for it.
    enum class Kind { Adds, Replaces, Other };
    struct Job {
        Kind kind;
        std::function<int()> run;
    };

    void Push(Kind kind, std::function<int()> run);
    void Work();
    void NoteFailure();

    bool keeps_;
    OwnRecoveryFile own_; // the thread's alone
    LeftRecoveryFiles left_;
    Post post_;
    std::atomic<bool> hasFailed_ = false;
    std::mutex mutex_; // of what stands below
    std::condition_variable hasWork_;
    std::condition_variable isIdle_;
    std::deque<Job> jobs_; // the first is under way
    bool ends_ = false;
    std::thread thread_;
};

} // namespace quillshift
