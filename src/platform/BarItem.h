#pragma once

#include "base/Geometry.h"

#include <string>
#include <vector>

namespace quillshift {

/// The keys of the items that lead from a bar to one of its items, that item's own last.
using BarPath = std::vector<std::string>;

enum class BarRole { MenuBar, ToolBar, Menu };

/// An item of a bar, as those are told of it who do not see it.
struct BarItem {
    std::string key;
    std::u16string name;
    std::u16string description; ///< empty where the name says it all
    std::u16string shortcut;
    Rect place; ///< on the screen; empty while it is not shown
    bool enabled = true;
    bool checkable = false;
    bool checked = false;
    bool hot = false;
    bool opensMenu = false;
    bool menuOpen = false;
};

} // namespace quillshift
