#include "e2e/EditorTest.h"

#include "shell/Catalogue.h"
#include "support/Iconv.h"

#include <algorithm>
#include <string>

namespace quillshift::e2e {
namespace {

class Menus : public EditorTest {
protected:
    // The open menus, the oldest first; what is as thin as a shadow is one.
    std::vector<Rect> Open() const {
        std::vector<Rect> menus = desktop.Popups();
        std::erase_if(menus, [](const Rect& place) { return place.Width() < 10 || place.Height() < 10; });
        return menus;
    }
    Rect WaitForMenu(std::size_t count) {
        desktop.WaitUntil(std::to_string(count) + " menus are open", [&] { return Open().size() == count; });
        editor.Settle();
        std::vector<Rect> menus = Open();
        return menus.back();
    }
    void WaitUntilClosed() {
        desktop.WaitUntil("all menus are closed", [&] { return Open().empty(); });
        editor.Settle();
    }
    void OpenByKeyboard(int heading) {
        desktop.Press("Alt");
        for (int i = 0; i < heading; ++i)
            desktop.Press("Right");
        desktop.Press("Down");
    }
    // Where a heading is to be clicked: its menu opens at its left edge.
    Point Heading(int heading) {
        OpenByKeyboard(heading);
        const Rect menu = WaitForMenu(1);
        desktop.Press("Escape");
        desktop.Press("Escape");
        WaitUntilClosed();
        return {menu.left + 12, menu.top - 10};
    }
    // Where the row of a command stands in the menu that shows it.
    static Point Row(const Rect& menu, std::string_view key) {
        int y = menu.top + 1;
        for (const CatalogueEntry& entry : Catalogue()) {
            if (ParentKey(entry.Key) != ParentKey(key))
                continue;
            if (entry.Key == key)
                break;
            y += entry.Style == ButtonStyle::Separator ? 3 : 24;
        }
        return {menu.left + 40, y + 12};
    }
    void ExpectTypingGoesToTheText() {
        desktop.Type(u"q");
        const std::string saved = Saved();
        EXPECT_EQ(saved, "q\r\n");
        desktop.Press("BackSpace");
        editor.Settle();
    }
};

TEST_F(Menus, EachOpensByKeyboardAndMouseAndClosesByEveryRoad) {
    editor.Set("SaveChange", u"0").Start();
    const Rect window = desktop.Place(editor.Window());
    int right = 0;
    for (int heading = 0; heading < 9; ++heading) {
        const Point place = Heading(heading);
        EXPECT_GT(place.x, right) << heading;
        right = place.x;
        desktop.Click(place);
        EXPECT_EQ(WaitForMenu(1).left, place.x - 12) << heading;
        switch (heading % 4) {
        case 0:
            desktop.Press("Escape");
            desktop.Press("Escape");
            break;
        case 1:
            desktop.Click(place);
            break;
        case 2:
            desktop.Press("Alt"); // goes back to the headings
            desktop.Press("Escape");
            break;
        default:
            desktop.Click({window.left + 300, window.top + 500});
        }
        WaitUntilClosed();
    }
    ExpectTypingGoesToTheText();
}

TEST_F(Menus, TheMouseAloneRecodes) {
    editor.Set("SaveChange", u"0").Start().Open(Sample("text/pushkin-dos866.txt"));
    desktop.Click(Heading(7));
    desktop.MoveTo(Row(WaitForMenu(1), "MENU:DECODE:DOS"));
    desktop.Click(Row(WaitForMenu(2), "MENU:DECODE:DOS:DW"));
    editor.Settle();
    EXPECT_TRUE(Saved().starts_with(Iconv("Я помню чудное мгновенье", "UTF-8", "CP1251")));
}

TEST_F(Menus, WalkFromOneToTheNext) {
    editor.Start();
    const Point file = Heading(0);
    const Point view = Heading(3);
    desktop.Click(file);
    WaitForMenu(1);
    desktop.MoveTo(view);
    desktop.WaitUntil("the other menu is open",
                      [&] { return Open().size() == 1 && Open()[0].left == view.x - 12; });
    desktop.Press("Left");
    desktop.Press("Left");
    desktop.Press("Left");
    desktop.WaitUntil("the first menu is open",
                      [&] { return Open().size() == 1 && Open()[0].left == file.x - 12; });
    OpenByKeyboard(0); // Alt ends the menu first
    desktop.Press("Escape");
    desktop.Press("Escape");
    WaitUntilClosed();
}

TEST_F(Menus, ToolbarsAreHiddenByTheMenuAndByTheirOwn) {
    editor.Start();
    const Rect window = desktop.Place(editor.Window());
    const Point inTheText{window.left + 400, window.top + 62};
    EXPECT_NE(desktop.Pixel(inTheText), 0xFFFFFFU) << "a toolbar is there";
    editor.Choose("MENU:VIEW:TOOLBARS:TBSTANDART");
    desktop.WaitUntil("the text has moved up", [&] { return desktop.Pixel(inTheText) == 0xFFFFFFU; });
    EXPECT_EQ(editor.Settings().Preference("ToolBarStandart"), u"0");

    desktop.Click({window.left + 600, window.top + 35}, 3); // the recoding toolbar
    desktop.Click(Row(WaitForMenu(1), "MENU:VIEW:TOOLBARS:TBSTANDART"));
    desktop.WaitUntil("the text has moved down", [&] { return desktop.Pixel(inTheText) != 0xFFFFFFU; });
    EXPECT_EQ(editor.Settings().Preference("ToolBarStandart"), u"1");
}

TEST_F(Menus, ANarrowWindowLosesGroupsAndWrapsItsMenuAndAWideOneHasAllBack) {
    editor.Start();
    const Rect window = desktop.Place(editor.Window());
    const auto resizeTo = [&](int width) {
        desktop.Resize(editor.Window(), {width, window.Height()});
        desktop.WaitUntil("the window is resized",
                          [&] { return desktop.Place(editor.Window()).Width() == width; });
        editor.Settle();
    };
    const Rect bars = RectAt(window.left, window.top, window.Width(), 75);
    const auto before = desktop.Pixels(bars);
    for (const int width : {700, 600, 500, 420}) {
        resizeTo(width);
        // The frame around the text ends within the window, also below a menu of two rows.
        bool frame = false;
        for (int y = window.bottom - 12; y < window.bottom; ++y)
            frame = frame || desktop.Pixel({window.left + width / 2, y}) == 0;
        EXPECT_TRUE(frame) << width;
    }
    for (const int width : {500, 650, window.Width()})
        resizeTo(width);
    EXPECT_TRUE(desktop.Pixels(bars) == before);
}

TEST_F(Menus, StayOnTheScreen) {
    editor.Start();
    const Point decode = Heading(7);
    const Rect window = desktop.Place(editor.Window());
    const Point offset{decode.x - window.left, decode.y - window.top};
    for (const Point place : {Point{700, 100}, Point{100, 690}, Point{800, 690}}) {
        desktop.Move(editor.Window(), place);
        editor.Settle();
        const Rect now = desktop.Place(editor.Window());
        desktop.Click({now.left + offset.x, now.top + offset.y});
        const Rect menu = WaitForMenu(1);
        EXPECT_GE(menu.left, 0);
        EXPECT_GE(menu.top, 0);
        EXPECT_LE(menu.right, 1280);
        EXPECT_LE(menu.bottom, 800);
        desktop.MoveTo(Row(menu, "MENU:DECODE:DOS"));
        const Rect sub = WaitForMenu(2);
        EXPECT_LE(sub.right, 1280);
        EXPECT_LE(sub.bottom, 800);
        desktop.Press("Escape");
        desktop.Press("Escape");
        desktop.Press("Escape");
        WaitUntilClosed();
    }
}

TEST_F(Menus, StayOnTheMonitorOfTheirWindow) {
    const Environment environment = desktop.ProgramEnvironment(editor.home.Path());
    for (const char* monitor : {"left 640/200x800/250+0+0", "right 640/200x800/250+640+0"}) {
        const std::string name(monitor, std::string_view(monitor).find(' '));
        ASSERT_EQ(
            Process("xrandr",
                    {"--setmonitor", name, monitor + name.size() + 1, name == "left" ? "screen" : "none"},
                    environment)
                .WaitForEnd(),
            0);
    }
    editor.Start();
    desktop.Move(editor.Window(), {10, 100});
    editor.Settle();
    OpenByKeyboard(7);
    const Rect menu = WaitForMenu(1);
    desktop.MoveTo(Row(menu, "MENU:DECODE:DOS"));
    const Rect sub = WaitForMenu(2);
    EXPECT_LE(menu.right, 640);
    EXPECT_LE(sub.right, 640) << "to the left of its row, not on the other monitor";
}

TEST_F(Menus, CloseWhenAnotherWindowTakesTheKeyboardAndWithTheirOwn) {
    editor.Set("ManyCopies", u"1").Start();
    OpenByKeyboard(0);
    WaitForMenu(1);
    Editor other(desktop);
    other.Launch();
    desktop.WaitUntil("the menu is closed", [&] { return Open().empty(); });
    other.Settle();
    desktop.AskToClose(other.Window());
    other.WaitForEnd();
    editor.Settle();
    OpenByKeyboard(0);
    WaitForMenu(1);
    desktop.AskToClose(editor.Window());
    EXPECT_EQ(editor.WaitForEnd(), 0);
    EXPECT_TRUE(desktop.Popups().empty());
}

TEST_F(Menus, ShortcutsWorkInTheRussianLayoutAndTheLayoutSwitchOpensNothing) {
    editor.Set("SaveChange", u"0").Start();
    desktop.Type(u"x");
    desktop.UseLayout(1);
    desktop.Press("Ctrl+n");
    editor.Settle();
    desktop.UseLayout(0);
    desktop.Press("Alt+Shift");
    editor.Settle();
    EXPECT_TRUE(Open().empty());
    ExpectTypingGoesToTheText();
    desktop.Press("F9");
    editor.AnswerBox(BoxAnswer::Ok); // there is no text
    editor.Settle();
}

TEST_F(Menus, AToolbarButtonTellsWhatItDoes) {
    editor.Start();
    const Rect window = desktop.Place(editor.Window());
    desktop.MoveTo({window.left + 45, window.top + 35});
    desktop.MoveTo({window.left + 46, window.top + 36});
    desktop.WaitUntil("the tool tip is there", [&] { return !desktop.Popups().empty(); });
    EXPECT_GT(desktop.Popups()[0].Width(), 100) << "wide enough for its words";
}

} // namespace
} // namespace quillshift::e2e
