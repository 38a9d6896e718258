#pragma once

#include "commandbar/ItemMeasure.h"

#include <cstddef>
#include <optional>
#include <span>

namespace quillshift {

/// The place of an item in the bar, from 0; nothing for no item.
using ItemIndex = std::optional<std::size_t>;

/// An item that stands nowhere: no point is in it.
inline constexpr cDisplayButtonInfo kUnplacedItem{.Right = -1, .Bottom = -1};

constexpr bool IsPlaced(const cDisplayButtonInfo& item) {
    return item.Right > item.Left && item.Bottom > item.Top;
}
constexpr Rect AreaOf(const cDisplayButtonInfo& item) {
    return {item.Left, item.Top, item.Right, item.Bottom};
}

/// The first item that the point lies in, edges included: neighbours share an edge, and it is the former's.
ItemIndex HitTest(std::span<const cDisplayButtonInfo> items, Point at);

/// Whether a point on an item, by its x, is over the arrow part of a split button.
bool IsOverArrow(const ButtonRecord& button, const cDisplayButtonInfo& item, int x, bool rightToLeft);

} // namespace quillshift
