#pragma once

#include "base/Geometry.h"

namespace quillshift {

/// Where a window is to stand so that it doesn't hide `shown`, with the least way: above it or below,
/// or else beside. Where it doesn't hide it, or has no room inside `area` that would help, it stays. All with
/// the same origin; `window` with its frame.
Rect PlaceAside(const Rect& window, const Rect& shown, const Rect& area);

} // namespace quillshift
