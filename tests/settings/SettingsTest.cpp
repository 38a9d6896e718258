#include "base/Utf8.h"
#include "settings/FirstValues.h"
#include "support/FakeSettings.h"
#include "support/TestsFolder.h"

#include <gtest/gtest.h>

#include <fstream>
#include <limits>
#include <sstream>

namespace quillshift {
namespace {

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
    std::ifstream file(TestsFolder() / "settings/stored/first-values.txt");
    std::string expected((std::istreambuf_iterator<char>(file)), {});
    EXPECT_EQ(Listing(backend), expected);
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

} // namespace
} // namespace quillshift
