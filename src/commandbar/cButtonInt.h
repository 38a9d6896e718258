#pragma once

#include "base/Colour.h"
#include "base/KeyedCollection.h"
#include "commandbar/BarTypes.h"
#include "commandbar/cMeasureButtonParams.h"
#include "platform/Keys.h"
#include "platform/WindowId.h"

#include <cstdint>
#include <optional>
#include <string>
#include <utility>

namespace quillshift {

class cCommandBarInt;
class PanelControl;

enum class ButtonStyle {
    Normal = 0,
    Separator = 1,
    Split = 2,
    Panel = 3,
    Check = 4,
    Radio = 5,
    RadioNullable = 6
};

/// State of a row in the add-or-remove list.
enum class CustomiseState { NotTicked = 0, Ticked = 1, PlainCommand = 2 };

/// The record of a button, which exists once however many bars it stands on. Read by layout and painting;
/// changed only through its handle, which announces each change.
struct ButtonRecord {
    int ItemMargin = 4;  ///< inner margin of a toolbar item, pixels
    int SplitWidth = 11; ///< width of the arrow part of a split item, pixels
    int MenuGap = 20;    ///< fixed part of a menu row's width, pixels
    std::string Key;
    std::u16string Caption;         ///< "&" marks the mnemonic
    int IconIndex = -1;             ///< 0-based in the bar's icon list; -1 none
    std::optional<Colour> ColorBox; ///< a swatch in the icon's place when there is no icon
    bool ShowCaptionInToolbar = false;
    bool ShowDropDownInToolbar = false;
    ButtonStyle Style = ButtonStyle::Normal;
    int PanelWidth = 16;
    PanelControl* Panel = nullptr; ///< not owned
    bool Enabled = true;
    bool Locked = false; ///< never becomes hot or pressed, painted as usual
    bool Visible = true;
    bool Infrequent = false;
    bool Checked = false;
    std::u16string ToolTip;
    std::int16_t ShortcutKey = 0; ///< virtual key code; 0 none
    int ShortcutModifiers = 0;
    cCommandBarInt* Bar = nullptr; ///< the sub-menu it opens; not owned
    quillshift::CustomiseState CustomiseState = quillshift::CustomiseState::PlainCommand;
    std::u16string Tag;
    std::int32_t itemData = 0;

    bool HasIcon() const { return IconIndex >= 0; }
    bool HasPicture() const { return HasIcon() || ColorBox.has_value(); }
    bool IsRadio() const { return Style == ButtonStyle::Radio || Style == ButtonStyle::RadioNullable; }
    /// Whether `Checked` means anything for its style.
    bool IsCheckable() const { return Style == ButtonStyle::Check || IsRadio(); }
    /// Whether the item can become hot and be clicked where it stands.
    bool IsSelectable(DisplayMode mode, Orientation orientation) const;
    /// Whether the key with this code is the one behind the caption's "&".
    bool HasMnemonic(int virtualKey) const;
    /// Such as "Ctrl+Shift+Del"; empty without a shortcut or for a key that has no name.
    std::u16string ShortcutText() const;
    /// The tool tip with the shortcut behind it.
    std::u16string FullToolTip() const;
};

/// A button as the model keeps it: the record and the ties to bars and windows, all of which the model keeps
/// tidy. Nothing here is owned.
class cButtonInt : public ButtonRecord {
public:
    explicit cButtonInt(std::string key) { Key = std::move(key); }
    cButtonInt(const cButtonInt&) = delete;
    cButtonInt& operator=(const cButtonInt&) = delete;

    mutable MeasureCache Measured;               ///< what measuring it gave; no part of what it is
    KeyedCollection<cCommandBarInt*> ParentBars; ///< by bar key: each bar that holds it
    /// By top-level window: the control that the button's shortcut reaches from there.
    KeyedCollection<WindowId> OwnerWindows;
};

} // namespace quillshift
