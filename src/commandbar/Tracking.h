#pragma once

#include "commandbar/HitTest.h"

#include <vector>

namespace quillshift {

/// What tracking has to know of a control, besides the state of its items.
struct TrackedBar {
    BarButtons buttons;
    DisplayMode mode = DisplayMode::Toolbar;
    quillshift::Orientation orientation = quillshift::Orientation::Top;
    bool rightToLeft = false;
};

/// What a step of tracking did.
struct Tracked {
    std::vector<std::size_t> changed; ///< items to repaint, in bar order
    ItemIndex hit;                    ///< under the pointer, selectable or not
    ItemIndex hot;                    ///< while there is one the pointer has to be watched for leaving
    bool isNew = false;               ///< `hot` is another one than before
    ItemIndex droppedDown;            ///< a split item whose arrow was pressed
    ItemIndex clicked;                ///< an item that was pressed and released
};

/// The pointer is at a point of the client area. Only a selectable item becomes hot; leaving an item also
/// ends its press.
Tracked TrackMove(std::vector<cDisplayButtonInfo>& items, const TrackedBar& bar, Point at);
/// The left button went down.
Tracked TrackPress(std::vector<cDisplayButtonInfo>& items, const TrackedBar& bar, Point at);
/// The left button went up.
Tracked TrackRelease(std::vector<cDisplayButtonInfo>& items, const TrackedBar& bar, Point at);
/// A key makes an item hot, selectable or not; nothing takes all heat away.
Tracked TrackTo(std::vector<cDisplayButtonInfo>& items, ItemIndex hot);

/// The item that the pointer or a key has made hot.
ItemIndex HotItem(std::span<const cDisplayButtonInfo> items);
/// The item that keys act on: the first that is hot or shows its menu.
ItemIndex CurrentItem(std::span<const cDisplayButtonInfo> items);

/// What a click on an item has to bring about, in this order.
struct ClickOutcome {
    bool ticksRow = false;     ///< the row repaints and the button's `Visible` follows its new tick
    bool endsMenuMode = false; ///< all popups close
    bool opensBar = false;     ///< its sub-bar opens
    bool raisesClick = false;  ///< `ButtonClick` is raised, after the bar has applied the click

    bool operator==(const ClickOutcome&) const = default;
};
ClickOutcome OutcomeOfClick(const ButtonRecord& button, const cDisplayButtonInfo& item, DisplayMode mode,
                            bool menuMode);

} // namespace quillshift
