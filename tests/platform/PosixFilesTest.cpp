#include "platform/posix/PosixFiles.h"

#include "base/Utf8.h"
#include "platform/posix/FileBytes.h"
#include "support/InProcess.h"
#include "support/TemporaryFolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <fcntl.h>
#include <sys/mman.h>
#include <sys/mount.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/xattr.h>
#include <unistd.h>

#include <filesystem>
#include <functional>

namespace quillshift {
namespace {

namespace fs = std::filesystem;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::UnorderedElementsAre;

constexpr uid_t kSomebody = 65534;

// Runs `act` as an unprivileged user; gives what it returns.
int AsSomebody(const std::function<int()>& act) {
    return ExitOf(InProcess([&] { return BecomeSomebody() ? act() : 201; }));
}

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

TEST_F(PosixFilesTest, ReadsBackEveryByteAndGrowingAndSystemFiles) {
    std::string bytes;
    for (int i = 0; i < 70000; ++i)
        bytes.push_back(static_cast<char>(i));
    const std::string path = folder_ / "новый.txt";
    EXPECT_EQ(Write(path, bytes), 0) << description_;
    EXPECT_EQ(files_.Read(FromUtf8(path)).bytes, bytes);
    EXPECT_EQ(Write(path, ""), 0);
    EXPECT_EQ(files_.Read(FromUtf8(path)).bytes, "");
    EXPECT_THAT(files_.Read(u"/proc/self/status").bytes, HasSubstr("VmSize")); // says its size is 0
}

TEST_F(PosixFilesTest, SaysWhyItCannotRead) {
    mkfifo((folder_ / "pipe").c_str(), 0666);
    const std::string huge = Make("huge");
    fs::resize_file(huge, PosixFiles::kLargestFile + 1);
    const struct {
        std::string path;
        int number;
        const char* description;
    } cases[] = {
        {folder_ / "absent", 53, "Файл не найден"},
        {folder_ / "absent/letter", 76, "Папка не найдена"},
        {Make("plain") + "/letter", 76, "Папка не найдена"},
        {folder_, 75, "папка"},
        {folder_ / "pipe", 75, "канал"},
        {"/dev/zero", 75, "устройство"},
        {huge, 75, "слишком велик"},
        {"/proc/self/mem", 75, "Ошибка чтения"},
        {"", 75, "имя"},
    };
    for (const auto& one : cases) {
        EXPECT_EQ(Read(one.path), one.number) << one.path;
        EXPECT_THAT(description_, HasSubstr(one.description)) << one.path;
    }
    // Neither the part before a zero nor a mended name is the file that was asked for.
    EXPECT_EQ(files_.Read(FromUtf8(Make("a")) + std::u16string(u"\0b", 2)).failure->number, 53);
    Make("\xEF\xBF\xBD");
    EXPECT_EQ(files_.Read(FromUtf8(folder_.string() + "/") + u"\xD800").failure->number, 53);
}

TEST_F(PosixFilesTest, ASaveKeepsModeOwnerAttributesAndLinks) {
    const std::string path = Make("letter");
    chmod(path.c_str(), 0640);
    const bool root = geteuid() == 0;
    if (root && chown(path.c_str(), kSomebody, 12345) != 0)
        FAIL() << "root may give files away";
    const bool attributes = setxattr(path.c_str(), "user.charset", "koi8-r", 6, 0) == 0;
    fs::create_symlink("letter", folder_ / "link");
    fs::create_symlink(folder_ / "link", folder_ / "chain");
    const ino_t before = Info(path).st_ino;

    ASSERT_EQ(Write(folder_ / "chain", "new"), 0) << description_;
    const struct stat after = Info(path);
    EXPECT_EQ(Contents(path), "new");
    EXPECT_NE(after.st_ino, before); // replaced in one step
    EXPECT_EQ(after.st_mode & 07777U, 0640U);
    if (root) {
        EXPECT_EQ(after.st_uid, kSomebody);
        EXPECT_EQ(after.st_gid, 12345U);
    }
    char value[8] = {};
    EXPECT_EQ(getxattr(path.c_str(), "user.charset", value, sizeof value), attributes ? 6 : -1);
    EXPECT_TRUE(fs::is_symlink(folder_ / "link") && fs::is_symlink(folder_ / "chain"));
    EXPECT_THAT(Names(folder_), UnorderedElementsAre("letter", "link", "chain"));

    fs::create_hard_link(path, folder_ / "other");
    ASSERT_EQ(Write(path, "newer"), 0) << description_;
    EXPECT_EQ(Contents(folder_ / "other"), "newer");
    EXPECT_THAT(SafetyCopies(), IsEmpty());
}

TEST_F(PosixFilesTest, NewFilesFollowTheMaskAndADanglingLinkMakesItsTarget) {
    fs::create_symlink("absent", folder_ / "link");
    const mode_t before = umask(027);
    EXPECT_EQ(Write(folder_ / "link", "new"), 0) << description_;
    umask(before);
    EXPECT_EQ(Contents(folder_ / "absent"), "new");
    EXPECT_EQ(Info(folder_ / "absent").st_mode & 0777U, 0640U);
    EXPECT_TRUE(fs::is_symlink(folder_ / "link"));
    fs::create_symlink("circle", folder_ / "circle");
    EXPECT_EQ(Write(folder_ / "circle", "new"), 75);
    EXPECT_EQ(Write(folder_ / "no" / "letter", "new"), 76);
    EXPECT_EQ(Write(folder_, "new"), 75);
    const std::string longest = folder_ / (std::string(126, 'x') + "й" + std::string(127, 'y'));
    EXPECT_EQ(Write(longest, "new"), 0) << description_;
    EXPECT_EQ(Write(longest + "z", "new"), 75);
    EXPECT_EQ(Names(folder_).size(), 4U);
}

TEST_F(PosixFilesTest, RightsAreRespectedAndAClosedFolderIsWrittenInPlace) {
    if (geteuid() != 0)
        GTEST_SKIP() << "needs root to become somebody else";
    const std::string foreign = Make("foreign");
    chmod(foreign.c_str(), 0644);
    const std::string shared = Make("shared"); // writable, but its owner can't be given to a new file
    chmod(shared.c_str(), 0666);
    EXPECT_EQ(AsSomebody([&] { return Write(foreign, "new"); }), 70);
    EXPECT_EQ(AsSomebody([&] { return Write(shared, "new"); }), 0);
    EXPECT_EQ(Info(shared).st_uid, 0U);
    fs::permissions(folder_, fs::perms(0755));
    EXPECT_EQ(AsSomebody([&] { return Write(shared, "newer"); }), 0);
    EXPECT_EQ(AsSomebody([&] { return Write(folder_ / "fresh", "new"); }), 70);
    chmod(foreign.c_str(), 0600);
    EXPECT_EQ(AsSomebody([&] { return Read(foreign); }), 70);
    EXPECT_EQ(Contents(foreign), "old");
    EXPECT_EQ(Contents(shared), "newer");
    EXPECT_THAT(Names(folder_), UnorderedElementsAre("foreign", "shared"));
    EXPECT_THAT(SafetyCopies(), IsEmpty());
}

// A file that says no while it is overwritten: memory sealed against what the save needs.
TEST_F(PosixFilesTest, WhatGoesWrongWhileOverwritingIsPutBackOrNamed) {
    const int file = memfd_create("letter", MFD_ALLOW_SEALING | MFD_CLOEXEC);
    ASSERT_EQ(write(file, "a long old letter", 17), 17);
    const std::string path = "/proc/self/fd/" + std::to_string(file);
    ASSERT_EQ(fcntl(file, F_ADD_SEALS, F_SEAL_SHRINK), 0);
    EXPECT_EQ(Write(path, "new"), 70);
    EXPECT_EQ(Contents(path), "a long old letter");
    EXPECT_THAT(SafetyCopies(), IsEmpty());

    ASSERT_EQ(fcntl(file, F_ADD_SEALS, F_SEAL_WRITE), 0);
    EXPECT_EQ(Write(path, "some other letter"), 70);
    ASSERT_EQ(SafetyCopies().size(), 1U);
    const std::string copy = root_ / "safe" / SafetyCopies()[0];
    EXPECT_THAT(description_, HasSubstr(copy));
    EXPECT_EQ(Contents(copy), "a long old letter");
    close(file);
}

TEST_F(PosixFilesTest, AFullDiskLeavesTheOldFileAlone) {
    if (mount("none", folder_.c_str(), "tmpfs", 0, "size=256k") != 0)
        GTEST_SKIP() << "can't mount a small disk";
    const std::string old(100'000, 'o');
    const std::string path = Make("letter", old);
    const std::string linked = Make("linked", old);
    fs::create_hard_link(linked, folder_ / "other");
    EXPECT_EQ(Write(path, std::string(300'000, 'n')), 61);
    EXPECT_THAT(description_, HasSubstr("нет места"));
    EXPECT_EQ(Write(linked, std::string(300'000, 'n')), 61);
    EXPECT_EQ(Contents(path), old);
    EXPECT_EQ(Contents(linked), old);
    EXPECT_THAT(Names(folder_), UnorderedElementsAre("letter", "linked", "other"));
    EXPECT_EQ(mount("none", folder_.c_str(), "tmpfs", MS_REMOUNT | MS_RDONLY, nullptr), 0);
    EXPECT_EQ(Write(path, "new"), 70);
    umount(folder_.c_str());
    EXPECT_THAT(SafetyCopies(), IsEmpty());
}

TEST_F(PosixFilesTest, ALimitOnTheSizeOfFilesIsAFailureNotTheEnd) {
    const std::string path = Make("letter");
    const std::string linked = Make("linked");
    fs::create_hard_link(linked, folder_ / "other");
    const auto limited = [&](const std::string& target) {
        return ExitOf(InProcess([&] {
            const rlimit limit{1000, 1000};
            setrlimit(RLIMIT_FSIZE, &limit);
            return Write(target, std::string(2000, 'n'));
        }));
    };
    EXPECT_EQ(limited(path), 61);
    EXPECT_EQ(limited(linked), 61);
    EXPECT_EQ(Contents(path) + Contents(linked), "oldold");
    EXPECT_THAT(Names(folder_), UnorderedElementsAre("letter", "linked", "other"));
}

TEST_F(PosixFilesTest, PipesAndDevicesAreWrittenStraightAndNeverWaitedForForEver) {
    const std::string pipe = folder_ / "pipe";
    ASSERT_EQ(mkfifo(pipe.c_str(), 0666), 0);
    EXPECT_EQ(Write(pipe, "new"), 75);
    EXPECT_THAT(description_, HasSubstr("никто не читает"));
    const int reader = open(pipe.c_str(), O_RDONLY | O_NONBLOCK);
    EXPECT_EQ(Write(pipe, "new"), 0) << description_;
    char got[8] = {};
    EXPECT_EQ(read(reader, got, sizeof got), 3);
    EXPECT_EQ(Write(pipe, std::string(1'000'000, 'n')), 75); // nobody takes it out
    EXPECT_THAT(description_, HasSubstr("не принимает"));
    close(reader);
    EXPECT_EQ(Write("/dev/full", "new"), 61);
    EXPECT_EQ(Write("/dev/null", "new"), 0);
    EXPECT_THAT(Names(folder_), UnorderedElementsAre("pipe"));
}

} // namespace
} // namespace quillshift
