#include "base/Utf8.h"
#include "harness/TemporaryFolder.h"
#include "platform/posix/FileBytes.h"
#include "platform/posix/PrivateFolder.h"
#include "platform/posix/SqliteSettings.h"
#include "platform/posix/XdgFolders.h"
#include "settings/FirstValues.h"
#include "support/FakePlatform.h"
#include "support/InProcess.h"
#include "support/TestsFolder.h"

#include <csignal>
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>

namespace quillshift {
namespace {

namespace fs = std::filesystem;

// What a store holds, a line each: path and name in lower case, type, value.
std::string Listing(FakeSettings& backend) {
    SettingsStore store(backend);
    std::ostringstream lines;
    for (const auto& [key, value] : backend.values) {
        const auto& [path, name] = key;
        lines << path << '\t' << name << '\t';
        if (value.type == ValueType::Text)
            lines << "text\t" << ToUtf8(*store.ReadString(Hive::CurrentUser, path, name)) << '\n';
        else
            lines << "number\t" << store.ReadDword(Hive::CurrentUser, path, name) << '\n';
    }
    return lines.str();
}

// What only a person's work gives is absent at first, and there it is neither on nor off.
TEST(Settings, AFirstStoreHoldsTheStoredList) {
    FakeSettings backend;
    Settings settings(backend);
    WriteFirstValues(settings, {u"/program", u"The printer", {{1}, {2}, {3}, {4}}});
    for (const SettingRow& row : SettingRows())
        if (row.type == ValueType::Text && !settings.Find(row.setting)) {
            EXPECT_TRUE(settings.Is(row.setting, u"") && !settings.Is(row.setting)) << row.name;
            settings.Set(row.setting, u"absent");
            EXPECT_FALSE(settings.Is(row.setting)) << row.name << ": only \"1\" is on";
        }
    EXPECT_EQ(Listing(backend), Contents(TestsFolder() / "settings/stored/first-values.txt"));
}

constexpr Hive kHive = Hive::CurrentUser;
constexpr std::string_view kPath = "Path";

TEST(SettingsStore, KeepsTypesApart) {
    FakeSettings backend;
    SettingsStore store(backend);
    store.WriteDword(kHive, kPath, "Splash", -2);
    EXPECT_EQ(backend.Read(kPath, "Splash")->data, std::string("\xFE\xFF\xFF\xFF"));
    EXPECT_EQ(store.ReadDword(kHive, kPath, "splash"), -2);
    EXPECT_EQ(store.ReadString(kHive, kPath, "Splash"), std::nullopt);

    store.WriteString(kHive, kPath, "Text", u"1111");
    EXPECT_EQ(store.ReadDword(kHive, kPath, "Text"), 0);
    EXPECT_EQ(store.ReadDword(kHive, kPath, "Nowhere"), 0);
    backend.Write(kPath, "Short", {ValueType::Number, "\x01\x01\x01"});
    EXPECT_EQ(store.ReadDword(kHive, kPath, "Short"), 0);
}

TEST(SettingsStore, TextsAreStoredAsWindows1251) {
    FakeSettings backend;
    SettingsStore store(backend);
    store.WriteString(kHive, kPath, "TextExample", u"Ёж, \u4E2D");
    EXPECT_EQ(backend.Read(kPath, "TextExample")->data, "\xA8\xE6, ?");
    EXPECT_EQ(store.ReadString(kHive, kPath, "TextExample"), u"Ёж, ?");
    backend.Write(kPath, "Cut", {ValueType::Text, std::string("ab\0cd", 5)});
    EXPECT_EQ(store.ReadString(kHive, kPath, "Cut"), u"ab");
}

TEST(SettingsStore, NumbersInTexts) {
    const std::pair<std::u16string_view, float> cases[] = {
        {u"", 0},        {u"мм", 0},         {u"12345.5", 12345.5F},
        {u" 20 мм", 20}, {u"-7.25", -7.25F}, {u"+3", 3},
        {u".5", 0.5F},   {u"inf", 0},        {u"-nan", 0},
        {u"--1", 0},     {u"1,5", 1},        {u"1e99", 0},
        {u"\u4E2D1", 0}, {u"-", 0},          {u"+-1", 0},
    };
    for (const auto& [text, number] : cases)
        EXPECT_EQ(NumberIn(text), number) << std::string(text.begin(), text.end());

    EXPECT_EQ(DecimalText(100000), u"100000");
    EXPECT_EQ(DecimalText(0.1F), u"0.1");
    EXPECT_EQ(DecimalText(std::numeric_limits<float>::quiet_NaN()), u"0");
    for (const float number : {-1234.567F, std::numeric_limits<float>::max(),
                               std::numeric_limits<float>::denorm_min(), 16777216.0F})
        EXPECT_EQ(NumberIn(DecimalText(number)), number);
}

const StoredValue kOne{ValueType::Text, "1"};
const StoredValue kTwo{ValueType::Text, "2"};

// NOLINTNEXTLINE(*-env33-c)
int Call(const std::string& command) {
    return std::system((command + " 2>/dev/null").c_str());
}

class SqliteSettingsTest : public testing::Test {
protected:
    // A store with enough in it to have many pages.
    void MakeStore() {
        SqliteSettings settings(file_);
        for (int i = 0; i < 400; ++i)
            settings.Write("P", std::to_string(i), {ValueType::Text, std::string(100, 'x')});
        settings.Write("P", "a", kOne);
    }

