#pragma once

#include <cstdint>
#include <string>

namespace quillshift {

/// A handle of a window, given by the window system; 0 is none.
using WindowId = std::int32_t;

/// The key of a window in the toolkit's collections.
inline std::string WindowKey(WindowId window) {
    return "H" + std::to_string(window);
}

} // namespace quillshift
