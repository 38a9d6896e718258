#pragma once

#include "commandbar/BarTypes.h"
#include "commandbar/cButtonInt.h"

namespace quillshift {

/// Whether the pointer or a key can act on a button where it stands.
inline bool IsSelectable(const ButtonRecord& button, DisplayMode mode, Orientation orientation) {
    if (mode == DisplayMode::AddOrRemoveList && button.CustomiseState != CustomiseState::PlainCommand)
        return true;
    if (button.Style == ButtonStyle::Separator || button.Locked || !button.Visible || !button.Enabled)
        return false;
    if (button.Style == ButtonStyle::Panel)
        return !IsMenu(mode) && IsUpright(orientation) && button.HasIcon();
    return true;
}

} // namespace quillshift