    TemporaryFolder folder_;
    fs::path file_ = folder_ / "new/quillshift/settings.db";
    fs::path aside_ = folder_ / "new/quillshift/settings.db.damaged-1";
};

TEST_F(SqliteSettingsTest, KeepsValuesBetweenRunsWhateverTheCaseAndSize) {
    StoredValue large{ValueType::Text, std::string(5 << 20, '\xDF')};
    large.data[1 << 20] = '\0';
    {
        SqliteSettings settings(file_);
        EXPECT_EQ(settings.Read("P", "a"), std::nullopt);
        EXPECT_FALSE(fs::exists(folder_ / "new")) << "a read creates nothing";
        settings.Write("Some\\Path", "ToolBarDecode", {ValueType::Number, std::string("\0\1\2\3", 4)});
        settings.Write("Some\\Path", "ToolbarDecode", kOne);
        settings.Write("Some\\Path", "Empty", {ValueType::Text, ""});
        settings.Write("P", "large", large);
    }
    SqliteSettings settings(file_);
    EXPECT_EQ(settings.Read("SOME\\path", "TOOLBARDECODE"), kOne);
    EXPECT_EQ(settings.Read("Some\\Path", "Empty"), (StoredValue{ValueType::Text, ""}));
    EXPECT_EQ(settings.Read("Some", "Empty"), std::nullopt);
    EXPECT_TRUE(settings.Read("P", "large") == large);
}

// A program that was given a store like these once waited for ever, or ended.
TEST_F(SqliteSettingsTest, WhatIsNoStoreIsSetAsideAtTheFirstUse) {
    MakeStore();
    const std::string good = Contents(file_);
    const auto changed = [&](const std::string& sql) {
        Put(file_, good);
        Call("sqlite3 " + file_.string() + " \"" + sql + "\"");
        EXPECT_TRUE(Contents(file_) != good) << sql;
        return Contents(file_);
    };
    const std::string columns = "path TEXT NOT NULL COLLATE NOCASE, name TEXT NOT NULL COLLATE NOCASE,"
                                "type INTEGER NOT NULL, data BLOB NOT NULL, PRIMARY KEY(name, path)";
    const std::string endless = "WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n) SELECT ";
    const std::string damages[] = {
        "garbage",
        std::string(100000, '\xA5'),
        good.substr(0, good.size() / 2),
        good.substr(0, 100),
        changed("DROP TABLE value; CREATE TABLE value(x)"),
        changed("DROP TABLE value; CREATE VIEW value AS " + endless +
                "'P' path, 'a' name, 1 type, i data FROM n"),
        changed("CREATE TRIGGER t BEFORE INSERT ON value BEGIN SELECT 1 WHERE (" + endless +
                "max(i) FROM n); END"),
        changed("DROP TABLE value; CREATE TABLE value(" + columns + ", CHECK(name = 'a')) WITHOUT ROWID"),
        changed("DROP TABLE value; CREATE TABLE value(more AS (zeroblob(900000000)), " + columns +
                ") WITHOUT ROWID"),
        changed("CREATE INDEX i ON value(data)"),
        changed("CREATE TABLE more(x)"),
        changed("PRAGMA writable_schema=1; UPDATE sqlite_schema SET rootpage=1"),
        changed("PRAGMA writable_schema=1; UPDATE sqlite_schema SET sql=NULL"),
    };
    int number = 0;
    for (const std::string& damaged : damages) {
        Put(file_, damaged);
        SqliteSettings settings(file_);
        ASSERT_FALSE(settings.Read("P", "a")) << number;
        settings.Write("P", "b", kTwo);
        EXPECT_EQ(settings.Read("P", "b"), kTwo) << number;
        EXPECT_TRUE(Contents(file_.string() + ".damaged-" + std::to_string(++number)) == damaged) << number;
    }
    Put(file_, changed("ANALYZE"));
    EXPECT_EQ(SqliteSettings(file_).Read("P", "a"), kOne);
}

TEST_F(SqliteSettingsTest, ALimitOnTheSizeOfFilesLosesTheWriteAndNoMore) {
    MakeStore();
    for (const rlim_t most : {std::size_t{0}, std::size_t{4096}, std::size_t{40000}, fs::file_size(file_)}) {
        const pid_t limited = InProcess([&] {
            SurviveFailedWrites();
            const rlimit limit{most, most};
            setrlimit(RLIMIT_FSIZE, &limit);
            SqliteSettings settings(file_);
            settings.SetUp([](SettingsBackend&) {});
            settings.Write("P", "a", {ValueType::Text, std::string(200000, 'x')});
            return settings.Read("P", "a") == kOne ? 0 : 1;
        });
        EXPECT_EQ(ExitOf(limited), 0) << most;
        EXPECT_EQ(SqliteSettings(file_).Read("P", "a"), kOne) << most;
    }
    EXPECT_FALSE(fs::exists(aside_));
}

TEST_F(SqliteSettingsTest, ItsOwnerAloneCanReadIt) {
    const fs::path folder = file_.parent_path();
    const auto rightsOfOthers = [&] {
        fs::perms rights = fs::status(folder).permissions();
        for (const auto& entry : fs::directory_iterator(folder))
            rights |= entry.status().permissions();
        return rights & (fs::perms::group_all | fs::perms::others_all);
    };
    const mode_t before = umask(0);
    SqliteSettings settings(file_);
    settings.SetUp([](SettingsBackend& first) { first.Write("P", "a", kOne); });
    settings.Write("P", "a", kTwo);
    EXPECT_TRUE(fs::exists(file_.string() + "-wal"));
    EXPECT_EQ(rightsOfOthers(), fs::perms::none);

    Put(aside_, "of an older version");
    for (const fs::path& wide : {folder, file_, fs::path(file_.string() + "-wal")})
        fs::permissions(wide, fs::perms(0755));
    umask(before);
    CloseToOthers(folder);
    EXPECT_EQ(rightsOfOthers(), fs::perms::none);
    EXPECT_EQ(settings.Read("P", "a"), kTwo);
}

TEST_F(SqliteSettingsTest, DamageFoundWhileRunningEndsInAnEmptyStore) {
    MakeStore();
    const std::string good = Contents(file_);
    SqliteSettings settings(file_);
    ASSERT_EQ(settings.Read("P", "a"), kOne);
    // Only pages that weren't read yet: the connection notices when it comes to them.
    std::fstream(file_, std::ios::in | std::ios::out | std::ios::binary).seekp(4096)
        << std::string(good.size() - 4096, '\xA5');
    for (int i = 0; i < 400; ++i)
        settings.Read("P", std::to_string(i));
    EXPECT_TRUE(fs::exists(aside_));
    settings.Write("P", "b", kTwo);
    EXPECT_EQ(settings.Read("P", "b"), kTwo);
    EXPECT_EQ(settings.Read("P", "1"), std::nullopt);
}

TEST_F(SqliteSettingsTest, DeletionAndReplacementAreNoticed) {
    MakeStore();
    SqliteSettings settings(file_);
    settings.Write("P", "a", kTwo);
    fs::remove(file_); // its log stays behind
    EXPECT_EQ(settings.Read("P", "a"), std::nullopt);
    settings.Write("P", "b", kTwo);
    EXPECT_EQ(SqliteSettings(file_).Read("P", "b"), kTwo);
    EXPECT_EQ(SqliteSettings(file_).Read("P", "a"), std::nullopt) << "came back from the old log";

    {
        SqliteSettings other(folder_ / "other.db");
        other.Write("P", "c", kOne);
    }
    fs::rename(folder_ / "other.db", file_);
    EXPECT_EQ(settings.Read("P", "c"), kOne);
    EXPECT_EQ(settings.Read("P", "b"), std::nullopt);
    fs::remove_all(file_.parent_path());
    settings.Write("P", "d", kOne);
    EXPECT_EQ(settings.Read("P", "d"), kOne);
}

TEST_F(SqliteSettingsTest, WhereNoStoreCanBeNothingHappens) {
    fs::create_directories(file_ / "folder");
    ASSERT_EQ(mkfifo((folder_ / "pipe").c_str(), 0600), 0);
    Put(folder_ / "plain", "");
    for (const fs::path& file :
         {file_, folder_ / "pipe", folder_ / "plain/settings.db", fs::path("/proc/quillshift/settings.db"),
          fs::path("relative/settings.db")}) {
        SqliteSettings settings(file);
        EXPECT_FALSE(settings.SetUp([](SettingsBackend&) {})) << file;
        settings.Write("P", "a", kOne);
        EXPECT_EQ(settings.Read("P", "a"), std::nullopt) << file;
    }
    EXPECT_FALSE(fs::exists("relative"));
}

// As a disk is after an error: files that are open can be read, and not written any more.
TEST_F(SqliteSettingsTest, AStoreThatBecomesUnwritableUnderTheProgramLosesTheWriteAndNoMore) {
    SqliteSettings settings(file_);
    settings.Write("P", "a", kOne);
    const auto files = "+i " + file_.string() + "-wal " + file_.string() + "-shm " + file_.string();
    const auto change = [&](char sign) { return Call("chattr " + (sign + files.substr(1))) == 0; };
    if (!change('+')) {
        change('-');
        GTEST_SKIP() << "files can't be made immutable here";
    }
    for (int twice = 0; twice < 2; ++twice) {
        settings.Write("P", "a", kTwo);
        EXPECT_EQ(settings.Read("P", "a"), kOne);
    }
    change('-');
    settings.Write("P", "a", kTwo);
    EXPECT_EQ(settings.Read("P", "a"), kTwo);
}

TEST_F(SqliteSettingsTest, AReadOnlyStoreIsReadAndNotWritten) {
    MakeStore();
    for (const fs::path& open : {folder_.Path(), folder_ / "new", file_.parent_path()})
        fs::permissions(open, static_cast<fs::perms>(0555));
    fs::permissions(file_, static_cast<fs::perms>(0444));
    const pid_t reader = InProcess([&] {
        if (!BecomeSomebody())
            return 3;
        SqliteSettings settings(file_);
        settings.Write("P", "a", kTwo);
        settings.SetUp([](SettingsBackend&) {});
        return settings.Read("P", "a") == kOne ? 0 : 1;
    });
    EXPECT_EQ(ExitOf(reader), 0);
    for (const fs::path& open : {folder_.Path(), folder_ / "new", file_.parent_path()})
        fs::permissions(open, fs::perms::owner_all);
    EXPECT_EQ(SqliteSettings(file_).Read("P", "a"), kOne);
}

TEST_F(SqliteSettingsTest, SetUpTouchesNoExistingStoreButADamagedOne) {
    const auto fill = [](SettingsBackend& backend) { backend.Write("P", "a", kOne); };
    fs::create_directories(file_.parent_path());
    Put(file_, "");
    EXPECT_FALSE(SqliteSettings(file_).SetUp(fill));
    EXPECT_EQ(SqliteSettings(file_).Read("P", "a"), std::nullopt);

    Put(file_, std::string(5000, 'x'));
    SqliteSettings settings(file_);
    EXPECT_TRUE(settings.SetUp(fill));
    EXPECT_EQ(settings.Read("P", "a"), kOne);
    EXPECT_TRUE(fs::exists(aside_));
}

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

// Of many copies of the program.
using SharedStore = SqliteSettingsTest;

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
    const auto files = std::distance(fs::directory_iterator(file_.parent_path()), fs::directory_iterator());
    EXPECT_EQ(files, 1) << "the draft is still there";
}

TEST_F(SharedStore, CopiesThatMeetADamagedFileSetItAsideOnce) {
    fs::create_directories(file_.parent_path());
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

TEST(XdgFolders, FollowTheEnvironment) {
    setenv("HOME", "/home/somebody", 1);
    setenv("XDG_DATA_HOME", "/data", 1);
    EXPECT_EQ(XdgDataFolder(), "/data");
    setenv("XDG_DATA_HOME", "relative", 1);
    EXPECT_EQ(XdgDataFolder(), "/home/somebody/.local/share");
    unsetenv("HOME");
    EXPECT_TRUE(XdgDataFolder().is_absolute());
    EXPECT_NE(XdgDataFolder(), "/home/somebody/.local/share");
}

} // namespace
} // namespace quillshift
