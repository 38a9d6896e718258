#pragma once

#include "commandbar/cButtonInt.h"
#include "commandbar/cDrawButtonParams.h"
#include "commandbar/mCommandBarUtility.h"

#include <string_view>

namespace quillshift {

/// Width of the column that the add-or-remove list has for its ticks, before that of the icons; in pixels.
constexpr int TickColumnWidth(DisplayMode mode, int iconWidth) {
    return mode == DisplayMode::AddOrRemoveList ? iconWidth + 2 : 0;
}

/// Paints a row of a popup over the popup's frame.
void PaintMenuRow(Surface& surface, const mCommandBarColours& colours, const ButtonRecord& button,
                  const cDrawButtonParams& item);

} // namespace quillshift
