#include "base/Utf8.h"
#include "settings/FirstValues.h"
#include "support/FakeSettings.h"
#include "support/TestsFolder.h"

#include <gtest/gtest.h>

#include <fstream>
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

TEST(Settings, AFirstStoreHoldsTheStoredList) {
    FakeSettings backend;
    Settings settings(backend);
    WriteFirstValues(settings, {u"/program", u"The printer", {{1}, {2}, {3}, {4}}});
    std::ifstream file(TestsFolder() / "settings/stored/first-values.txt");
    std::string expected((std::istreambuf_iterator<char>(file)), {});
    EXPECT_EQ(Listing(backend), expected);
}

// The values that only a person's work gives have no line in the list: here their constants meet their names.
TEST(Settings, NamesWhatOnlyTheUserGives) {
    const std::string root = R"(Software\Morvane Tolric\Quillshift 3.0\)";
    const std::tuple<Setting, std::string, std::string> cases[] = {
        {Setting::WindowState, "Preferences", "WindowState"},
        {Setting::FullScreenLeft, "Preferences", "FullScreenLeft"},
        {Setting::FullScreenTop, "Preferences", "FullScreenTop"},
        {Setting::FolderDocuments, "Preferences", "FolderDocuments"},
        {Setting::BackupFolder, "Preferences", "BackupFolder"},
        {Setting::SaveFileName, "Preferences", "SaveFileName"},
        {Setting::Recovery, "Preferences", "Recovery"},
        {Setting::User, R"(Preferences\Locked)", "User"},
        {Setting::Password, R"(Preferences\Locked)", "Password"},
        {Setting::Tip, R"(Preferences\Locked)", "Tip"},
        {Setting::ClipboardText, "Clipboard", "ClipboardText"}};
    FakeSettings backend;
    Settings settings(backend);
    for (const auto& [setting, path, name] : cases) {
        EXPECT_TRUE(settings.Is(setting, u"")) << name << ": absent equals the empty text";
        EXPECT_FALSE(settings.Is(setting)) << name;
        EXPECT_EQ(settings.Find(setting), std::nullopt) << name;
        settings.Set(setting, u"2");
        EXPECT_EQ(backend.Read(root + path, name), (StoredValue{ValueType::Text, "2"})) << name;
        EXPECT_FALSE(settings.Is(setting)) << name << ": only \"1\" is on";
    }
}

} // namespace
} // namespace quillshift
