#include "commandbar/MenuLayout.h"
#include "commandbar/PopupPlacing.h"
#include "commandbar/ToolbarLayout.h"
#include "commandbar/cMonitor.h"
#include "support/FakeBarControl.h"

#include <gtest/gtest.h>

namespace quillshift {
namespace {

using Rects = std::vector<Rect>;

cMeasureButtonParams Params(DisplayMode mode, int width = 0, Orientation orientation = Orientation::Top) {
    cMeasureButtonParams params;
    params.Mode = mode;
    params.Orientation = orientation;
    (IsUpright(orientation) ? params.Height : params.Width) = width;
    return params;
}

Rects Areas(const std::vector<cDisplayButtonInfo>& items) {
    Rects areas;
    for (const cDisplayButtonInfo& item : items)
        areas.push_back(IsPlaced(item) ? AreaOf(item) : Rect{});
    return areas;
}

// One letter for each item: its own if it is shown, else a dot.
std::string Shown(const ToolbarLayout& layout) {
    std::string text;
    for (std::size_t i = 0; i < layout.items.size(); ++i)
        text += IsPlaced(layout.items[i]) ? static_cast<char>('a' + i) : '.';
    return text;
}

MenuLayout LayOut(const TestBar& bar, const cMeasureButtonParams& params,
                  Infrequent infrequent = Infrequent::Shown) {
    return LayOutMenu(bar.Buttons(), params, infrequent, FixedPitchMeasure(params));
}

// A bar as its control keeps it, between one change of its length and the next.
class Strip {
public:
    explicit Strip(Orientation orientation = Orientation::Top) : orientation_(orientation) {}

