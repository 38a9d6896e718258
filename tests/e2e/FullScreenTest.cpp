#include "e2e/BarsTest.h"

namespace quillshift::e2e {
namespace {

constexpr std::u16string_view kBar = u"     Полноэкранный режим";

class FullScreenMode : public BarsTest {
protected:
    XWindow Enter() {
        editor.Choose("MENU:VIEW:FULLSCREEN");
        desktop.WaitUntil("the text is on the whole screen", [&] {
            const XWindow active = desktop.Active();
            return desktop.Find(kBar) != 0 && active != editor.Window() &&
                   desktop.Place(active).Width() == 1280;
        });
        editor.SettleIn(u"Morvane Quillshift 3.0");
        return desktop.Active();
    }
};

TEST_F(FullScreenMode, HasItsOwnEditingKeysAndOneRoadOutForAll) {
    editor.Set(Setting::SaveChange, u"0")
        .Set(Setting::TopMost, u"1")
        .Set(Setting::FullScreenLeft, u"9000")
        .Set(Setting::FullScreenTop, u"4500");
    editor.Start();
    desktop.Type(u"abc");
    desktop.Press("Ctrl+f"); // leaves the screen with the mode, and comes back without the keyboard
    editor.SettleIn(u"Найти");
    desktop.Activate(editor.Window());
    editor.Settle();
    const std::function<void(XWindow text, XWindow bar)> roads[] = {
        [&](XWindow, XWindow bar) {
            const Rect button = desktop.Place(bar);
            desktop.Click({button.left + 80, button.top + 16});
        },
        [&](XWindow text, XWindow) { desktop.AskToClose(text); },
        [&](XWindow, XWindow bar) { desktop.AskToClose(bar); },
        [&](XWindow, XWindow) { desktop.Press("Alt+F4"); },
        [&](XWindow, XWindow) { desktop.AskToClose(editor.Window()); }};
    std::string written = "abc";
    for (const auto& road : roads) {
        const XWindow text = Enter();
        const XWindow bar = desktop.Find(kBar);
        EXPECT_TRUE(desktop.IsAboveOthers(bar));
        const Point pixel{desktop.Place(bar).left + 2, desktop.Place(bar).top + 16};
        EXPECT_NE(desktop.Pixel(pixel), 0xFFFFFFU) << "it is in sight over the text";
        // "xabc", cut out, put in twice, the second taken back
        desktop.Press("Escape x Ctrl+a Ctrl+x Ctrl+v Ctrl+v Ctrl+z");
        written.insert(0, 1, 'x');
        if (&road == roads) // moved, it is there again the next time
            desktop.Move(bar, {200, 300});
        editor.SettleIn(u"Morvane Quillshift 3.0");
        if (&road == &roads[1]) {
            EXPECT_EQ(desktop.Place(bar).left, 200 + 1);
            desktop.Activate(editor.Window()); // its entry in a list of windows leads to the text
            editor.SettleIn(u"Morvane Quillshift 3.0");
            desktop.Press("End");
            desktop.Type(u"y");
            written += 'y';
            editor.SettleIn(u"Morvane Quillshift 3.0");
        }
        road(text, bar);
        if (&road == &roads[4])
            break;
        desktop.WaitUntilGone(kBar);
        editor.Settle();
        EXPECT_EQ(Saved(), Bytes(written));
    }
    EXPECT_EQ(editor.WaitForEnd(), 0);
}

constexpr std::u16string_view kLock = u"Morvane Quillshift 3.0";

TEST_F(FullScreenMode, LocksFromItsSmallWindow) {
    editor.Set(Setting::Password, u"tajna").Start();
    Enter();
    desktop.Activate(desktop.Find(kBar));
    editor.SettleIn(kBar);
    desktop.Press("Ctrl+l");
    desktop.WaitUntil("the lock stands alone", [&] {
        const auto windows = desktop.Windows();
        return windows.size() == 1 && windows[0] != editor.Window() && desktop.Title(windows[0]) == kLock;
    });
}

using Lock = BarsTest;

TEST_F(Lock, StandsAloneOnTheScreenAndGivesAllBack) {
    editor.Set(Setting::Password, u"tajna").Set(Setting::SaveChange, u"1").Set(Setting::MessageOnExit, u"1");
    editor.Start();
    desktop.Type(u"secret");
    editor.Press("Ctrl+f", u"Найти");
    desktop.Activate(editor.Window());
    editor.Settle();
    editor.Press("Ctrl+a");
    const XWindow main = editor.Window();
    const Rect place = desktop.Place(main);
    const auto offersSelection = [&] {
        return Process("xclip", {"-selection", "primary", "-o"}, Elsewhere()).WaitForEnd() == 0;
    };
    EXPECT_TRUE(offersSelection());
    for (const std::string_view road : {"key", "menu", "key in a dialog"}) {
        if (road == "menu")
            editor.Choose("MENU:SERVICE:LOCKED");
        if (road == "key in a dialog") {
            desktop.Activate(desktop.Find(u"Найти"));
            editor.SettleIn(u"Найти");
        }
        if (road != "menu")
            desktop.Press("Ctrl+l");
        desktop.WaitUntil("the main window is gone", [&] {
            const auto windows = desktop.Windows();
            return std::ranges::count(windows, main) == 0 && desktop.Title(desktop.Active()) == kLock;
        });
        editor.SettleIn(kLock);
        const XWindow lock = desktop.Active();
        EXPECT_FALSE(desktop.IsDialog(lock)) << "it has an entry in a list of windows";
        desktop.Press("Escape Alt+F4 Ctrl+o Ctrl+l Alt+f Escape");
        for (const XWindow window : {lock, main})
            desktop.AskToClose(window);
        editor.SettleIn(kLock);
        EXPECT_EQ(desktop.Windows(), std::vector<XWindow>{lock});
        EXPECT_FALSE(offersSelection());
        EXPECT_EQ(desktop.Title(main), kLock) << "no name of a document is left on it";
        desktop.Press("Ctrl+a");
        desktop.Type(u"Tajna");
        desktop.Press("Return");
        editor.AnswerBox(BoxAnswer::Ok).SettleIn(kLock);
        desktop.Type(u"tajna");
        desktop.Press("Return");
        desktop.WaitUntil("the main window is back", [&] { return desktop.Active() == main; });
        editor.Settle();
        EXPECT_EQ(desktop.Place(main), place);
        EXPECT_TRUE(offersSelection());
    }
    EXPECT_EQ(Saved(), "secret\r\n");
}

} // namespace
} // namespace quillshift::e2e
