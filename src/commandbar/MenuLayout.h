#pragma once

#include "commandbar/HitTest.h"

#include <vector>

namespace quillshift {

struct MenuLayout {
    std::vector<cDisplayButtonInfo> items; ///< one for each button; those not shown are unplaced
    Size size;                             ///< that the popup has to take
};

/// Whether a menu leaves out the buttons that are `Infrequent`.
enum class Infrequent { Shown, LeftOut };

/// Lays out a popup menu or the add-or-remove list: rows from top to bottom, with every run of three or more
/// buttons without caption as a grid of eight columns (in a popup menu only).
MenuLayout LayOutMenu(BarButtons buttons, const cMeasureButtonParams& params, Infrequent infrequent,
                      const ItemMeasure& measure);

} // namespace quillshift
