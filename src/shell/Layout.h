#pragma once

#include "base/Placing.h"
#include "platform/Timer.h"
#include "settings/Settings.h"
#include "shell/MainBars.h"

#include <memory>
#include <vector>

namespace quillshift {

/// The design's own frame: what its outer size has over the client area, whatever a window manager adds. The
/// width is two borders; the height is such that the text area ends at the client's edge under a menu of one
/// row.
inline constexpr Twips kFrameWidth = 120_twips;
inline constexpr Twips kMenuRowHeight = 315_twips;
inline constexpr Twips kFrameHeight = 840_twips - kMenuRowHeight;

/// Client area of the design.
inline constexpr Twips kDesignWidth = 11580_twips;
inline constexpr Twips kDesignHeight = 8685_twips;

/// The smallest client area: every difference of the layout is positive, and the menu is in sight.
inline constexpr Twips kLeastWidth = 6000_twips;
inline constexpr Twips kLeastHeight = 3000_twips;

/// The sizes for a window's outer height and width, by the size of the icons and by how many of the two
/// toolbars are shown (0 to 2).
MainView::EditorLayout LayOutEditor(Twips height, Twips width, ToolBarIcons icons, int barsShown);

/// Where the main window first opens: at the size of the design in the middle of the first work area, or
/// smaller where that is.
TwipsRect FirstPlace(const std::vector<TwipsRect>& workAreas);

/// Keeps the text area of the main window at the size that its bars leave.
class MainLayout {
public:
    MainLayout(MainView& window, MainBars& bars, Settings& settings, Timers& timers);

    /// A minimised window is left alone.
    void LayOut();
    /// The same, behind the present event.
    void LayOutSoon() { timerUpdate_->StartOnce(); }

private:
    MainView& window_;
    MainBars& bars_;
    Settings& settings_;
    std::unique_ptr<Timer> timerUpdate_;
};

} // namespace quillshift
