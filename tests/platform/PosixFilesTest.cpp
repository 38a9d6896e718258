#include "PosixFilesFixture.h"

#include "harness/Calls.h"

#include <fcntl.h>
#include <gmock/gmock.h>
#include <sys/file.h>
#include <sys/mman.h>
#include <sys/mount.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/xattr.h>
#include <unistd.h>

namespace quillshift {
namespace {

using testing::HasSubstr;
using testing::IsEmpty;
using testing::UnorderedElementsAre;

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
    const std::tuple<std::string, int, const char*> cases[] = {
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
    for (const auto& [path, number, description] : cases) {
        EXPECT_EQ(Read(path), number) << path;
        EXPECT_THAT(description_, HasSubstr(description)) << path;
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

// What stands at the target is compared, and what was put there meanwhile is left alone.
TEST_F(PosixFilesTest, OnlyWhatIsExpectedIsReplaced) {
    const std::string large = std::string(600'000, 'o') + "1";
    const std::string other = std::string(600'000, 'o') + "2";
    const std::string path = Make("letter", large);
    fs::create_hard_link(Make("linked", large), folder_ / "other");
    using What = Expected::What;
    const std::tuple<std::string, Expected, bool> cases[] = {{path, {What::Bytes, other}, false},
                                                             {path, {What::Bytes, "1"}, false},
                                                             {path, {What::Nothing, {}}, false},
                                                             {folder_ / "absent", {What::Bytes, ""}, false},
                                                             {folder_ / "linked", {What::Bytes, "o"}, false},
                                                             {folder_ / "linked", {What::Bytes, large}, true},
                                                             {path, {What::Bytes, large}, true},
                                                             {folder_ / "new", {What::Nothing, {}}, true}};
    for (const auto& [target, expected, replaced] : cases) {
        const std::string before = Contents(target);
        const Written written = files_.Replace(FromUtf8(target), "new", expected);
        EXPECT_FALSE(written.failure);
        EXPECT_EQ(written.unexpected, !replaced) << target;
        EXPECT_TRUE(Contents(target) == (replaced ? "new" : before)) << target;
    }
    EXPECT_THAT(Names(folder_), UnorderedElementsAre("letter", "linked", "other", "new"));
}

TEST_F(PosixFilesTest, TheMarkTellsOtherContentsFromThoseReadOrWritten) {
    const std::string file = Make("a.txt");
    fs::create_hard_link(Make("linked.txt"), folder_ / "other name"); // written in place
    fs::create_symlink("a.txt", folder_ / "link");
    for (const char* name : {"a.txt", "linked.txt", "link"}) {
        const std::u16string path = FromUtf8((folder_ / name).string());
        EXPECT_EQ(files_.Read(path).mark, files_.MarkOf(path)) << name;
        const auto written = files_.Replace(path, "ours", {}).mark;
        ASSERT_TRUE(written) << name;
        EXPECT_EQ(written, files_.MarkOf(path)) << name;
        fs::permissions(folder_ / name, fs::perms::owner_all);
        Contents(folder_ / name);
        EXPECT_EQ(written, files_.MarkOf(path)) << name;
        fs::last_write_time(folder_ / name,
                            fs::last_write_time(folder_ / name) + std::chrono::nanoseconds(1));
        EXPECT_NE(written, files_.MarkOf(path)) << name;
    }
    fs::copy_file(file, folder_ / "copy");
    fs::last_write_time(folder_ / "copy", fs::last_write_time(file));
    const auto before = files_.MarkOf(FromUtf8(file));
    fs::rename(folder_ / "copy", file);
    EXPECT_NE(before, files_.MarkOf(FromUtf8(file)));
    EXPECT_FALSE(files_.MarkOf(FromUtf8(folder_.string())));
}

// In a folder of his own another user swaps the names, in the moment before each call that a save makes.
TEST_F(PosixFilesTest, ANameThatIsSwappedBehindTheSaveIsReported) {
    const std::u16string path = FromUtf8((folder_ / "a.txt").string());
    enum { Saved, Unexpected, Failed, FailedBehind };
    const auto save = [&] {
        const Written written = files_.Replace(path, "new", {Expected::What::Bytes, "old"});
        return written.replaced     ? FailedBehind
               : written.failure    ? Failed
               : written.unexpected ? Unexpected
                                    : Saved;
    };
    std::vector<int> told;
    Ended ended{.calls = 1};
    for (int call = 0; call < ended.calls; ++call) {
        Make("a.txt");
        Make("theirs", "another");
        const auto swap = [&] { fs::rename(folder_ / "theirs", folder_ / "a.txt"); };
        ended = RunWithFault([] {}, save, {.kind = Fault::Kind::Act, .at = call, .act = swap});
        told.push_back(ended.code);
    }
    EXPECT_EQ(told.front(), Unexpected);
    EXPECT_EQ(std::count(told.begin(), told.end(), FailedBehind), 1);
    EXPECT_EQ(std::count(told.begin(), told.end(), Failed), 0);
    EXPECT_EQ(told.back(), Saved) << "by then it was saved";
}

TEST_F(PosixFilesTest, WhatCannotBeLookedAtIsNotTakenForNothing) {
    fs::create_directory(folder_ / "closed");
    const std::u16string behind = FromUtf8((folder_ / "closed/a.txt").string());
    fs::permissions(folder_ / "closed", fs::perms::none);
    EXPECT_EQ(AsSomebody([&] { return files_.Read(behind).isUnknown ? 0 : 1; }), 0);
    EXPECT_FALSE(files_.Read(behind).isUnknown) << "nothing is there";
}

// Each reads the file, adds a letter and saves it if it is still the same.
TEST_F(PosixFilesTest, CopiesThatSaveOneFileAtOnceLoseNothing) {
    constexpr int kEach = 25;
    for (const bool linked : {false, true}) {
        const std::string path = Make(linked ? "linked" : "letter", std::string(5000, 'o'));
        if (linked)
            fs::create_hard_link(path, folder_ / "other");
        const auto addLetters = [&] {
            for (int added = 0; added < kEach;) {
                const FileContents found = files_.Read(FromUtf8(path));
                const Written written =
                    files_.Replace(FromUtf8(path), found.bytes + "x", {Expected::What::Bytes, found.bytes});
                if (written.failure)
                    return 1;
                added += written.unexpected ? 0 : 1;
            }
            return 0;
        };
        const pid_t other = InProcess(addLetters);
        EXPECT_EQ(addLetters(), 0);
        EXPECT_EQ(ExitOf(other), 0);
        EXPECT_EQ(Contents(path), std::string(5000, 'o') + std::string(std::size_t{2} * kEach, 'x'))
            << linked;
    }
    EXPECT_THAT(SafetyCopies(), IsEmpty());
    const auto makeNew = [&] { // each file is made by one of them alone
        int made = 0;
        for (int number = 0; number < kEach; ++number)
            made += !files_
                         .Replace(FromUtf8((folder_ / std::to_string(number)).native()), "x",
                                  {Expected::What::Nothing, {}})
                         .unexpected;
        return made;
    };
    const pid_t maker = InProcess(makeNew);
    EXPECT_EQ(makeNew() + ExitOf(maker), kEach);
    const std::string busy = Make("busy");
    const OpenFile holder(open(busy.c_str(), O_RDWR));
    flock(holder.Fd(), LOCK_EX);
    EXPECT_EQ(Write(busy, "new"), 75);
    EXPECT_THAT(description_, HasSubstr("занят"));
}

TEST_F(PosixFilesTest, TellsAFilesFactsAlsoOfALargeOneAndNoneOfAMissingOne) {
    const std::string path = Make(".large", "");
    fs::resize_file(path, std::uintmax_t{5} << 30U);
    ASSERT_EQ(chmod(path.c_str(), 0444), 0);
    const timespec times[2] = {{.tv_sec = 1000000000, .tv_nsec = 0}, {.tv_sec = 1, .tv_nsec = 0}};
    ASSERT_EQ(utimensat(AT_FDCWD, path.c_str(), times, 0), 0);
    const std::int64_t now = std::time(nullptr);
    const auto facts = files_.Facts(FromUtf8(path));
    ASSERT_TRUE(facts);
    EXPECT_EQ(facts->size, std::uint64_t{5} << 30U);
    EXPECT_EQ(facts->accessed, 1000000000);
    EXPECT_EQ(facts->modified, 1);
    EXPECT_TRUE(facts->hidden);
    if (facts->created) {
        EXPECT_NEAR(double(*facts->created), double(now), 60);
    }
    EXPECT_EQ(AsSomebody([&] {
                  chmod(path.c_str(), 0444);
                  return files_.Facts(FromUtf8(path))->readOnly ? 0 : 1;
              }),
              0);
    const auto open = files_.Facts(FromUtf8(Make("open")));
    EXPECT_FALSE(open->hidden);
    EXPECT_FALSE(open->readOnly);
    EXPECT_FALSE(files_.Facts(FromUtf8(path + "/none")));
}

} // namespace
} // namespace quillshift
