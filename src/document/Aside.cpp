#include "document/Aside.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <limits>

namespace quillshift {
namespace {

constexpr int kGap = 8;
constexpr std::size_t kAboveAndBelow = 2;

bool Meet(const Rect& a, const Rect& b) {
    return a.left < b.right && b.left < a.right && a.top < b.bottom && b.top < a.bottom;
}

bool IsInside(const Rect& inner, const Rect& outer) {
    return inner.left >= outer.left && inner.top >= outer.top && inner.right <= outer.right &&
           inner.bottom <= outer.bottom;
}

// How far a span is to be moved to lie between two edges; to the first of them where it has no room.
int WayInto(int begin, int end, int first, int last) {
    return std::max(std::min(0, last - end), first - begin);
}

} // namespace

Rect PlaceAside(const Rect& window, const Rect& shown, const Rect& area) {
    Rect best = window;
    if (shown.IsEmpty() || !Meet(window, shown))
        return best;
    const int across = WayInto(window.left, window.right, area.left, area.right);
    const int down = WayInto(window.top, window.bottom, area.top, area.bottom);
    const std::array<Point, 4> ways{{{across, shown.bottom + kGap - window.top},
                                     {across, shown.top - kGap - window.bottom},
                                     {shown.right + kGap - window.left, down},
                                     {shown.left - kGap - window.right, down}}};
    int shortest = std::numeric_limits<int>::max();
    for (std::size_t i = 0; i < ways.size(); ++i) {
        const Rect place = window.MovedBy(ways[i].x, ways[i].y);
        const int length = std::abs(ways[i].x) + std::abs(ways[i].y);
        const bool hidesTheLine = i >= kAboveAndBelow; // which a reader wants to see, too
        if (!IsInside(place, area) || length >= shortest || (hidesTheLine && best != window))
            continue;
        best = place;
        shortest = length;
    }
    return best;
}

} // namespace quillshift
