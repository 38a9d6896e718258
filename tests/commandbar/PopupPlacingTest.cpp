#include "commandbar/PopupPlacing.h"
#include "commandbar/cMonitor.h"

#include <gtest/gtest.h>

namespace quillshift {

namespace {

using enum PopupOpener;
using enum PopupDirection;

const std::vector<MonitorInfo> kMonitors{
    {.handle = 1,
     .name = u"left",
     .bounds = {0, 0, 1000, 800},
     .workArea = {0, 0, 1000, 760},
     .primary = true},
    {.handle = 2, .name = u"right", .bounds = {1000, 0, 1800, 600}, .workArea = {1000, 20, 1800, 600}}};
constexpr Rect kWholeScreen{0, 0, 1800, 800};
constexpr Size kSize{100, 200};

struct Case {
    const char* what;
    PopupOpening opening;
    PopupPlace place;
};

TEST(PopupPlacing, StandsWhereItsOpenerWantsItAndFits) {
    constexpr Rect kRow{100, 50, 220, 72};
    const PopupPlace toTheRight{.rect = {219, 49, 319, 249}, .direction = Right, .monitor = 1};
    const PopupPlace toTheLeft{.rect = {1, 49, 101, 249}, .direction = Left, .monitor = 1};
    // clang-format off
    const std::vector<Case> cases{
        // below a bar, or above it
        {"below", {.from = TopOrBottomBar, .item = {10, 5, 60, 27}}, {{10, 27, 110, 227}, Below, 10, 49, 1}},
        {"system style", {.from = TopOrBottomBar, .item = {10, 5, 60, 27}, .systemStyle = true}, {{11, 25, 111, 225}, Below, kNoAnchor, 49, 1}},
        {"right to left", {.from = TopOrBottomBar, .item = {210, 5, 260, 27}, .rightToLeft = true}, {{160, 27, 260, 227}, Below, 261, 50, 1}},
        {"right to left, system style", {.from = TopOrBottomBar, .item = {210, 5, 260, 27}, .rightToLeft = true, .systemStyle = true}, {{159, 25, 259, 225}, Below, kNoAnchor, 50, 1}},
        {"near the bottom", {.from = TopOrBottomBar, .item = {10, 700, 60, 722}}, {{10, 502, 110, 702}, Above, 10, 49, 1}},
        {"just fits", {.from = TopOrBottomBar, .item = {10, 538, 60, 560}}, {{10, 560, 110, 760}, Below, 10, 49, 1}},
        {"fits on neither side", {.from = TopOrBottomBar, .size = {100, 750}, .item = {10, 300, 60, 322}}, {{10, 0, 110, 750}, Above, 10, 49, 1}},
        {"near the right edge", {.from = TopOrBottomBar, .item = {950, 5, 990, 27}}, {{900, 27, 1000, 227}, Below, 950, 39, 1}},
        {"beyond the left edge", {.from = TopOrBottomBar, .item = {10, 5, 60, 27}, .rightToLeft = true}, {{-40, 27, 60, 227}, Below, 61, 50, 0}},
        {"at the right edge of the second monitor", {.from = TopOrBottomBar, .item = {1750, 30, 1790, 52}}, {{1700, 52, 1800, 252}, Below, 1750, 39, 2}},
        {"near the bottom of the second monitor", {.from = TopOrBottomBar, .item = {1100, 500, 1150, 522}}, {{1100, 302, 1200, 502}, Above, 1100, 49, 2}},
        // beside an upright bar, on either side
        {"left bar", {.from = LeftBar, .item = {0, 100, 24, 124}}, {{24, 100, 124, 300}, Right, 100, 23, 1}},
        {"left bar, system style", {.from = LeftBar, .item = {0, 100, 24, 124}, .systemStyle = true}, {{22, 101, 122, 301}, Right, kNoAnchor, 23, 1}},
        {"left bar near the right edge", {.from = LeftBar, .item = {950, 100, 974, 124}}, {{852, 100, 952, 300}, Left, 100, 23, 1}},
        {"left bar near the bottom", {.from = LeftBar, .item = {0, 700, 24, 724}}, {{24, 560, 124, 760}, Right, 700, 23, 1}},
        {"right bar", {.from = RightBar, .item = {976, 100, 1000, 124}}, {{876, 100, 976, 300}, Left, 100, 23, 1}},
        {"right bar, system style", {.from = RightBar, .item = {976, 100, 1000, 124}, .systemStyle = true}, {{878, 101, 978, 301}, Left, kNoAnchor, 23, 1}},
        {"right bar near the left edge", {.from = RightBar, .item = {20, 100, 44, 124}}, {{42, 100, 142, 300}, Right, 100, 23, 0}},
        // on the side of its parent
        {"from a menu below its bar", {.from = PopupRow, .item = kRow}, toTheRight},
        {"right to left", {.from = PopupRow, .item = kRow, .rightToLeft = true}, toTheLeft},
        {"parent to the left", {.from = PopupRow, .item = kRow, .parentDirection = Left}, toTheLeft},
        {"parent to the right, right to left", {.from = PopupRow, .item = kRow, .parentDirection = Right, .rightToLeft = true}, toTheRight},
        {"system style", {.from = PopupRow, .item = kRow, .systemStyle = true}, toTheRight},
        {"near the right edge", {.from = PopupRow, .item = {850, 50, 970, 72}}, {.rect = {751, 49, 851, 249}, .direction = Left, .monitor = 1}},
        {"near the left edge", {.from = PopupRow, .item = {50, 50, 170, 72}, .parentDirection = Left, .parentMonitor = 1}, {.rect = {169, 49, 269, 249}, .direction = Right, .monitor = 1}},
        {"near the bottom", {.from = PopupRow, .item = {100, 700, 220, 722}}, {.rect = {219, 560, 319, 760}, .direction = Right, .monitor = 1}},
        {"kept on the parent's monitor", {.from = PopupRow, .item = {880, 50, 1001, 72}, .parentMonitor = 1}, {.rect = {781, 49, 881, 249}, .direction = Left, .monitor = 1}},
        {"on the monitor it comes to stand on", {.from = PopupRow, .item = {880, 50, 1001, 72}}, {.rect = {1000, 49, 1100, 249}, .direction = Right, .monitor = 2}},
        // free, but in sight
        {"where it was asked for", {.at = {300, 400}}, {.rect = {300, 400, 400, 600}, .monitor = 1}},
        {"in the corner", {.at = {950, 700}}, {.rect = {900, 560, 1000, 760}, .monitor = 1}},
        {"off the screen", {.at = {-20, -30}, .parentMonitor = 1}, {.rect = {0, 0, 100, 200}, .monitor = 1}},
        {"under a panel at the top", {.at = {1200, 5}}, {.rect = {1200, 20, 1300, 220}, .monitor = 2}},
    };
    // clang-format on
    for (Case c : cases) {
        if (c.opening.size == Size{})
            c.opening.size = kSize;
        EXPECT_EQ(PlacePopup(c.opening, kMonitors, kWholeScreen), c.place) << c.what;
    }
}

TEST(cMonitorTest, IsFoundByWhatLiesOnIt) {
    std::vector<MonitorInfo> monitors = kMonitors;
    monitors[1].name = std::u16string(u"right\0rest", 10);
    const cMonitor second = cMonitor::CreateFromPoint(monitors, {1000, 0});
    EXPECT_EQ(second.Name, u"right");
    EXPECT_EQ(second.WorkArea(), (Rect{1000, 20, 1800, 600}));
    EXPECT_FALSE(second.IsPrimary);
    EXPECT_EQ(cMonitor::CreateFromPoint(monitors, {999, 799}).hMonitor, 1);
    EXPECT_EQ(cMonitor::CreateFromWindow(monitors, {900, 0, 1200, 100}).hMonitor, 2);
    EXPECT_EQ(cMonitor::CreateFromWindow(monitors, {700, 0, 1200, 100}).hMonitor, 1);
    for (const cMonitor& none : {cMonitor::CreateFromPoint(monitors, {1000, 700}),
                                 cMonitor::CreateFromWindow(monitors, {1100, 600, 1200, 700})}) {
        EXPECT_FALSE(none.Exists());
        EXPECT_EQ(none.WorkArea(), Rect{});
    }
}

} // namespace
} // namespace quillshift
