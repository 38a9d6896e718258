#include "settings/Settings.h"

#include <array>
#include <string>

namespace quillshift {
namespace {

constexpr std::string_view kPreferences = R"(Software\Morvane Tolric\Quillshift 3.0\Preferences)";
constexpr std::string_view kDialogs = R"(Software\Morvane Tolric\Quillshift 3.0\Preferences\Dialogs)";
constexpr std::string_view kLocked = R"(Software\Morvane Tolric\Quillshift 3.0\Preferences\Locked)";
constexpr std::string_view kSounds = R"(Software\Morvane Tolric\Quillshift 3.0\Preferences\Sounds)";
constexpr std::string_view kToolBars = R"(Software\Morvane Tolric\Quillshift 3.0\Preferences\ToolBars)";
constexpr std::string_view kItems[] = {
    R"(Software\Morvane Tolric\Quillshift 3.0\Preferences\ToolBars\Standart)",
    R"(Software\Morvane Tolric\Quillshift 3.0\Preferences\ToolBars\Decode)"};
constexpr std::string_view kClipboard = R"(Software\Morvane Tolric\Quillshift 3.0\Clipboard)";

constexpr std::int32_t kItemShown = -1;

// The kinds of rows, by path.
constexpr SettingRow General(Setting setting, std::string_view name,
                             std::optional<std::u16string_view> first = std::nullopt) {
    return {setting, kPreferences, name, ValueType::Text, first};
}
constexpr SettingRow Dialog(Setting setting, std::string_view name, std::int32_t first) {
    return {setting, kDialogs, name, ValueType::Number, std::nullopt, first};
}
constexpr SettingRow Lock(Setting setting, std::string_view name) {
    return {setting, kLocked, name, ValueType::Text};
}
constexpr SettingRow Sound(Setting setting, std::string_view name,
                           std::optional<std::u16string_view> first = std::nullopt) {
    return {setting, kSounds, name, ValueType::Text, first};
}
constexpr SettingRow ToolBars(Setting setting, std::string_view name, std::u16string_view first) {
    return {setting, kToolBars, name, ValueType::Text, first};
}

using enum Setting;
constexpr std::array kRows{
    General(TopMost, "TopMost", u"0"),
    General(ViewMode, "ViewMode", u"1"),
    General(ManyCopies, "ManyCopies", u"0"),
    General(SaveWindowPositionAndSize, "SaveWindowPositionAndSize", u"1"),
    General(MessageOnExit, "MessageOnExit", u"1"),
    General(FirstRun, "FirstRun", u"1"),
    General(DefaultCode, "DefaultCode", u"0"),
    General(StartAtOpen, "StartAtOpen", u"0"),
    General(StartAtImport, "StartAtImport", u"0"),
    General(DecodeAtCodeChange, "DecodeAtCodeChange", u"0"),
    General(StartAtStartup, "StartAtStartup", u"0"),
    General(ClipboardDetect, "ClipboardDetect", u"0"),
    General(DecodeClipboard, "DecodeClipboard", u"1"),
    General(Accumulate, "ClipboardText", u"0"),
    General(ClearClipboard, "ClearClipboard", u"0"),
    General(Style, "Style", u"OfficeXP"),
    General(ToolBarStandart, "ToolBarStandart", u"1"),
    General(ToolBarDecode, "ToolBarDecode", u"1"),
    General(ShowInCaption, "ShowInCaption", u"3"),
    General(MainLeft, "MainLeft"),
    General(MainTop, "MainTop"),
    General(MainHeight, "MainHeight"),
    General(MainWidth, "MainWidth"),
    General(Setting::WindowState, "WindowState"),
    General(FullScreenLeft, "FullScreenLeft"),
    General(FullScreenTop, "FullScreenTop"),
    General(FontName, "FontName", u"MS Sans Serif"),
    General(FontSize, "FontSize", u"8"),
    General(TextExample, "TextExample", u"Example, Образец"),
    General(Printers, "Printers", u"0"),
    General(PrinterName, "PrinterName"),
    General(PrintQuality, "PrintQuality", u"vbPRPQHigh"),
    General(ColorMode, "ColorMode", u"vbPRCMMonochrome"),
    General(Orientation, "Orientation", u"vbPRORPortrait"),
    General(PaperSize, "PaperSize", u"A4 210 x 297 мм"),
    General(Copies, "Copies", u"1"),
    General(PositionLeft, "PositionLeft", u"20"),
    General(PositionWidth, "PositionWidth", u"5"),
    General(PositionTop, "PositionTop", u"5"),
    General(PositionHeight, "PositionHeight", u"5"),
    General(FolderDocuments, "FolderDocuments"),
    General(SaveChange, "SaveChange", u"1"),
    General(CreateBackup, "CreateBackup", u"1"),
    General(CreateBackupIn, "CreateBackupIn", u"1"),
    General(BackupFolder, "BackupFolder"),
    General(SaveFileName, "SaveFileName"),
    General(Recovery, "Recovery"),
    Dialog(Splash, "Splash", 0),
    Dialog(Welcome, "Welcome", 1),
    Dialog(WorkBegin, "WorkBegin", 1),
    Dialog(Printing, "Printing", 1),
    Lock(User, "User"),
    Lock(Password, "Password"),
    Lock(Tip, "Tip"),
    SettingRow{DoNotShowPassword, kLocked, "DoNotShowPassword", ValueType::Number, std::nullopt, 1},
    Sound(ButtonMouseMove, "ButtonMouseMove", u"0"),
    Sound(ButtonMouseMovePath, "ButtonMouseMovePath"),
    Sound(ButtonMouseClick, "ButtonMouseClick", u"0"),
    Sound(ButtonMouseClickPath, "ButtonMouseClickPath"),
    Sound(FormLoad, "FormLoad", u"0"),
    Sound(FormLoadPath, "FormLoadPath"),
    Sound(FormUnload, "FormUnload", u"0"),
    Sound(FormUnloadPath, "FormUnloadPath"),
    Sound(KeyDown, "KeyDown", u"0"),
    Sound(KeyDownPath, "KeyDownPath"),
    ToolBars(UseLargeIcons, "UseLargeIcons", u"0"),
    ToolBars(ShowToolTips, "ShowToolTips", u"1"),
    ToolBars(HideInfrequently, "HideInfrequently", u"1"),
    SettingRow{ClipboardText, kClipboard, "ClipboardText", ValueType::Text},
};

constexpr bool EachStandsAtItsConstant() {
    for (std::size_t i = 0; i < kRows.size(); ++i)
        if (kRows[i].setting != static_cast<Setting>(i))
            return false;
    return kRows.size() == static_cast<std::size_t>(Setting::Count);
}
static_assert(EachStandsAtItsConstant());

constexpr const SettingRow& RowOf(Setting setting) {
    return kRows[static_cast<std::size_t>(setting)];
}

std::string_view PathOf(ItemBar bar) {
    return kItems[static_cast<std::size_t>(bar)];
}

// "00" and up.
std::string ItemName(int item) {
    const std::string digits = std::to_string(item);
    return digits.size() < 2 ? "0" + digits : digits;
}

} // namespace

std::span<const SettingRow> SettingRows() {
    return kRows;
}

bool Settings::Is(Setting setting) {
    const SettingRow& row = RowOf(setting);
    return row.type == ValueType::Text ? Is(setting, u"1")
                                       : store_.ReadDword(Hive::CurrentUser, row.path, row.name) == 1;
}

std::int32_t Settings::Whole(Setting setting) {
    const SettingRow& row = RowOf(setting);
    return store_.ReadDword(Hive::CurrentUser, row.path, row.name);
}

std::optional<std::u16string> Settings::Find(Setting setting) {
    const SettingRow& row = RowOf(setting);
    return store_.ReadString(Hive::CurrentUser, row.path, row.name);
}

void Settings::Set(Setting setting, std::u16string_view text) {
    const SettingRow& row = RowOf(setting);
    store_.WriteString(Hive::CurrentUser, row.path, row.name, text);
}

void Settings::Switch(Setting setting, bool on) {
    const SettingRow& row = RowOf(setting);
    if (row.type == ValueType::Text)
        Set(setting, on ? u"1" : u"0");
    else
        store_.WriteDword(Hive::CurrentUser, row.path, row.name, on ? 1 : 0);
}

bool Settings::IsItemShown(ItemBar bar, int item) {
    return store_.ReadDword(Hive::CurrentUser, PathOf(bar), ItemName(item)) != 0;
}

void Settings::ShowItem(ItemBar bar, int item, bool shown) {
    store_.WriteDword(Hive::CurrentUser, PathOf(bar), ItemName(item), shown ? kItemShown : 0);
}

} // namespace quillshift
