#include "settings/SettingsStore.h"
#include "support/FakeSettings.h"

#include <gtest/gtest.h>

#include <limits>

namespace quillshift {
namespace {

constexpr Hive kHive = Hive::CurrentUser;
using settings_path::kDialogs;
using settings_path::kPreferences;

TEST(SettingsStore, KeepsTypesApart) {
    FakeSettings backend;
    SettingsStore store(backend);
    store.WriteDword(kHive, kDialogs, "Splash", -2);
    EXPECT_EQ(backend.Read(kDialogs, "Splash")->data, std::string("\xFE\xFF\xFF\xFF"));
    EXPECT_EQ(store.ReadDword(kHive, kDialogs, "splash"), -2);
    EXPECT_EQ(store.ReadString(kHive, kDialogs, "Splash"), std::nullopt);

    store.WriteString(kHive, kDialogs, "Text", u"1111");
    EXPECT_EQ(store.ReadDword(kHive, kDialogs, "Text"), 0);
    EXPECT_EQ(store.ReadDword(kHive, kDialogs, "Nowhere"), 0);
    backend.Write(kDialogs, "Short", {ValueType::Number, "\x01\x01\x01"});
    EXPECT_EQ(store.ReadDword(kHive, kDialogs, "Short"), 0);
}

TEST(SettingsStore, TextsAreStoredAsWindows1251) {
    FakeSettings backend;
    SettingsStore store(backend);
    store.SetPreference("TextExample", u"Ёж, \u4E2D");
    EXPECT_EQ(backend.Read(kPreferences, "TextExample")->data, "\xA8\xE6, ?");
    EXPECT_EQ(store.Preference("TextExample"), u"Ёж, ?");
    backend.Write(kPreferences, "Cut", {ValueType::Text, std::string("ab\0cd", 5)});
    EXPECT_EQ(store.Preference("Cut"), u"ab");
}

TEST(SettingsStore, AbsentEqualsOnlyTheEmptyText) {
    FakeSettings backend;
    SettingsStore store(backend);
    EXPECT_EQ(store.ReadString(kHive, kPreferences, "User"), std::nullopt);
    EXPECT_TRUE(store.PreferenceIs("User", u""));
    EXPECT_FALSE(store.PreferenceIs("User", u"0"));
    store.SetPreference("User", u"");
    EXPECT_EQ(store.ReadString(kHive, kPreferences, "User"), u"");
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
