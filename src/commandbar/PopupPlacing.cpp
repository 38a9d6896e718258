#include "commandbar/PopupPlacing.h"

#include "commandbar/cMonitor.h"

#include <algorithm>

namespace quillshift {
namespace {

// How far a popup overlaps the item that it has flipped to the other side of.
constexpr int kFlipOverlap = 2;

PopupDirection RowDirection(const PopupOpening& opening) {
    if (opening.parentDirection == PopupDirection::Right || opening.parentDirection == PopupDirection::Left)
        return opening.parentDirection;
    return opening.rightToLeft ? PopupDirection::Left : PopupDirection::Right;
}

// The left edge of a popup beside the row that opens it.
int BesideRow(const PopupOpening& opening, PopupDirection direction) {
    return direction == PopupDirection::Left ? opening.item.left - opening.size.width + 1
                                             : opening.item.right - 1;
}

PopupPlace FirstPlace(const PopupOpening& opening) {
    const Rect& item = opening.item;
    const int width = opening.size.width;
    const int margin = opening.systemStyle ? 2 : 0;
    const int inset = opening.systemStyle ? 1 : 0;
    const auto at = [&opening](int left, int top) {
        return RectAt(left, top, opening.size.width, opening.size.height);
    };
    const int tall = item.bottom - item.top - 1;
    switch (opening.from) {
    case PopupOpener::FreePoint:
        break;
    case PopupOpener::PopupRow: {
        const PopupDirection direction = RowDirection(opening);
        return {.rect = at(BesideRow(opening, direction), item.top - 1), .direction = direction};
    }
    case PopupOpener::LeftBar:
        return {at(item.right - margin, item.top + inset), PopupDirection::Right, item.top, tall};
    case PopupOpener::RightBar:
        return {at(item.left + margin - width, item.top + inset), PopupDirection::Left, item.top, tall};
    case PopupOpener::TopOrBottomBar:
        if (opening.rightToLeft)
            return {at(item.right - inset - width, item.bottom - margin), PopupDirection::Below,
                    item.right + 1, item.right - item.left};
        return {at(item.left + inset, item.bottom - margin), PopupDirection::Below, item.left,
                item.right - item.left - 1};
    }
    return {.rect = at(opening.at.x, opening.at.y)};
}

void MoveTo(Rect& rect, int left, int top) {
    rect = RectAt(left, top, rect.Width(), rect.Height());
}

void FitVertically(PopupPlace& place, const PopupOpening& opening, const Rect& area) {
    Rect& rect = place.rect;
    if (rect.bottom > area.bottom) {
        if (opening.from == PopupOpener::TopOrBottomBar) {
            MoveTo(rect, rect.left, opening.item.top + kFlipOverlap - rect.Height());
            place.direction = PopupDirection::Above;
        } else {
            MoveTo(rect, rect.left, area.bottom - rect.Height());
        }
    }
    MoveTo(rect, rect.left, std::max(rect.top, area.top));
}

void FitHorizontally(PopupPlace& place, const PopupOpening& opening, const Rect& area) {
    Rect& rect = place.rect;
    const bool overRight = rect.right > area.right;
    const bool overLeft = rect.left < area.left;
    const auto turn = [&](PopupDirection direction, int left) {
        place.direction = direction;
        MoveTo(rect, left, rect.top);
    };
    switch (opening.from) {
    case PopupOpener::PopupRow:
        if (overRight || overLeft) {
            const auto other =
                place.direction == PopupDirection::Right ? PopupDirection::Left : PopupDirection::Right;
            turn(other, BesideRow(opening, other));
        }
        break;
    case PopupOpener::LeftBar:
        if (overRight)
            turn(PopupDirection::Left, opening.item.left + kFlipOverlap - rect.Width());
        break;
    case PopupOpener::RightBar:
        if (overLeft)
            turn(PopupDirection::Right, opening.item.right - kFlipOverlap);
        break;
    case PopupOpener::TopOrBottomBar:
        if (overRight)
            MoveTo(rect, area.right - rect.Width(), rect.top);
        break;
    case PopupOpener::FreePoint: // no item to stay in touch with: it is kept in sight
        MoveTo(rect, std::max(std::min(rect.left, area.right - rect.Width()), area.left), rect.top);
        break;
    }
}

} // namespace

PopupPlace PlacePopup(const PopupOpening& opening, std::span<const MonitorInfo> monitors,
                      const Rect& wholeScreen) {
    PopupPlace place = FirstPlace(opening);
    if (opening.systemStyle)
        place.anchorPosition = kNoAnchor;
    cMonitor monitor = cMonitor::CreateFromHandle(monitors, opening.parentMonitor);
    if (!monitor.Exists())
        monitor = cMonitor::CreateFromPoint(monitors, {place.rect.left, place.rect.top});
    place.monitor = monitor.hMonitor;
    const Rect area = monitor.Exists() ? monitor.WorkArea() : wholeScreen;
    FitVertically(place, opening, area);
    FitHorizontally(place, opening, area);
    return place;
}

} // namespace quillshift
