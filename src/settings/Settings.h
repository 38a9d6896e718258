#pragma once

#include "settings/SettingsStore.h"

#include <span>

namespace quillshift {

/// Every value that the program keeps between runs, by name. A toolbar's items have numbers instead.
enum class Setting {
    // What the program does
    TopMost,
    ViewMode,
    ManyCopies,
    SaveWindowPositionAndSize,
    MessageOnExit,
    FirstRun,
    DefaultCode,
    StartAtOpen,
    StartAtImport,
    DecodeAtCodeChange,
    StartAtStartup,
    ClipboardDetect,
    DecodeClipboard,
    Accumulate, ///< `ClipboardText` among the preferences: a switch
    ClearClipboard,
    // How its windows look
    Style,
    ToolBarStandart,
    ToolBarDecode,
    ShowInCaption,
    MainLeft,
    MainTop,
    MainHeight,
    MainWidth,
    WindowState,
    FullScreenLeft,
    FullScreenTop,
    FontName,
    FontSize,
    TextExample,
    // Print
    Printers,
    PrinterName,
    PrintQuality,
    ColorMode,
    Orientation,
    PaperSize,
    Copies,
    PositionLeft,
    PositionWidth,
    PositionTop,
    PositionHeight,
    // Files
    FolderDocuments,
    SaveChange,
    CreateBackup,
    CreateBackupIn,
    BackupFolder,
    SaveFileName,
    Recovery, ///< absent: on
    // Dialogs shown
    Splash,
    Welcome,
    WorkBegin,
    Printing,
    // The lock
    User,
    Password,
    Tip,
    DoNotShowPassword,
    // Sounds: a switch and a file each
    ButtonMouseMove,
    ButtonMouseMovePath,
    ButtonMouseClick,
    ButtonMouseClickPath,
    FormLoad,
    FormLoadPath,
    FormUnload,
    FormUnloadPath,
    KeyDown,
    KeyDownPath,
    // Toolbars
    UseLargeIcons,
    ShowToolTips,
    HideInfrequently,
    // The clipboard watcher's memory
    ClipboardText,
    Count
};

/// Where a setting stands and what it holds before the program's first start.
struct SettingRow {
    Setting setting;
    std::string_view path;
    std::string_view name;
    ValueType type;
    /// Nothing for what only the user's work, or the machine, gives.
    std::optional<std::u16string_view> firstText = std::nullopt;
    std::int32_t firstNumber = 0;
};

/// All settings, in the order of their constants.
std::span<const SettingRow> SettingRows();

/// The toolbars whose items can be hidden one by one.
enum class ItemBar { Standart, Decode };

/// The store by its values' constants. Every value is read where it is used, and written through at once.
class Settings {
public:
    explicit Settings(SettingsBackend& backend) : store_(backend) {}

    /// Whether a switch is on: the text is exactly "1", or the number is 1.
    bool Is(Setting setting);
    /// Whether a text equals `literal`; an absent value equals only the empty text.
    bool Is(Setting setting, std::u16string_view literal) { return Text(setting) == literal; }
    /// The text; empty when absent.
    std::u16string Text(Setting setting) { return Find(setting).value_or(std::u16string()); }
    /// The text; nothing when absent.
    std::optional<std::u16string> Find(Setting setting);
    /// The number a text begins with, as single precision; 0 without one.
    float Number(Setting setting) { return NumberIn(Text(setting)); }

    /// The value of a setting that is a number; 0 when absent.
    std::int32_t Whole(Setting setting);

    void Set(Setting setting, std::u16string_view text);
    /// "1" or "0", or 1 or 0, as the setting is a text or a number.
    void Switch(Setting setting, bool on);

    /// `item` counts from 0, in the order in which the items stand on the bar. An absent value is hidden.
    bool IsItemShown(ItemBar bar, int item);
    void ShowItem(ItemBar bar, int item, bool shown);

private:
    SettingsStore store_;
};

} // namespace quillshift
