#include "base/Placing.h"

#include <algorithm>

namespace quillshift {

TwipsRect CentredIn(const TwipsRect& area, Twips width, Twips height) {
    width = std::min(width, area.width);
    height = std::min(height, area.height);
    return {area.left + area.width / 2 - width / 2, area.top + area.height / 2 - height / 2, width, height};
}

TwipsRect WithinReach(const TwipsRect& bounds, const std::vector<TwipsRect>& workAreas) {
    constexpr Twips kGrip = 1500_twips; // enough of the title to take hold of
    const auto acrossReached = [&](const TwipsRect& area) {
        return bounds.left + bounds.width >= area.left + kGrip &&
               bounds.left + kGrip <= area.left + area.width;
    };
    const auto downReached = [&](const TwipsRect& area) {
        return bounds.top >= area.top && bounds.top + kGrip <= area.top + area.height;
    };
    const auto isReached = [&](const TwipsRect& area) { return acrossReached(area) && downReached(area); };
    if (workAreas.empty() || std::any_of(workAreas.begin(), workAreas.end(), isReached))
        return bounds;
    // The monitor that has it beside or above it, else the first.
    auto nearest = std::find_if(workAreas.begin(), workAreas.end(), acrossReached);
    if (nearest == workAreas.end())
        nearest = std::find_if(workAreas.begin(), workAreas.end(), downReached);
    const TwipsRect& area = nearest == workAreas.end() ? workAreas.front() : *nearest;
    return {acrossReached(area) ? bounds.left : area.left, downReached(area) ? bounds.top : area.top,
            bounds.width, bounds.height};
}

} // namespace quillshift
