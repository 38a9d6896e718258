#pragma once

#include "base/Geometry.h"

#include <string>

namespace quillshift {

/// One monitor as the window system lists it; places in screen pixels.
struct MonitorInfo {
    int handle = 0;      ///< never 0 for a real monitor
    std::u16string name; ///< up to the first NUL, if it holds one
    Rect bounds;
    Rect workArea; ///< the bounds less the desktop's panels
    bool primary = false;
};

} // namespace quillshift
