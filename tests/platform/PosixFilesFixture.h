#pragma once

#include "platform/posix/PosixFiles.h"

#include "base/Utf8.h"
#include "harness/TemporaryFolder.h"
#include "platform/posix/FileBytes.h"
#include "support/InProcess.h"

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

namespace quillshift {

namespace fs = std::filesystem;

constexpr uid_t kSomebody = 65534;

/// Runs `act` as an unprivileged user; gives what it returns.
inline int AsSomebody(const std::function<int()>& act) {
    return ExitOf(InProcess([&] { return BecomeSomebody() ? act() : 201; }));
}

/// Files in a folder of their own, and the program's own way to them.
class PosixFilesTest : public testing::Test {
protected:
    PosixFilesTest() {
        SurviveFailedWrites();
        fs::create_directory(folder_);
        fs::permissions(root_.Path(), fs::perms::all);
        fs::permissions(folder_, fs::perms::all);
    }

    std::string Make(const std::string& name, const std::string& bytes = "old") const {
        Put(folder_ / name, bytes);
        return folder_ / name;
    }
    std::vector<std::string> Names(const fs::path& folder) const {
        std::vector<std::string> names;
        for (const auto& entry : fs::directory_iterator(folder))
            names.push_back(entry.path().filename());
        return names;
    }
    std::vector<std::string> SafetyCopies() const {
        return fs::exists(root_ / "safe") ? Names(root_ / "safe") : std::vector<std::string>();
    }
    static struct stat Info(const std::string& path) {
        struct stat info {};
        EXPECT_EQ(stat(path.c_str(), &info), 0) << path;
        return info;
    }
    // The failure's number, 0 for none.
    int Write(const std::string& path, const std::string& bytes) {
        const auto failure = files_.Write(FromUtf8(path), bytes);
        description_ = failure ? ToUtf8(failure->description) : "";
        return failure ? failure->number : 0;
    }
    Preparation Prepare(const std::string& place, const std::string& bytes, const std::string& document) {
        return files_.PrepareBackup(FromUtf8(place), bytes, FromUtf8(document));
    }
    std::optional<FileFailure> Throw(const std::string& path, const std::string& bytes) {
        return files_.CopyToTrash(FromUtf8(path), bytes);
    }
    int Read(const std::string& path) {
        const FileContents contents = files_.Read(FromUtf8(path));
        description_ = contents.failure ? ToUtf8(contents.failure->description) : "";
        return contents.failure ? contents.failure->number : 0;
    }

    TemporaryFolder root_;
    fs::path folder_ = root_ / "письма";
    PosixFiles files_{root_ / "safe"};
    std::string description_;
};

} // namespace quillshift