    const ToolbarLayout& Resize(int length, bool rightToLeft = false) {
        cMeasureButtonParams params = Params(DisplayMode::Toolbar, length, orientation_);
        params.RightToLeft = rightToLeft;
        layout_ = LayOutToolbar(bar.Buttons(), params, layout_, FixedPitchMeasure(params));
        return layout_;
    }
    TestBar bar;

private:
    Orientation orientation_;
    ToolbarLayout layout_;
};

TEST(MeasureItem, SizesAMenuRowByItsPictureTextAndShortcut) {
    TestBar bar;
    ButtonRecord& open = bar.Caption(u"&Open");
    open.ShortcutKey = 'O';
    open.ShortcutModifiers = modifier::kCtrl;
    bar.Caption(u"Red").ColorBox = Rgb(255, 0, 0);
    bar.Icon();
    bar.Separator();
    const auto params = Params(DisplayMode::PopupMenu);
    const Size sizes[] = {{72 + 52, 24}, {16 + 30 + 52, 24}, {26, 24}, {10, 3}};
    for (std::size_t i = 0; i < std::size(sizes); ++i)
        EXPECT_EQ(FixedPitchMeasure(params)(bar[i]), sizes[i]) << "row " << i;
}

TEST(MeasureItem, SizesAToolbarItemByWhatItShowsAndWhereTheBarLies) {
    using B = ButtonRecord;
    struct Case {
        const char* name;
        void (*prepare)(B&);
        Size top, below, left; // on a top bar, there with captions below the icons, and on a left bar
    };
    const auto stop = [](B& b) { b.Caption = u"Stop", b.ShowCaptionInToolbar = true; };
    // clang-format off
    const Case cases[] = {
        {"separator", [](B& b) { b.Style = ButtonStyle::Separator; }, {8, 8}, {8, 8}, {8, 8}},
        {"caption", stop, {36, 21}, {36, 25}, {21, 36}},
        {"icon, caption hidden", [](B& b) { b.IconIndex = 0, b.Caption = u"Stop"; }, {24, 24}, {24, 24}, {24, 24}},
        {"box, caption", [](B& b) { b.ColorBox = Colour{}, b.Caption = u"Stop", b.ShowCaptionInToolbar = true; }, {52, 24}, {36, 41}, {24, 52}},
        {"split", [](B& b) { b.IconIndex = 0, b.Style = ButtonStyle::Split; }, {35, 24}, {35, 24}, {35, 24}},
        {"drop-down", [](B& b) { b.IconIndex = 0, b.Bar = SomeBar(), b.ShowDropDownInToolbar = true; }, {31, 24}, {31, 24}, {24, 24}},
        {"panel", [](B& b) { b.Style = ButtonStyle::Panel, b.PanelWidth = 168, b.Panel = SomePanel(); }, {176, 21}, {176, 21}, {21, 8}},
        {"broader panel", [](B& b) { b.Style = ButtonStyle::Panel, b.PanelWidth = 168, b.Panel = SomePanel(200); }, {208, 21}, {208, 21}, {21, 8}},
    };
    // clang-format on
    for (const Case& one : cases) {
        B button;
        one.prepare(button);
        cMeasureButtonParams params = Params(DisplayMode::Toolbar);
        EXPECT_EQ(FixedPitchMeasure(params)(button), one.top) << one.name;
        params.ButtonTextPosition = TextPosition::BelowIcon;
        EXPECT_EQ(FixedPitchMeasure(params)(button), one.below) << one.name << ", below";
        params = Params(DisplayMode::Toolbar, 0, Orientation::Left);
        EXPECT_EQ(FixedPitchMeasure(params)(button), one.left) << one.name << ", left bar";
    }
}

TEST(MenuLayout, StacksTheRowsAtTheWidthOfTheWidest) {
    TestBar bar;
    bar.Caption(u"New");
    bar.Caption(u"Gone").Visible = false;
    bar.Separator();
    bar.Separator();
    bar.Caption(u"Rarely used").Infrequent = true;
    const MenuLayout menu = LayOut(bar, Params(DisplayMode::PopupMenu));
    EXPECT_EQ(Areas(menu.items), (Rects{{0, 1, 130, 25}, {}, {0, 25, 130, 28}, {}, {0, 28, 130, 52}}));
    EXPECT_EQ(menu.size, (Size{130, 53}));

    const MenuLayout collapsed = LayOut(bar, Params(DisplayMode::PopupMenu), Infrequent::LeftOut);
    EXPECT_EQ(collapsed.size, (Size{82, 24 + 3 + 2}));
    const MenuLayout list = LayOut(bar, Params(DisplayMode::AddOrRemoveList), Infrequent::LeftOut);
    EXPECT_EQ(list.size, (Size{130 + 18, 3 * 24 + 3 + 2})) << "the list shows every button";
}

TEST(MenuLayout, SetsARunOfCaptionlessButtonsAsAGridOfEightColumns) {
    TestBar bar;
    bar.Caption(u"More");
    for (int i = 0; i < 10; ++i)
        bar.Icon(i);
    bar.Separator();
    bar.Icon();
    bar.Icon();
    cMeasureButtonParams params = Params(DisplayMode::PopupMenu);
    const MenuLayout menu = LayOut(bar, params);
    const int width = 8 * 26 + 28;
    EXPECT_EQ(AreaOf(menu.items[0]), (Rect{0, 1, width, 25}));
    EXPECT_EQ(AreaOf(menu.items[1]), (Rect{26, 25, 52, 49}));
    EXPECT_EQ(AreaOf(menu.items[8]), (Rect{208, 25, 234, 49}));
    EXPECT_EQ(AreaOf(menu.items[9]), (Rect{26, 49, 52, 73}));
    EXPECT_EQ(AreaOf(menu.items[11]), (Rect{0, 73, width, 76}));
    EXPECT_EQ(AreaOf(menu.items[12]), (Rect{0, 76, width, 100})) << "two make no grid";
    EXPECT_EQ(menu.size, (Size{width, 125}));

    params.RightToLeft = true;
    EXPECT_EQ(AreaOf(LayOut(bar, params).items[1]), (Rect{width - 52, 25, width - 26, 49}));
    EXPECT_EQ(LayOut(bar, Params(DisplayMode::AddOrRemoveList)).size.width, 106) << "no grid in the list";
}

TEST(ToolbarLayout, PlacesItemsSideBySideAsDeepAsTheDeepest) {
    Strip strip;
    strip.bar.Separator();
    strip.bar.Icon();
    strip.bar.Icon().Visible = false;
    strip.bar.Separator();
    strip.bar.Separator();
    strip.bar.Caption(u"Stop");
    EXPECT_EQ(Areas(strip.Resize(200).items),
              (Rects{{0, 0, 8, 24}, {8, 0, 32, 24}, {}, {32, 0, 40, 24}, {}, {40, 0, 76, 24}}));
    EXPECT_EQ(strip.Resize(200).depth, 24);
    EXPECT_EQ(PanelControlArea(strip.Resize(200).items[5], 20), (Rect{41, 2, 75, 22}));
    EXPECT_EQ(Areas(strip.Resize(200, true).items),
              (Rects{{192, 0, 200, 24}, {168, 0, 192, 24}, {}, {160, 0, 168, 24}, {}, {124, 0, 160, 24}}));
}

TEST(ToolbarLayout, CentresTheItemsOfAnUprightBar) {
    Strip strip(Orientation::Left);
    strip.bar.Icon();
    strip.bar.Separator();
    strip.bar.Caption(u"Stop");
    EXPECT_EQ(Areas(strip.Resize(200).items), (Rects{{0, 0, 24, 24}, {0, 24, 24, 32}, {2, 32, 23, 68}}));
    EXPECT_EQ(strip.Resize(40).more, (Rect{0, 25, 24, 40}));
}

TEST(ToolbarLayout, LosesWholeGroupsAndGetsItemsBackInOrder) {
    for (const bool rightToLeft : {false, true}) {
        Strip strip; // a b | d e | g h |, 24 for a button and 8 for a separator
        for (int group = 0; group < 3; ++group) {
            strip.bar.Icon();
            strip.bar.Icon();
            strip.bar.Separator();
        }
        // clang-format off
        const std::pair<int, const char*> steps[] = {
            {168, "abcdefghi"}, // all of it fits exactly
            {167, "abcdefgh."}, {160, "abcdefgh."}, // the last separator covers it, and nobody misses that
            {159, "abcde...."}, // the whole group goes, with the separator before it
            {158, "abcde...."}, {119, "abcde...."}, // and does not come back into the room it left
            {118, "ab......."}, // beside the button for the rest
            {118, "abcd....."}, // but where nothing becomes narrower what has room comes back
            {63, "ab......."}, {70, "ab......."}, // item by item in order, as far as they fit
            {71, "abc......"}, {94, "abc......"}, {95, "abcd....."}, {119, "abcde...."},
            {150, "abcdef..."}, {151, "abcdefg.."},
            {160, "abcdefgh."}, // the button's room too
            {62, "........."}, {150, "ab......."}, // a separator stops the walk
            {150, "abcde...."}, {150, "abcdef..."}, {150, "abcdef..."}, {168, "abcdefghi"},
        };
        // clang-format on
        for (const auto& [length, shown] : steps) {
            const ToolbarLayout& layout = strip.Resize(length, rightToLeft);
            EXPECT_EQ(Shown(layout), shown) << length;
            const Rect button = RectAt(rightToLeft ? 0 : length - 15, 0, 15, layout.depth);
            EXPECT_EQ(layout.more, shown[7] == '.' ? button : Rect{}) << length;
            for (const cDisplayButtonInfo& item : layout.items)
                EXPECT_TRUE(!IsPlaced(item) || item.Right <= button.left || item.Left >= button.right ||
                            layout.more.IsEmpty());
        }
        EXPECT_FALSE(strip.Resize(168, rightToLeft).cameBack);
    }
}

TEST(ToolbarLayout, WrapsAMainMenuInsteadOfHidingItems) {
    TestBar bar;
    for (const auto* caption : {u"File", u"Edit", u"View"})
        bar.Caption(caption);
    cMeasureButtonParams params = Params(DisplayMode::MainMenu, 73);
    const auto layOut = [&] {
        const ToolbarLayout before{.items = std::vector<cDisplayButtonInfo>(3, {.Hidden = true})};
        return LayOutToolbar(bar.Buttons(), params, before, FixedPitchMeasure(params));
    };
    EXPECT_EQ(Areas(layOut().items), (Rects{{0, 0, 36, 21}, {36, 0, 72, 21}, {0, 21, 36, 42}}));
    EXPECT_EQ(layOut().depth, 42);
    params.Width = 72; // the right end of the second item is at the edge
    EXPECT_EQ(layOut().depth, 63);
    params.RightToLeft = true; // there it may lie on it
    EXPECT_EQ(Areas(layOut().items), (Rects{{36, 0, 72, 21}, {0, 0, 36, 21}, {36, 21, 72, 42}}));
    params.Width = 10; // narrower than any item: one on each row, no empty rows
    EXPECT_EQ(layOut().depth, 63);
}

using enum PopupOpener;
using enum PopupDirection;

const std::vector<MonitorInfo> kMonitors{
    {.handle = 1, .name = {}, .bounds = {0, 0, 1000, 800}, .workArea = {0, 0, 1000, 760}, .primary = true},
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
