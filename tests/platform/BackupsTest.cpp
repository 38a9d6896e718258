#include "PosixFilesFixture.h"
#include "harness/TemporaryFolder.h"
#include "platform/posix/PosixRecoveryStore.h"

#include <fcntl.h>
#include <gmock/gmock.h>
#include <sys/mount.h>
#include <sys/resource.h>
#include <sys/stat.h>

namespace quillshift {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::UnorderedElementsAre;

using BackupsTest = PosixFilesTest;

TEST_F(BackupsTest, ABackupIsNoWiderThanItsDocumentAndGoesThroughNoLink) {
    const std::string precious = Make("precious");
    for (const unsigned mode : {0600U, 0644U, 0640U, 0604U}) {
        const std::string path = Make("letter");
        chmod(path.c_str(), mode);
        const std::string place = path + ".bak";
        fs::remove(place);
        fs::create_symlink("precious", place);
        Preparation prepared = Prepare(place, "old", path);
        ASSERT_TRUE(prepared.backup);
        EXPECT_TRUE(files_.IsLink(FromUtf8(place))) << "touched before its turn";
        EXPECT_FALSE(prepared.backup->PutInPlace());
        EXPECT_FALSE(files_.IsLink(FromUtf8(place)));
        EXPECT_EQ(Contents(place), "old");
        EXPECT_EQ(Info(place).st_mode & 0777U, mode);
    }
    EXPECT_EQ(Contents(precious), "old");
    { const Preparation dropped = Prepare(precious, "x", precious + "1"); }
    fs::create_directory(folder_ / "folder.bak");
    Preparation prepared = Prepare(folder_ / "folder.bak", "x", precious);
    EXPECT_EQ(prepared.backup->PutInPlace()->number, 75);
    prepared.backup.reset();
    EXPECT_EQ(Prepare(folder_ / "no" / "x.bak", "x", precious).failure->number, 76);
    if (geteuid() != 0)
        GTEST_SKIP() << "needs root to become somebody else";
    const std::string shared = Make("shared"); // of a group that the backup can't be given to
    chmod(shared.c_str(), 0664);
    EXPECT_EQ(AsSomebody([&] {
                  const Preparation own = Prepare(shared + ".bak", "x", shared);
                  return own.backup->PutInPlace() ? 1 : 0;
              }),
              0);
    EXPECT_EQ(Info(shared + ".bak").st_mode & 0777U, 0600U);
    EXPECT_THAT(Names(folder_), UnorderedElementsAre("precious", "letter", "letter.bak", "folder.bak",
                                                     "shared", "shared.bak"));
}

TEST_F(BackupsTest, ABackupWhosePlaceIsTheDocumentIsNone) {
    const std::string path = Make("a.txt.bak");
    fs::create_symlink("a.txt.bak", folder_ / "a.txt");
    fs::create_symlink(folder_, root_ / "same");
    for (const auto& [place, document, same] :
         {std::tuple<fs::path, fs::path, bool>{path, folder_ / "a.txt", true},
          {root_ / "same" / "a.txt.bak", folder_ / "a.txt", true},
          {root_ / "a.txt.bak", folder_ / "a.txt", false}})
        EXPECT_EQ(Prepare(place, "x", document).isDocument, same) << place;
}

TEST_F(BackupsTest, WhatAKilledSaveLeftGoesWithTheNextButNothingElse) {
    const std::string path = Make("letter");
    const std::string fresh = ".letter.00000001.quillshift"; // perhaps not locked yet
    for (const char* name : {".letter.0123abcd.quillshift", ".other.0123abcd.quillshift", ".letter.0123abcd",
                             ".letter.bak.0123abcd.quillshift"})
        Make(name);
    const Preparation live = Prepare(path, "of another copy", folder_ / "document");
    for (const std::string& name : Names(folder_)) {
        const std::array<timespec, 2> old{timespec{1'000'000'000, 0}, {1'000'000'000, 0}};
        utimensat(AT_FDCWD, (folder_ / name).c_str(), old.data(), 0);
    }
    Make(fresh);
    EXPECT_EQ(Write(path, "new"), 0);
    EXPECT_FALSE(live.backup->PutInPlace());
    EXPECT_EQ(Contents(path), "of another copy");
    EXPECT_THAT(Names(folder_),
                UnorderedElementsAre("letter", fresh, ".letter.0123abcd", ".other.0123abcd.quillshift",
                                     ".letter.bak.0123abcd.quillshift"));
}

TEST_F(BackupsTest, TheTrashHoldsACopyAndWhereItWas) {
    setenv("XDG_DATA_HOME", (root_ / "data").c_str(), 1);
    const std::string path = Make("50% й.txt");
    chmod(path.c_str(), 0640);
    fs::create_symlink(path, folder_ / "link");
    for (const char* bytes : {"one", "two"})
        EXPECT_FALSE(Throw(folder_ / "link", bytes));
    const fs::path trash = root_ / "data" / "Trash";
    EXPECT_EQ(Contents(trash / "files" / "50% й.txt"), "one");
    EXPECT_EQ(Contents(trash / "files" / "50% й.txt.2"), "two");
    EXPECT_EQ(Info(trash / "files" / "50% й.txt").st_mode & 0777U, 0640U);
    EXPECT_EQ(Info(trash).st_mode & 0777U, 0700U);
    EXPECT_THAT(Contents(trash / "info" / "50% й.txt.trashinfo"),
                testing::MatchesRegex("\\[Trash Info\\]\nPath=/.*/%D0%BF%D0%B8%D1%81%D1%8C%D0%BC%D0%B0/"
                                      "50%25%20%D0%B9.txt\n"
                                      "DeletionDate=....-..-..T..:..:..\n"));
    EXPECT_EQ(Contents(path), "old");
    EXPECT_FALSE(Throw(Make(std::string(255, 'n')), "long"));

    fs::remove_all(trash);
    Put(trash, "no folder");
    EXPECT_EQ(Throw(path, "x")->number, 76);
    unsetenv("XDG_DATA_HOME");
}

TEST_F(BackupsTest, AnotherDiskHasATrashOfItsOwnUnlessItIsFullOrSomebodysElse) {
    setenv("XDG_DATA_HOME", (root_ / "data").c_str(), 1);
    if (mount("none", folder_.c_str(), "tmpfs", 0, "size=256k") != 0)
        GTEST_SKIP() << "can't mount a small disk";
    fs::create_directory(folder_ / "in");
    const std::string path = Make("in/letter");
    const std::string own = folder_ / (".Trash-" + std::to_string(geteuid()));
    EXPECT_FALSE(Throw(path, "one"));
    EXPECT_EQ(Contents(own + "/files/letter"), "one");
    EXPECT_THAT(Contents(own + "/info/letter.trashinfo"), HasSubstr("\nPath=in/letter\n"));

    EXPECT_FALSE(Throw(path, std::string(300'000, 'x'))); // no room there
    EXPECT_EQ(Contents(root_ / "data" / "Trash" / "files" / "letter").size(), 300'000U);
    EXPECT_EQ(Names(own + "/files").size(), 1U);

    fs::remove_all(own);
    fs::create_directory(root_ / "elsewhere");
    fs::create_directory_symlink(root_ / "elsewhere", own);
    EXPECT_FALSE(Throw(path, "two"));
    EXPECT_THAT(Names(root_ / "elsewhere"), IsEmpty());
    EXPECT_EQ(Contents(root_ / "data" / "Trash" / "files" / "letter.2"), "two");
    umount(folder_.c_str());
    unsetenv("XDG_DATA_HOME");
}

struct RecoveryStoreTest : testing::Test {
    TemporaryFolder home;
    const fs::path folder = home / "state/recovery";
    std::unique_ptr<PosixRecoveryStore> copy = Start();
    int failures = 0;

    std::unique_ptr<PosixRecoveryStore> Start() {
        auto started =
            std::make_unique<PosixRecoveryStore>(folder, [](const std::function<void()>& run) { run(); });
        started->OnFailure = [this] { ++failures; };
        return started;
    }
    void Replace(const std::string& text) {
        copy->Replace([text] { return text; });
        copy->Finish();
    }
    // As the end of its process, which leaves what is there.
    void Kill() { copy = Start(); }
    std::vector<std::string> Found() { return FoundBy(*copy); }
    static std::vector<std::string> FoundBy(PosixRecoveryStore& store) {
        std::vector<std::string> texts;
        for (const LeftFile& file : store.FindLeft())
            texts.push_back(file.bytes);
        return texts;
    }
    std::vector<std::string> Endings() const {
        std::vector<std::string> endings;
        for (const auto& entry : fs::directory_iterator(folder))
            endings.push_back(entry.path().filename().string().substr(kCopyNumber));
        return endings;
    }
    fs::path FileWith(const std::string& ending) const {
        for (const auto& entry : fs::directory_iterator(folder))
            if (entry.path().native().ends_with(ending))
                return entry.path();
        return {};
    }
};

TEST_F(RecoveryStoreTest, KeepsWhatIsWrittenForTheNextCopyAlone) {
    Replace("one");
    copy->Append(" two");
    copy->Rewrite([](std::string_view text) { return std::string(text) + " three"; });
    copy->Append(" four");
    copy->SetAside();
    Replace("five");
    EXPECT_FALSE(copy->HasFailed());
    EXPECT_THAT(Endings(), UnorderedElementsAre(".lock", ".text", ".kept"));
    EXPECT_EQ(fs::status(folder).permissions(), fs::perms::owner_all);
    EXPECT_EQ(fs::status(FileWith(".text")).permissions(), fs::perms::owner_read | fs::perms::owner_write);

    const auto other = Start();
    EXPECT_THAT(FoundBy(*other), IsEmpty()) << "the copy lives";
    Kill();
    EXPECT_THAT(Found(), UnorderedElementsAre("one two three four", "five"));
    EXPECT_THAT(FoundBy(*other), IsEmpty()) << "another copy has them already";
    copy->Release();
    EXPECT_THAT(FoundBy(*other), UnorderedElementsAre("one two three four", "five"));
}

TEST_F(RecoveryStoreTest, NothingRemainsOfACopyThatEndsInOrderOrSavedItsText) {
    Replace("one");
    copy->SetAside();
    Replace("two");
    copy->RemoveAll();
    copy->Finish();
    EXPECT_THAT(Endings(), IsEmpty());
    Replace("three");
    copy->Remove();
    copy->Finish();
    std::ofstream(FileWith(".lock").replace_extension(".text.01234567.quillshift")) << "a killed write";
    Kill();
    EXPECT_THAT(Found(), IsEmpty());
    copy->Release();
    EXPECT_EQ(FileWith(".lock"), "");
}

TEST_F(RecoveryStoreTest, TakesOneAndThrowsAwayOrPutsAwayOthers) {
    ASSERT_EQ(setenv("XDG_DATA_HOME", (home / "data").c_str(), 1), 0);
    for (const char* text : {"taken", "thrown", "damaged"}) {
        Replace(text);
        Kill();
    }
    std::u16string away;
    for (const LeftFile& file : copy->FindLeft())
        if (file.bytes == "taken")
            copy->Take(file.name);
        else if (file.bytes == "thrown")
            EXPECT_FALSE(copy->PutIntoTrash(file));
        else
            away = copy->PutAway(file.name);
    copy->Finish();
    copy->Release();
    EXPECT_FALSE(copy->HasFailed());
    EXPECT_EQ(Contents(fs::path(away)), "damaged");
    EXPECT_THAT(Endings(), UnorderedElementsAre(".lock", ".text", ".text.damaged"));
    int thrown = 0;
    for (const auto& entry : fs::directory_iterator(home / "data/Trash/files"))
        thrown += Contents(entry.path()) == "thrown" ? 1 : 0;
    EXPECT_EQ(thrown, 1);
    Kill();
    EXPECT_THAT(Found(), ElementsAre("taken"));
}

TEST_F(RecoveryStoreTest, AFailureHoldsUntilTheWholeIsWrittenAgain) {
    const auto limitFiles = [](rlim_t bytes) {
        rlimit limit{};
        getrlimit(RLIMIT_FSIZE, &limit);
        limit.rlim_cur = bytes;
        setrlimit(RLIMIT_FSIZE, &limit);
    };
    SurviveFailedWrites();
    Replace("one");
    limitFiles(5);
    copy->Append(" two");
    copy->Finish();
    limitFiles(RLIM_INFINITY);
    copy->Append("."); // behind half a record it would be damage
    copy->Finish();
    EXPECT_TRUE(copy->HasFailed());
    EXPECT_EQ(failures, 1) << "the other one wasn't tried";
    limitFiles(5);
    Replace("much longer");
    limitFiles(RLIM_INFINITY);
    EXPECT_TRUE(copy->HasFailed());
    EXPECT_EQ(failures, 2);
    EXPECT_EQ(Contents(FileWith(".text")), "one t") << "the old one stands";
    EXPECT_THAT(Endings(), UnorderedElementsAre(".lock", ".text"));
    Replace("two");
    EXPECT_FALSE(copy->HasFailed());

    fs::remove_all(folder);
    copy->Append(" three");
    copy->Finish();
    EXPECT_FALSE(copy->HasFailed());
    Kill();
    EXPECT_THAT(Found(), ElementsAre("two three"));
}

} // namespace
} // namespace quillshift
