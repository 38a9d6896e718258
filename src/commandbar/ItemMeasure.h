#pragma once

#include "commandbar/cButtonInt.h"
#include "commandbar/cMeasureButtonParams.h"

#include <functional>
#include <span>

namespace quillshift {

/// The buttons of a bar in display order.
using BarButtons = std::span<const ButtonRecord* const>;

/// Answers the size of an item, in pixels; the layouts ask through it, so that sizes may be remembered.
using ItemMeasure = std::function<Size(const ButtonRecord&)>;

/// Size of a menu row or of an item on a toolbar, in pixels, however it is hidden or doubled.
Size MeasureItem(const ButtonRecord& button, const cMeasureButtonParams& params,
                 const TextMeasurer& measurer);

} // namespace quillshift
