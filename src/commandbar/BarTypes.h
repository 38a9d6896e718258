#pragma once

#include "base/Geometry.h"
#include "platform/WindowId.h"

namespace quillshift {

/// How a control shows its bar.
enum class DisplayMode { PopupMenu = 1, AddOrRemoveList = 2, MainMenu = 3, Toolbar = 4 };
constexpr bool IsMenu(DisplayMode mode) {
    return mode == DisplayMode::PopupMenu || mode == DisplayMode::AddOrRemoveList;
}

/// The edge of the window a bar lies along.
enum class Orientation { Top = 0, Left = 1, Right = 2, Bottom = 3 };
constexpr bool IsUpright(Orientation orientation) {
    return orientation == Orientation::Left || orientation == Orientation::Right;
}

/// The side of its opener that a popup opens to.
enum class PopupDirection { Below = 0, Right = 1, Left = 2, Above = 3 };

enum class TextPosition { BesideIcon = 0, BelowIcon = 1 };

/// One item of a bar as it stands in a control: its place in client pixels and what the pointer does to it.
/// Both ends of `Left`..`Right` and `Top`..`Bottom` belong to it.
struct cDisplayButtonInfo {
    int Left = 0;
    int Top = 0;
    int Right = 0;
    int Bottom = 0;
    bool MouseDown = false;      ///< left button pressed on the main part
    bool MouseOver = false;      ///< hot
    bool MouseOverSplit = false; ///< pointer over the arrow part of a split item
    bool MouseDownSplit = false;
    bool ShowingMenu = false; ///< its sub-bar is open
    WindowId MenuWindow = 0;  ///< window of that popup
    bool Hidden = false;      ///< pushed out of the bar for lack of room

    bool operator==(const cDisplayButtonInfo&) const = default;
};

} // namespace quillshift
