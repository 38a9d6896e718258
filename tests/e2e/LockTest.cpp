#include "e2e/BarsTest.h"

namespace quillshift::e2e {
namespace {

constexpr std::u16string_view kLock = u"Morvane Quillshift 3.0";

using Lock = BarsTest;

TEST_F(Lock, StandsAloneOnTheScreenAndGivesAllBack) {
    editor.Set(Setting::Password, u"tajna").Set(Setting::SaveChange, u"1").Set(Setting::MessageOnExit, u"1");
    editor.Start();
    desktop.Type(u"secret");
    desktop.Press("Ctrl+f");
    editor.SettleIn(u"Найти");
    desktop.Activate(editor.Window());
    editor.Settle();
    desktop.Press("Ctrl+a");
    editor.Settle();
    const XWindow main = editor.Window();
    const Rect place = desktop.Place(main);
    const Environment environment = desktop.ProgramEnvironment(editor.home.Path());
    const auto offersSelection = [&] {
        return Process("xclip", {"-selection", "primary", "-o"}, environment).WaitForEnd() == 0;
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
        for (const char* chord : {"Escape", "Alt+F4", "Ctrl+o", "Ctrl+l", "Alt+f", "Escape"})
            desktop.Press(chord);
        for (const XWindow window : {lock, main})
            desktop.AskToClose(window);
        editor.SettleIn(kLock);
        EXPECT_EQ(desktop.Windows(), std::vector<XWindow>{lock});
        EXPECT_FALSE(offersSelection());
        EXPECT_EQ(desktop.Title(main), kLock) << "no name of a document is left on it";
        desktop.Press("Ctrl+a");
        desktop.Type(u"Tajna");
        desktop.Press("Return");
        editor.AnswerBox(BoxAnswer::Ok);
        editor.SettleIn(kLock);
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
