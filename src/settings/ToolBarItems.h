#pragma once

#include "settings/Settings.h"

#include <string_view>
#include <vector>

namespace quillshift {

/// An item of a toolbar, as it is called where it is chosen.
struct ToolBarItem {
    std::u16string_view text;
    std::u16string_view picture; ///< a file among the small icons of toolbars; empty: none
};

/// The toolbars, to whom chooses what they show.
class ToolBarItems {
public:
    virtual ~ToolBarItems() = default;

    /// In the order in which they stand on the bar, which is that of their numbers in the store.
    virtual std::vector<ToolBarItem> Items(ItemBar bar) const = 0;
    /// The store holds other items, options or sizes: the bars follow, behind the present event.
    virtual void FollowStore() = 0;
};

} // namespace quillshift
