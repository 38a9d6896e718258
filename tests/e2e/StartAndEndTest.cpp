#include "e2e/EditorTest.h"

namespace quillshift::e2e {
namespace {

using StartAndEnd = EditorTest;

// Also where the store was deleted in a run, which at its end stores the window's place alone.
TEST_F(StartAndEnd, AStartWithoutAStoreTellsItsNoticeAndFillsIt) {
    for (int run = 0; run < 2; ++run) {
        editor.DeleteStore();
        if (run == 1) {
            desktop.AskToClose(editor.Window());
            editor.WaitForEnd();
        }
        editor.Launch();
        editor.AnswerBox(BoxAnswer::Ok);
        for (const auto* dialog : {u"Приветствие...", u"Приступая к работе..."}) {
            editor.SettleIn(u"Morvane Quillshift 3.0 - " + std::u16string(dialog));
            desktop.Press("Return");
        }
        editor.Settle();
        EXPECT_EQ(editor.Store().Text(Setting::FirstRun), u"0") << run;
        EXPECT_EQ(editor.Store().Text(Setting::FontName), u"MS Sans Serif") << run;
        EXPECT_TRUE(editor.Store().IsItemShown(ItemBar::Standart, 39)) << run;
    }
}

TEST_F(StartAndEnd, ASecondCopyIsRefusedAndTheStoreIsItsOwnersAlone) {
    namespace fs = std::filesystem;
    const fs::path folder = editor.home / "data/quillshift";
    fs::permissions(folder, fs::perms(0755));
    editor.Start();
    EXPECT_EQ(fs::status(folder).permissions(), fs::perms::owner_all);
    Process second(QUILLSHIFT_PROGRAM, {}, desktop.ProgramEnvironment(editor.home.Path()));
    editor.AnswerBox(BoxAnswer::Ok);
    EXPECT_EQ(second.WaitForEnd(), 0);
    EXPECT_TRUE(editor.Runs());
}

TEST_F(StartAndEnd, LeavingAsksCleansUpAndKeepsThePlaceOfTheWindow) {
    const Environment environment = desktop.ProgramEnvironment(editor.home.Path());
    Put(Path("clipboard.txt"), "secret");
    Process("xclip", {"-selection", "clipboard", "-i", Path("clipboard.txt")}, environment).WaitForEnd();
    editor.Set(Setting::MessageOnExit, u"1").Set(Setting::ClearClipboard, u"1").Start();
    desktop.Resize(editor.Window(), {700, 500});
    const auto resized = [&] { return desktop.Place(editor.Window()).Width() == 700; };
    desktop.WaitUntil("the window is resized", resized);
    const Rect place = desktop.Place(editor.Window());

    desktop.AskToClose(editor.Window());
    editor.AnswerBox(BoxAnswer::No);
    editor.Settle();
    EXPECT_EQ(Process("xclip", {"-selection", "clipboard", "-o"}, environment).WaitForEnd(), 1)
        << "the clipboard is emptied before the last question";
    desktop.AskToClose(editor.Window());
    editor.AnswerBox(BoxAnswer::Yes);
    EXPECT_EQ(editor.WaitForEnd(), 0);

    editor.Start();
    desktop.WaitUntil("the window is where it was", [&] { return desktop.Place(editor.Window()) == place; });
}

// However often it is opened and closed, by whatever way it came to be maximised.
TEST_F(StartAndEnd, AWindowClosedWhileItAsksWhetherToCloseStays) {
    editor.Set(Setting::SaveChange, u"1").Start();
    desktop.Type(u"text");
    editor.Settle();
    const XWindow window = editor.Window();
    for (const bool byMenu : {true, false}) {
        if (byMenu)
            editor.Choose("MENU:FILE:EXIT");
        else
            desktop.AskToClose(window);
        desktop.WaitUntil("it asks", [&] { return desktop.IsDialog(desktop.Active()); });
        desktop.AskToClose(window);
        desktop.WaitUntilQuiet(editor.Program());
        desktop.Press("Escape");
        editor.Settle();
        EXPECT_EQ(desktop.Windows(), std::vector<XWindow>{window}) << byMenu;
    }
}

TEST_F(StartAndEnd, AMaximisedWindowComesBackMaximisedAndKeepsItsOtherPlace) {
    const auto place = [&] {
        std::u16string all;
        for (const Setting side :
             {Setting::MainLeft, Setting::MainTop, Setting::MainWidth, Setting::MainHeight})
            all += editor.Store().Text(side) + u" ";
        return all;
    };
    const auto closeWhenWide = [&] {
        desktop.WaitUntil("the window is as wide as the screen",
                          [&] { return desktop.Place(editor.Window()).Width() >= 1270; });
        desktop.WaitUntilQuiet(editor.Program());
        desktop.AskToClose(editor.Window());
        editor.WaitForEnd();
        EXPECT_EQ(editor.Store().Text(Setting::WindowState), u"2");
        EXPECT_EQ(place(), u"1500 750 11700 9150 ");
    };
    editor.Start();
    desktop.Maximise(editor.Window());
    closeWhenWide();
    for (int run = 0; run < 2; ++run) {
        editor.Start();
        closeWhenWide();
    }
    editor.Set(Setting::WindowState, u"0").Start();
    desktop.AskToClose(editor.Window());
    editor.WaitForEnd();
    EXPECT_EQ(place(), u"1500 750 11700 9150 ");
}

} // namespace
} // namespace quillshift::e2e
