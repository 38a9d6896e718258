#pragma once

#include "commandbar/ColourSlots.h"
#include "commandbar/cButtonInt.h"
#include "commandbar/cDrawButtonParams.h"

#include <optional>

namespace quillshift {

enum class ItemEdge { None, Plain, TwoParts };

/// How the state of a toolbar item shows.
struct ToolbarItemLook {
    std::optional<Slot> fill; ///< start of a pair
    ItemEdge edge = ItemEdge::None;
    bool lit = false;
    bool hotArrow = false; ///< the arrow part is filled as hot over the rest
};

ToolbarItemLook LookOf(const ButtonRecord& button, const cDrawButtonParams& item, BarStyle style);

/// Whether the item has a part with a drop arrow.
bool HasArrowPart(const ButtonRecord& button);
/// That part, inside the item's outermost pixels.
Rect ArrowPartOf(const ButtonRecord& button, const cDrawButtonParams& item);

/// Whether the icon alone shows the item's state, as in the dark style with a caption beside it.
bool OnlyIconShowsState(const ButtonRecord& button, const cDrawButtonParams& item, BarStyle style);

/// State of a part of the theme's class "TOOLBAR".
enum class ThemeState { Normal = 1, Hot = 2, Pressed = 3, Disabled = 4, Checked = 5, HotChecked = 6 };
ThemeState ThemeStateOf(const ButtonRecord& button, const cDrawButtonParams& item);
ThemeState ThemeStateOfArrow(const ButtonRecord& button, const cDrawButtonParams& item);

} // namespace quillshift
