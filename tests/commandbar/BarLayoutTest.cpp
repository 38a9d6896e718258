#include "commandbar/MenuLayout.h"
#include "commandbar/ToolbarLayout.h"
#include "support/TestBar.h"

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

} // namespace
} // namespace quillshift
