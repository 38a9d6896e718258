#include "settings/FirstValues.h"

#include "settings/SoundEvents.h"

namespace quillshift {
namespace {

struct FirstText {
    std::string_view path;
    std::string_view name;
    std::u16string_view text;
};

constexpr FirstText kTexts[] = {
    {settings_path::kPreferences, "TopMost", u"0"},
    {settings_path::kPreferences, "ViewMode", u"1"},
    {settings_path::kPreferences, "ManyCopies", u"0"},
    {settings_path::kPreferences, "SaveWindowPositionAndSize", u"1"},
    {settings_path::kPreferences, "MessageOnExit", u"1"},
    {settings_path::kPreferences, "FirstRun", u"1"},
    {settings_path::kPreferences, "DefaultCode", u"0"},
    {settings_path::kPreferences, "StartAtOpen", u"0"},
    {settings_path::kPreferences, "StartAtImport", u"0"},
    {settings_path::kPreferences, "DecodeAtCodeChange", u"0"},
    {settings_path::kPreferences, "StartAtStartup", u"0"},
    {settings_path::kPreferences, "ClipboardDetect", u"0"},
    {settings_path::kPreferences, "DecodeClipboard", u"1"},
    {settings_path::kPreferences, "ClipboardText", u"0"},
    {settings_path::kPreferences, "ClearClipboard", u"0"},
    {settings_path::kPreferences, "Style", u"OfficeXP"},
    {settings_path::kPreferences, "ToolBarStandart", u"1"},
    {settings_path::kPreferences, "ToolBarDecode", u"1"},
    {settings_path::kPreferences, "ShowInCaption", u"3"},
    {settings_path::kPreferences, "FontName", u"MS Sans Serif"},
    {settings_path::kPreferences, "FontSize", u"8"},
    {settings_path::kPreferences, "TextExample", u"Example, Образец"},
    {settings_path::kPreferences, "Printers", u"0"},
    {settings_path::kPreferences, "PrintQuality", u"vbPRPQHigh"},
    {settings_path::kPreferences, "ColorMode", u"vbPRCMMonochrome"},
    {settings_path::kPreferences, "Orientation", u"vbPRORPortrait"},
    {settings_path::kPreferences, "PaperSize", u"A4 210 x 297 мм"},
    {settings_path::kPreferences, "Copies", u"1"},
    {settings_path::kPreferences, "PositionLeft", u"20"},
    {settings_path::kPreferences, "PositionWidth", u"5"},
    {settings_path::kPreferences, "PositionTop", u"5"},
    {settings_path::kPreferences, "PositionHeight", u"5"},
    {settings_path::kPreferences, "SaveChange", u"1"},
    {settings_path::kPreferences, "CreateBackup", u"1"},
    {settings_path::kPreferences, "CreateBackupIn", u"1"},
    {settings_path::kToolBars, "UseLargeIcons", u"0"},
    {settings_path::kToolBars, "ShowToolTips", u"1"},
    {settings_path::kToolBars, "HideInfrequently", u"1"},
};

struct FirstNumber {
    std::string_view path;
    std::string_view name;
    std::int32_t number;
};

constexpr FirstNumber kNumbers[] = {
    {settings_path::kDialogs, "Splash", 0},           {settings_path::kDialogs, "Welcome", 1},
    {settings_path::kDialogs, "WorkBegin", 1},        {settings_path::kDialogs, "Printing", 1},
    {settings_path::kLocked, "DoNotShowPassword", 1},
};

struct FirstItems {
    std::string_view path;
    int count;
};

constexpr FirstItems kItems[] = {
    {settings_path::kToolBarsStandart, 40},
    {settings_path::kToolBarsDecode, 8},
};

constexpr std::int32_t kItemShown = -1;

constexpr const SoundEvent* kSounds[] = {
    &sound_event::kButtonMouseMove, &sound_event::kButtonMouseClick, &sound_event::kFormLoad,
    &sound_event::kFormUnload,      &sound_event::kKeyDown,
};

std::string ItemName(int number) {
    const std::string digits = std::to_string(number);
    return digits.size() < 2 ? "0" + digits : digits;
}

} // namespace

void WriteFirstValues(SettingsStore& settings, const FirstValueInputs& inputs) {
    for (const auto& [path, name, text] : kTexts)
        settings.WriteString(Hive::CurrentUser, path, name, text);
    for (const auto& [path, name, number] : kNumbers)
        settings.WriteDword(Hive::CurrentUser, path, name, number);
    for (const auto& [path, count] : kItems)
        for (int item = 0; item < count; ++item)
            settings.WriteDword(Hive::CurrentUser, path, ItemName(item), kItemShown);
    for (const SoundEvent* event : kSounds) {
        const std::u16string file = inputs.programFolder + u"/Sounds/" + std::u16string(event->defaultFile);
        settings.WriteString(Hive::CurrentUser, settings_path::kSounds, event->switchName, u"0");
        settings.WriteString(Hive::CurrentUser, settings_path::kSounds, event->pathName, file);
    }
    settings.SetPreference("PrinterName", inputs.printerName);
    settings.SetPreference("MainLeft", DecimalText(inputs.mainWindow.left.value));
    settings.SetPreference("MainTop", DecimalText(inputs.mainWindow.top.value));
    settings.SetPreference("MainHeight", DecimalText(inputs.mainWindow.height.value));
    settings.SetPreference("MainWidth", DecimalText(inputs.mainWindow.width.value));
}

} // namespace quillshift
