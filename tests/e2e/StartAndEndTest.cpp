#include "e2e/EditorTest.h"

#include <csignal>

namespace quillshift::e2e {
namespace {

using StartAndEnd = EditorTest;

// Also where the store was deleted in a run, which at its end stores the window's place alone.
TEST_F(StartAndEnd, AStartWithoutAStoreTellsItsNoticeAndFillsIt) {
    for (int run = 0; run < 2; ++run) {
        editor.DeleteStore();
        if (run == 1) {
            editor.Close();
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
    Process second(QUILLSHIFT_PROGRAM, {}, Elsewhere());
    editor.AnswerBox(BoxAnswer::Ok);
    EXPECT_EQ(second.WaitForEnd(), 0);
    EXPECT_TRUE(editor.Runs());
}

TEST_F(StartAndEnd, LeavingAsksCleansUpAndKeepsThePlaceOfTheWindow) {
    StartCopying("secret", {}).WaitForEnd();
    editor.Set(Setting::MessageOnExit, u"1").Set(Setting::ClearClipboard, u"1").Start();
    desktop.Resize(editor.Window(), {700, 500});
    const auto resized = [&] { return desktop.Place(editor.Window()).Width() == 700; };
    desktop.WaitUntil("the window is resized", resized);
    const Rect place = desktop.Place(editor.Window());

    desktop.AskToClose(editor.Window());
    editor.AnswerBox(BoxAnswer::No).Settle();
    EXPECT_EQ(Process("xclip", {"-selection", "clipboard", "-o"}, Elsewhere()).WaitForEnd(), 1)
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
        editor.Press("Escape");
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
        editor.Close();
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
    editor.Close();
    EXPECT_EQ(place(), u"1500 750 11700 9150 ");
}

struct RecoveryInTheProgram : EditorTest {
    static constexpr std::u16string_view kList = u"Восстановление текста";

    std::filesystem::path Folder() const { return Path("state/quillshift/recovery"); }
    std::string Kept() const {
        std::string all;
        std::error_code missing;
        for (const auto& file : std::filesystem::directory_iterator(Folder(), missing))
            if (file.path().extension() == ".text")
                all += Contents(file.path());
        return all;
    }
    /// Waits until a text that was just typed is kept.
    void WaitUntilKept(const std::string& latin) {
        std::string wide;
        for (const char letter : latin)
            (wide += letter) += '\0';
        desktop.WaitUntil(latin + " is kept", [&] { return Kept().find(wide) != std::string::npos; });
    }
    void End(int signal) {
        kill(editor.Program().Pid(), signal);
        editor.WaitForEnd();
    }
    void StartAndRestore() {
        editor.Launch();
        editor.SettleIn(kList);
        editor.Press("Return");
    }
};

TEST_F(RecoveryInTheProgram, AKilledTextComesBackWithItsFileAndTheBackupIsNoEmptyLine) {
    Put(Path("letter.txt"), "letter");
    editor.Start().Open(Path("letter.txt"));
    editor.SaveUnder(Path("letter.txt")); // as it is, so that plain Save has its target
    editor.Settle();
    desktop.Type(u"killed ");
    WaitUntilKept("killed ");
    End(SIGKILL);

    editor.Set(Setting::StartAtStartup, u"1"); // which would bring another text, or tell that there is none
    StartAndRestore();
    desktop.Type(u"twice ");
    WaitUntilKept("twice ");
    End(SIGKILL);
    StartAndRestore();
    desktop.Press("Ctrl+s");
    desktop.WaitUntil("it is saved",
                      [&] { return Contents(Path("letter.txt")).starts_with("killed twice letter"); });
    editor.Settle();
    EXPECT_EQ(Contents(Path("letter.txt.bak")), "letter\r\n\r\n");
    EXPECT_EQ(Kept(), "");
    EXPECT_EQ(editor.Close(), 0);
    EXPECT_TRUE(std::filesystem::is_empty(Folder()));
}

// What was typed a moment ago, too.
TEST_F(RecoveryInTheProgram, ASignalKeepsTheTextAndAsksNobody) {
    for (const int signal : {SIGTERM, SIGHUP}) {
        editor.Start();
        desktop.Type(u"last words");
        editor.Settle();
        End(signal);
        StartAndRestore();
        EXPECT_EQ(Saved(), "last words\r\n");
        End(SIGKILL);
    }
}

TEST_F(RecoveryInTheProgram, TheDisplaysEndKeepsTheText) {
    editor.Start();
    desktop.Type(u"last words");
    editor.Settle();
    desktop.CutOff(editor.Window());
    editor.WaitForEnd();
    WaitUntilKept("last words");
}

TEST_F(RecoveryInTheProgram, TheListThrowsAwayAndLeavesForLater) {
    editor.Start();
    desktop.Type(u"unwanted");
    WaitUntilKept("unwanted");
    End(SIGKILL);
    editor.Launch();
    editor.SettleIn(kList);
    editor.Press("Escape");
    End(SIGKILL);
    editor.Launch();
    editor.SettleIn(kList);
    editor.Press("Tab space");
    EXPECT_EQ(Kept(), "");
    desktop.WaitUntil("it is in the trash",
                      [&] { return std::filesystem::exists(Path("data/Trash/files")); });
    EXPECT_EQ(Saved(), "\r\n");
}

} // namespace
} // namespace quillshift::e2e
