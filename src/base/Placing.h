#pragma once

#include "base/Twips.h"

#include <vector>

namespace quillshift {

/// A rectangle no larger than an area, in its middle.
TwipsRect CentredIn(const TwipsRect& area, Twips width, Twips height);

/// A window's rectangle, moved so that its title can be reached on one of the monitors. A side that is in
/// reach stays where it is.
TwipsRect WithinReach(const TwipsRect& bounds, const std::vector<TwipsRect>& workAreas);

} // namespace quillshift
