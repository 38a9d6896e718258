#pragma once

#include "base/Geometry.h"
#include "commandbar/BarTypes.h"
#include "platform/Monitor.h"

#include <span>

namespace quillshift {

/// What a popup opens from.
enum class PopupOpener { FreePoint, PopupRow, LeftBar, RightBar, TopOrBottomBar };
/// The opener that an item on a bar along an edge is.
constexpr PopupOpener BarOpener(Orientation edge) {
    if (edge == Orientation::Left)
        return PopupOpener::LeftBar;
    return edge == Orientation::Right ? PopupOpener::RightBar : PopupOpener::TopOrBottomBar;
}

/// A popup about to open. Places are screen pixels.
struct PopupOpening {
    PopupOpener from = PopupOpener::FreePoint;
    Size size{}; ///< of the popup, as its layout gave it
    Point at{};  ///< of a free popup: its top left corner
    Rect item{}; ///< the opening item, by its `Left`, `Top`, `Right` and `Bottom`
    PopupDirection parentDirection = PopupDirection::Below; ///< of the popup that a row belongs to
    int parentMonitor = 0;                                  ///< handle; 0 if the parent has none
    bool rightToLeft = false;
    bool systemStyle = false;
};

/// The anchor position of a popup whose border has no gap.
inline constexpr int kNoAnchor = -3000;

/// Where a popup stands, and the gap in its border: the opening item's extent along the touching edge.
struct PopupPlace {
    Rect rect{};
    PopupDirection direction = PopupDirection::Below;
    int anchorPosition = kNoAnchor;
    int anchorSize = 0;
    int monitor = 0; ///< handle; 0 if it stands on none

    bool operator==(const PopupPlace&) const = default;
};

/// Places a popup and fits it into the work area of the parent's monitor, or else of the monitor it comes to
/// stand on, or else into `wholeScreen`.
PopupPlace PlacePopup(const PopupOpening& opening, std::span<const MonitorInfo> monitors,
                      const Rect& wholeScreen);

} // namespace quillshift
