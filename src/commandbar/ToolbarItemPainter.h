#pragma once

#include "commandbar/cButtonInt.h"
#include "commandbar/cDrawButtonParams.h"
#include "commandbar/mCommandBarUtility.h"

namespace quillshift {

/// Paints an item of a main menu or toolbar over the bar's background.
void PaintToolbarItem(Surface& surface, const mCommandBarColours& colours, const ButtonRecord& button,
                      const cDrawButtonParams& item);

} // namespace quillshift
