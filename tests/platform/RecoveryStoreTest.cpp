#include "platform/posix/PosixRecoveryStore.h"

#include "harness/TemporaryFolder.h"

#include <gmock/gmock.h>

#include <sys/resource.h>
#include <sys/stat.h>

#include <memory>

namespace quillshift {
namespace {

namespace fs = std::filesystem;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::UnorderedElementsAre;

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
