#include "e2e/BarsTest.h"

namespace quillshift::e2e {
namespace {

class Toolbars : public BarsTest {
protected:
    using Columns = std::vector<std::vector<std::uint32_t>>;
    // The pixels of the standard toolbar; `lower` by further rows of the menu.
    Columns StandardToolbar(int lower = 0) {
        const Rect window = desktop.Place(editor.Window());
        Columns columns;
        for (int x = window.left; x < window.right; ++x)
            columns.push_back(desktop.Pixels(RectAt(x, window.top + 24 + lower, 1, 21)));
        return columns;
    }
    void ResizeTo(int width) {
        const int height = desktop.Place(editor.Window()).Height();
        desktop.Resize(editor.Window(), {width, height});
        desktop.WaitUntil("the window is resized",
                          [&] { return desktop.Place(editor.Window()).Width() == width; });
        editor.Settle();
    }
    // The frame around the text ends within the window.
    bool TheTextIsWhollyInSight() {
        const Rect window = desktop.Place(editor.Window());
        const auto pixels =
            desktop.Pixels(RectAt(window.left + window.Width() / 2, window.bottom - 12, 1, 12));
        return std::ranges::count(pixels, 0U) > 0;
    }
};

TEST_F(Toolbars, AreHiddenByTheMenuAndByTheirOwn) {
    editor.Start();
    const Rect window = desktop.Place(editor.Window());
    const Point inTheText{window.left + 400, window.top + 62};
    EXPECT_NE(desktop.Pixel(inTheText), 0xFFFFFFU) << "a toolbar is there";
    editor.Choose("MENU:VIEW:TOOLBARS:TBSTANDART");
    desktop.WaitUntil("the text has moved up", [&] { return desktop.Pixel(inTheText) == 0xFFFFFFU; });
    EXPECT_EQ(editor.Store().Text(Setting::ToolBarStandart), u"0");

    desktop.Click({window.left + 600, window.top + 35}, 3); // the recoding toolbar
    desktop.Click(Row(WaitForMenu(1), "MENU:VIEW:TOOLBARS:TBSTANDART"));
    desktop.WaitUntil("the text has moved down", [&] { return desktop.Pixel(inTheText) != 0xFFFFFFU; });
    EXPECT_EQ(editor.Store().Text(Setting::ToolBarStandart), u"1");
}

// Flat in one style; a gradient from side to side in the other.
TEST_F(Toolbars, HaveTheStyleOfTheSettings) {
    for (const bool system : {false, true}) {
        Editor program(desktop);
        program.Set(Setting::Style, system ? u"System" : u"OfficeXP").Start();
        const Rect window = desktop.Place(program.Window());
        const std::uint32_t corner = desktop.Pixel({window.left + 1, window.top + 25});
        EXPECT_EQ(corner, desktop.Pixel({window.left + 1, window.top + 43}));
        EXPECT_EQ(corner != desktop.Pixel({window.right - 2, window.top + 25}), system);
    }
}

TEST_F(Toolbars, ANarrowWindowLosesGroupsAndWrapsItsMenuAndAWideOneHasAllBack) {
    editor.Start();
    const Rect window = desktop.Place(editor.Window());
    const int firstRow = Heading(7).y;
    const Rect bars = RectAt(window.left, window.top, window.Width(), 75);
    const auto before = desktop.Pixels(bars);
    const Columns whole = StandardToolbar();
    std::ptrdiff_t shown = window.Width();
    for (const int width : {700, 600, 500, 420}) {
        ResizeTo(width);
        const int lower = Heading(7).y - firstRow;
        EXPECT_EQ(lower, width == 420 ? 21 : 0) << width;
        EXPECT_TRUE(TheTextIsWhollyInSight()) << width;
        // The first groups stand where they stood, and behind them nothing but the button for the rest.
        const Columns now = StandardToolbar(lower);
        const auto end = std::ranges::mismatch(now, whole).in1;
        EXPECT_LT(end - now.begin(), shown) << width;
        shown = end - now.begin();
        EXPECT_GT(shown, width / 2) << width;
        EXPECT_EQ(std::count(end, now.end() - 15, whole.front()), now.end() - 15 - end) << width;
        EXPECT_LT(std::count(now.end() - 15, now.end(), whole.front()), 15) << width;
    }
    for (const int width : {500, 650, window.Width()})
        ResizeTo(width);
    EXPECT_TRUE(desktop.Pixels(bars) == before);
}

TEST_F(Toolbars, WhatANarrowWindowHasNoRoomForIsInAMenu) {
    editor.Set(Setting::SaveChange, u"0").Set(Setting::UseLargeIcons, u"1").Start();
    desktop.Type(u"q");
    desktop.Press("Ctrl+a");
    ResizeTo(400);
    const Rect window = desktop.Place(editor.Window());
    const int below = window.top + 2 * 21 + 2 + 29; // two rows of headings, a line, and the bar
    desktop.Click({window.right - 7, below - 1});
    WaitForMenu(1);
    desktop.Press("Down");
    desktop.Press("Return"); // cuts
    WaitUntilClosed();
    EXPECT_EQ(Saved(), "\r\n");
}

TEST_F(Toolbars, AButtonTellsWhatItDoes) {
    editor.Start();
    const Rect window = desktop.Place(editor.Window());
    desktop.MoveTo({window.left + 45, window.top + 35});
    desktop.MoveTo({window.left + 46, window.top + 36});
    desktop.WaitUntil("the tool tip is there", [&] { return !desktop.Popups().empty(); });
    EXPECT_GT(desktop.Popups()[0].Width(), 100) << "wide enough for its words";
}

} // namespace
} // namespace quillshift::e2e
