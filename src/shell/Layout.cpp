#include "shell/Layout.h"

#include <algorithm>
#include <array>

namespace quillshift {

std::optional<MainView::EditorLayout> LayOutEditor(Twips height, Twips width,
                                                   std::u16string_view useLargeIcons, int barsShown) {
    // What the outer height has over that of `picEditor`, by the number of bars shown.
    constexpr std::array<Twips, 3> kSmall{870_twips, 1275_twips, 1680_twips};
    constexpr std::array<Twips, 3> kLarge{870_twips, 1385_twips, 1890_twips};
    if (useLargeIcons != u"0" && useLargeIcons != u"1")
        return std::nullopt;
    const auto& above = useLargeIcons == u"1" ? kLarge : kSmall;
    const auto less = [](Twips all, Twips part) { return std::max(all - part, 0_twips); };
    const Twips editor = less(height, above[static_cast<std::size_t>(std::clamp(barsShown, 0, 2))]);
    return MainView::EditorLayout{.picEditorHeight = editor,
                                  .shapeHeight = less(editor, 120_twips),
                                  .shapeWidth = less(width, 240_twips),
                                  .surfaceHeight = less(editor, 180_twips),
                                  .surfaceWidth = less(width, 310_twips)};
}

TwipsRect WithinReach(const TwipsRect& bounds, const std::vector<TwipsRect>& workAreas) {
    constexpr Twips kGrip = 1500_twips; // enough of the title to take hold of
    const auto reached = [&](const TwipsRect& area) {
        return bounds.left + bounds.width >= area.left + kGrip &&
               bounds.left + kGrip <= area.left + area.width && bounds.top >= area.top &&
               bounds.top + kGrip <= area.top + area.height;
    };
    if (workAreas.empty() || std::any_of(workAreas.begin(), workAreas.end(), reached))
        return bounds;
    return {workAreas.front().left, workAreas.front().top, bounds.width, bounds.height};
}

} // namespace quillshift
