#pragma once

#include "commandbar/HitTest.h"

#include <vector>

namespace quillshift {

struct ToolbarLayout {
    std::vector<cDisplayButtonInfo> items; ///< one for each button; those not shown are unplaced
    int depth = 0;                         ///< extent across the bar that it has to take
    int length = 0;                        ///< extent along the bar that there was
    Rect more{}; ///< where the button stands that offers the hidden items; empty if there is nothing to offer
    /// Hidden items came back. At most one group does so in one layout: a bar that has become much longer
    /// is laid out again for as long as this is set.
    bool cameBack = false;
};

/// Extent along the bar of the button that offers the hidden items.
inline constexpr int kMoreLength = 15;

/// Lays out a main menu or a toolbar in the client area of the parameters. A main menu wraps to new rows. On
/// a toolbar too long for the area a whole group of buttons is hidden, from the end; where there is room
/// again, its items come back one by one.
/// `before`: the bar's former layout, with an item for each button; an empty one for a bar newly shown.
/// `depth`: what a toolbar's row along the top or bottom is deep; 0: as deep as its deepest item.
ToolbarLayout LayOutToolbar(BarButtons buttons, const cMeasureButtonParams& params,
                            const ToolbarLayout& before, const ItemMeasure& measure, int depth = 0);

/// Where the control of a panel item goes, which keeps its own height.
Rect PanelControlArea(const cDisplayButtonInfo& item, int controlHeight);

} // namespace quillshift
