#include "harness/TemporaryFolder.h"
#include "platform/posix/SqliteSettings.h"
#include "support/InProcess.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <csignal>
#include <vector>

namespace quillshift {
namespace {

namespace fs = std::filesystem;

StoredValue Text(int number) {
    return {ValueType::Text, std::to_string(number)};
}

// Runs `work(number)` in `count` processes at once.
template <typename Work>
std::vector<pid_t> InProcesses(int count, Work work) {
    std::vector<pid_t> children(static_cast<std::size_t>(count));
    for (int number = 0; number < count; ++number)
        children[static_cast<std::size_t>(number)] = InProcess([&] { return work(number); });
    return children;
}

class SharedStore : public testing::Test {
protected:
    TemporaryFolder folder_;
    fs::path file_ = folder_ / "settings.db";
};

TEST_F(SharedStore, ManyCopiesWriteAndReadAtOnceAndNothingIsLost) {
    constexpr int kCopies = 6;
    constexpr int kWrites = 300;
    { SqliteSettings(file_).Write("Shared", "x", Text(0)); }
    const auto copies = InProcesses(kCopies, [&](int copy) {
        for (int i = 0; i < kWrites;) {
            // Now and then a copy leaves and another one starts.
            SqliteSettings settings(file_);
            for (const int last = i + 30; i < last; ++i) {
                const std::string own = std::to_string(copy) + "-" + std::to_string(i);
                settings.Write("Own", own, Text(i));
                settings.Write("Shared", "x", Text(i));
                if (settings.Read("Own", own) != Text(i) || !settings.Read("Shared", "x"))
                    return 1;
            }
        }
        return 0;
    });
    for (const pid_t copy : copies)
        EXPECT_EQ(ExitOf(copy), 0) << "a written value was absent or stale";
    SqliteSettings settings(file_);
    for (int copy = 0; copy < kCopies; ++copy)
        for (int i = 0; i < kWrites; ++i)
            ASSERT_EQ(settings.Read("Own", std::to_string(copy) + "-" + std::to_string(i)), Text(i));
}

TEST_F(SharedStore, ASetUpKilledHalfwayLeavesNoStoreAndTheNextOneIsWhole) {
    const pid_t copy = InProcess([&] {
        SqliteSettings(file_).SetUp([](SettingsBackend& backend) {
            backend.Write("P", "a", Text(1));
            raise(SIGKILL);
        });
        return 0;
    });
    EXPECT_EQ(ExitOf(copy), 1000 + SIGKILL);
    EXPECT_FALSE(fs::exists(file_));
    EXPECT_EQ(SqliteSettings(file_).Read("P", "a"), std::nullopt);
    EXPECT_TRUE(
        SqliteSettings(file_).SetUp([](SettingsBackend& backend) { backend.Write("P", "b", Text(2)); }));
    EXPECT_EQ(SqliteSettings(file_).Read("P", "a"), std::nullopt);
    EXPECT_EQ(SqliteSettings(file_).Read("P", "b"), Text(2));
    const auto files = std::distance(fs::directory_iterator(folder_.Path()), fs::directory_iterator());
    EXPECT_EQ(files, 1) << "the draft is still there";
}

TEST_F(SharedStore, CopiesThatMeetADamagedFileSetItAsideOnce) {
    Put(file_, std::string(20000, 'x'));
    const auto copies = InProcesses(6, [&](int copy) {
        SqliteSettings settings(file_);
        settings.Write("P", std::to_string(copy), Text(copy));
        return 0;
    });
    for (const pid_t copy : copies)
        EXPECT_EQ(ExitOf(copy), 0);
    SqliteSettings settings(file_);
    for (int copy = 0; copy < 6; ++copy)
        EXPECT_EQ(settings.Read("P", std::to_string(copy)), Text(copy));
    EXPECT_TRUE(fs::exists(file_.string() + ".damaged-1"));
    EXPECT_FALSE(fs::exists(file_.string() + ".damaged-2"));
}

} // namespace
} // namespace quillshift
