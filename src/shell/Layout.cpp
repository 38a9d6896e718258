#include "shell/Layout.h"

#include <algorithm>
#include <array>

namespace quillshift {

MainView::EditorLayout LayOutEditor(Twips height, Twips width, ToolBarIcons icons, int barsShown) {
    // What the outer height has over that of `picEditor`, by the number of bars shown.
    constexpr std::array<Twips, 3> kSmall{870_twips, 1275_twips, 1680_twips};
    constexpr std::array<Twips, 3> kLarge{870_twips, 1385_twips, 1890_twips};
    const auto& above = icons == ToolBarIcons::Large ? kLarge : kSmall;
    const auto less = [](Twips all, Twips part) { return std::max(all - part, 0_twips); };
    const Twips editor = less(height, above[static_cast<std::size_t>(std::clamp(barsShown, 0, 2))]);
    return MainView::EditorLayout{.picEditorHeight = editor,
                                  .shapeHeight = less(editor, 120_twips),
                                  .shapeWidth = less(width, 240_twips),
                                  .surfaceHeight = less(editor, 180_twips),
                                  .surfaceWidth = less(width, 310_twips)};
}

TwipsRect FirstPlace(const std::vector<TwipsRect>& workAreas) {
    const Twips width = kDesignWidth + kFrameWidth;
    const Twips height = kDesignHeight + kFrameHeight;
    return workAreas.empty() ? TwipsRect{{}, {}, width, height} : CentredIn(workAreas.front(), width, height);
}

MainLayout::MainLayout(MainView& window, MainBars& bars, Settings& settings, Timers& timers)
    : window_(window), bars_(bars), settings_(settings), timerUpdate_(timers.Make([this] { LayOut(); })) {}

void MainLayout::LayOut() {
    if (window_.State() == WindowState::Minimised)
        return;
    const TwipsRect bounds = window_.Bounds();
    const ToolBarIcons icons =
        settings_.Is(Setting::UseLargeIcons) ? ToolBarIcons::Large : ToolBarIcons::Small;
    int shown = 0;
    Twips more = bars_.Height(0) - kMenuRowHeight; // than the design has them
    for (const int bar : {1, 2})
        if (bars_.IsShown(bar)) {
            ++shown;
            more = more + std::max(bars_.Height(bar) - ToolBarHeight(icons), 0_twips);
        }
    window_.LayOut(LayOutEditor(bounds.height - more, bounds.width, icons, shown));
}

} // namespace quillshift
