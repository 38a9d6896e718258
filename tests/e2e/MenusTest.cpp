#include "e2e/BarsTest.h"
#include "e2e/ScreenReader.h"

#include "harness/Iconv.h"

namespace quillshift::e2e {
namespace {

using Menus = BarsTest;

TEST_F(Menus, EachOpensByKeyboardAndMouseAndClosesByEveryRoad) {
    constexpr const char* kHeadings[] = {"MENU:FILE",    "MENU:EDIT",   "MENU:FIND",
                                         "MENU:VIEW",    "MENU:INSERT", "MENU:FORMAT",
                                         "MENU:SERVICE", "MENU:DECODE", "MENU:HELP"};
    editor.Set(Setting::SaveChange, u"0").Start();
    const Rect window = desktop.Place(editor.Window());
    for (const std::string road : {"desktop", "text", "heading", "Escape", "Alt"}) {
        int right = window.left;
        for (int heading = 0; heading < 9; ++heading) {
            const Point place = Heading(heading);
            EXPECT_GT(place.x, right) << heading;
            right = place.x;
            desktop.Click(place);
            const Rect menu = WaitForMenu(1);
            EXPECT_EQ(menu.left, place.x - 12) << heading;
            EXPECT_EQ(menu.top, window.top + 21) << heading;
            EXPECT_EQ(menu.Height(), HeightOfMenu(kHeadings[heading])) << heading;
            if (road == "desktop") {
                desktop.ClickOnPanel({1270, 790});
            } else if (road == "text") {
                desktop.Click({window.left + 300, window.top + 500});
            } else if (road == "heading") {
                desktop.Click(place);
            } else { // each of the two goes back to the headings
                desktop.Press(road);
                desktop.Press("Escape");
            }
            WaitUntilClosed();
        }
        ExpectTypingGoesToTheText();
    }
}

TEST_F(Menus, LookTheSameHoweverFastTheyWereOpened) {
    editor.Start();
    const Rect window = desktop.Place(editor.Window());
    desktop.Move(editor.Window(), {1240 - window.Width(), 100}); // sub-menus open to the left, over shadows
    editor.Settle();
    const Rect all{0, 100, 1280, 500};
    std::vector<std::uint32_t> slow;
    for (const bool isFast : {false, true}) {
        OpenByKeyboard(8);
        if (!isFast)
            WaitForMenu(1);
        desktop.Press("Left");
        if (!isFast)
            WaitForMenu(1);
        desktop.Press("Down Down Right");
        WaitForMenu(2);
        if (isFast)
            desktop.WaitUntil("the menus look as before", [&] { return desktop.Pixels(all) == slow; });
        else
            slow = desktop.StillPixels(all);
        for (int level = 0; level < 3; ++level)
            desktop.Press("Escape");
        WaitUntilClosed();
    }
}

TEST_F(Menus, AnEntryIsTickedByTheMouse) {
    editor.Start();
    const Point view = Heading(3);
    std::vector<std::vector<std::uint32_t>> pictures;
    for (const bool above : {true, false}) {
        desktop.Click(view);
        const Rect menu = WaitForMenu(1);
        const Point row = Row(menu, "MENU:VIEW:ONTOP");
        pictures.push_back(desktop.Pixels(RectAt(menu.left + 3, row.y - 8, 21, 16)));
        desktop.Click(row);
        const auto isAbove = [&] { return desktop.IsAboveOthers(editor.Window()) == above; };
        desktop.WaitUntil("the window has its layer", isAbove);
        WaitUntilClosed();
        editor.Close();
        editor.Start();
        desktop.WaitUntil("the window has its layer at the next start, too", isAbove);
    }
    EXPECT_TRUE(pictures[0] != pictures[1]) << "the tick is seen";
}

TEST_F(Menus, CloseWhenAnotherWindowTakesTheKeyboardAndWithTheirOwn) {
    editor.Set(Setting::ManyCopies, u"1").Start();
    OpenByKeyboard(0);
    WaitForMenu(1);
    Editor other(desktop);
    other.Launch();
    desktop.WaitUntil("the menu is closed", [&] { return Open().empty(); });
    other.Settle();
    other.Close();
    editor.Settle();
    OpenByKeyboard(0);
    WaitForMenu(1);
    EXPECT_EQ(editor.Close(), 0);
    EXPECT_TRUE(desktop.Popups().empty());
}

TEST_F(Menus, AShortcutFiresOnceInEachLayout) {
    editor.Set(Setting::SaveChange, u"0").Start();
    desktop.Type(u"q");
    editor.Settle();
    for (const auto& [shortcut, title] :
         {std::pair{"F9", u"Перекодирование"}, {"Ctrl+o", u"Открытие документа"}}) {
        desktop.UseLayout(1);
        desktop.Press(shortcut);
        editor.SettleIn(title);
        EXPECT_EQ(desktop.Windows().size(), 2U) << shortcut;
        desktop.UseLayout(0);
        desktop.Press("Escape");
        desktop.WaitUntilGone(title);
        editor.Settle();
        EXPECT_EQ(desktop.Windows().size(), 1U) << shortcut;
    }
    desktop.Press("BackSpace");
    desktop.Press("Alt+Shift"); // changes the layout
    editor.Settle();
    EXPECT_TRUE(Open().empty());
    desktop.UseLayout(0);
    ExpectTypingGoesToTheText();
}

TEST_F(Menus, KeepEveryKeyFromTheTextAndGiveThemToAQuestion) {
    editor.Set(Setting::SaveChange, u"0").Set(Setting::MessageOnExit, u"1").Start();
    OpenByKeyboard(0);
    WaitForMenu(1);
    desktop.Type(u"ф;");
    desktop.AskToClose(editor.Window());
    editor.AnswerBox(BoxAnswer::No);
    desktop.WaitUntil("the menu has gone", [&] { return Open().empty(); });
    editor.Settle();
    EXPECT_EQ(Saved(), "\r\n");
}

TEST_F(Menus, WhatANarrowWindowHasNoRoomForIsInOne) {
    editor.Set(Setting::SaveChange, u"0").Set(Setting::UseLargeIcons, u"1").Start();
    desktop.Type(u"q");
    desktop.Press("Ctrl+a");
    desktop.Resize(editor.Window(), {400, 500});
    desktop.WaitUntil("the window is narrow", [&] { return desktop.Place(editor.Window()).Width() == 400; });
    editor.Settle();
    const Rect window = desktop.Place(editor.Window());
    const int below = window.top + 2 * 21 + 2 + 29; // two rows of headings, a line, and the bar
    desktop.Click({window.right - 7, below - 1});
    WaitForMenu(1);
    desktop.Press("Down");
    desktop.Press("Return"); // cuts
    WaitUntilClosed();
    EXPECT_EQ(Saved(), "\r\n");
}

class DesktopsWishes : public BarsTest {
protected:
    // The ground of the menu bar, where no heading is.
    std::uint32_t Ground() const {
        const Rect window = desktop.Place(editor.Window());
        return desktop.Pixel({window.right - 4, window.top + 4});
    }
    void WaitForGround(std::uint32_t wanted) {
        desktop.WaitUntil("the bars have another ground", [&] { return Ground() == wanted; });
    }
};

TEST_F(DesktopsWishes, AnotherScaleIsFollowedAtOnce) {
    desktop.TellDensity(96);
    editor.Set(Setting::SaveChange, u"0").Start();
    const std::uint32_t ground = Ground();
    const int width = desktop.Place(editor.Window()).Width();
    desktop.Type(u"text");
    desktop.Press("Ctrl+f"); // whose window can't be resized
    desktop.WaitForWindow(u"Найти");
    const int dialog = desktop.Place(desktop.Active()).Width();
    for (const int percent : {150, 100}) {
        editor.SettleIn(u"Найти");
        desktop.TellDensity(96 * percent / 100);
        desktop.WaitUntil("the windows have the new size", [&] {
            return std::abs(desktop.Place(editor.Window()).Width() - width * percent / 100) < 5 &&
                   std::abs(desktop.Place(desktop.Active()).Width() - dialog * percent / 100) < 5;
        });
        WaitForGround(ground);
        const Rect place = desktop.Place(editor.Window());
        desktop.WaitUntil("the text's ground is there", [&] {
            return desktop.Pixel({place.right - 30, place.top + 200}) == 0xFFFFFF;
        });
    }
}

TEST_F(DesktopsWishes, BlackAndWhiteComesAndGoes) {
    const ScreenReader bus(desktop, editor.home.Path());
    editor.environment = bus.Needs();
    const std::string wish = "org.freedesktop.appearance/contrast=uint32 ";
    Put(Path("wishes"), wish + "0\n");
    const Process portal(
        "/usr/bin/python3",
        {(TestsFolder().parent_path() / "harness/portal.py").string(), Path("wishes").string()}, bus.Its());
    editor.Start();
    const std::uint32_t usual = Ground();
    Put(Path("wishes"), wish + "1\n");
    WaitForGround(0xFFFFFF);
    Put(Path("wishes"), wish + "1\norg.freedesktop.appearance/color-scheme=uint32 1\n");
    WaitForGround(0);
    OpenByKeyboard(1);
    const Rect menu = WaitForMenu(1);
    EXPECT_EQ(desktop.Pixel({menu.right - 3, menu.bottom - 3}), 0);
    EXPECT_EQ(desktop.Pixel({menu.right - 1, menu.bottom - 3}), 0xFFFFFF) << "its edge";
    desktop.Press("Escape");
    Put(Path("wishes"), wish + "0\n");
    WaitForGround(usual);
}

} // namespace
} // namespace quillshift::e2e
