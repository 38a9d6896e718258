#pragma once

#include "settings/Settings.h"

#include <optional>
#include <span>
#include <string_view>

namespace quillshift {

/// The pages of the settings dialog, in the order of their tabs, and that of the toolbars' own dialog.
enum class SettingPage { General, Decode, View, Save, Font, Print, Locked, Sounds, ToolBars };

/// The control that shows a setting.
enum class SettingKind {
    Check,    ///< a switch
    Option,   ///< on where the setting is the option's text
    Position, ///< a list, of which the setting is the position
    Text,     ///< a line
    Choice,   ///< a line with a list; only what is picked there counts as an edit
    Printers, ///< the list of printers, by position
};

/// What is special about a field.
namespace setting_flag {
inline constexpr unsigned kQuiet = 1;       ///< an edit doesn't enable the button that applies
inline constexpr unsigned kKeepIfEmpty = 2; ///< an empty field leaves the stored text
inline constexpr unsigned kOtherwise = 4;   ///< the option for whatever is stored but the other option's text
inline constexpr unsigned kMillimetres = 8;
inline constexpr unsigned kFolder = 16; ///< names a folder, and has a button to browse for one
inline constexpr unsigned kSound = 32;  ///< names a sound file, and has buttons to browse and to play it
inline constexpr unsigned kOnWhereAbsent = 64;
inline constexpr unsigned kNeedsPrinter = 128; ///< disabled where there is none
inline constexpr unsigned kFontSize = 256;     ///< holds a number, or what was stored
} // namespace setting_flag

struct SettingField {
    SettingPage page;
    std::u16string_view frame; ///< its title; fields of one frame follow one another
    const char* name;          ///< of the control
    std::u16string_view label; ///< empty: the control stands behind the one before
    SettingKind kind;
    Setting setting;
    std::u16string_view option = {};
    std::optional<std::u16string_view> reset = std::nullopt; ///< as it is stored; nothing: left as it is
    unsigned flags = 0;
    const char* browse = nullptr; ///< name of the button

    bool Has(unsigned flag) const { return (flags & flag) != 0; }
};

/// All fields of the settings dialog, as they are laid out.
std::span<const SettingField> SettingFields();
/// Those of the dialog for the toolbars.
std::span<const SettingField> ToolBarFields();

} // namespace quillshift
