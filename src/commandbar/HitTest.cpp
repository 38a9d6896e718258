#include "commandbar/HitTest.h"

namespace quillshift {

ItemIndex HitTest(std::span<const cDisplayButtonInfo> items, Point at) {
    for (std::size_t i = 0; i < items.size(); ++i) {
        const cDisplayButtonInfo& item = items[i];
        if (at.x >= item.Left && at.x <= item.Right && at.y >= item.Top && at.y <= item.Bottom)
            return i;
    }
    return std::nullopt;
}

bool IsOverArrow(const ButtonRecord& button, const cDisplayButtonInfo& item, int x, bool rightToLeft) {
    if (button.Style != ButtonStyle::Split)
        return false;
    const int within = x - item.Left;
    return rightToLeft ? within < button.SplitWidth : within > item.Right - item.Left - button.SplitWidth;
}

} // namespace quillshift
