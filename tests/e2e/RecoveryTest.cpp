#include "e2e/EditorTest.h"

#include <csignal>

namespace quillshift::e2e {
namespace {

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
        desktop.Press("Return");
        editor.Settle();
    }
};

TEST_F(RecoveryInTheProgram, AKilledTextComesBackWithItsFileAndTheBackupIsNoEmptyLine) {
    Put(Path("letter.txt"), "letter");
    editor.Start().Open(Path("letter.txt"));
    desktop.Press("Ctrl+Shift+s"); // as it is, so that plain Save has its target
    editor.AnswerFileDialog(u"Сохранение документа", Path("letter.txt"));
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
    desktop.AskToClose(editor.Window());
    EXPECT_EQ(editor.WaitForEnd(), 0);
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
    desktop.Press("Escape");
    editor.Settle();
    End(SIGKILL);
    editor.Launch();
    editor.SettleIn(kList);
    desktop.Press("Tab");
    desktop.Press("space");
    editor.Settle();
    EXPECT_EQ(Kept(), "");
    desktop.WaitUntil("it is in the trash",
                      [&] { return std::filesystem::exists(Path("data/Trash/files")); });
    EXPECT_EQ(Saved(), "\r\n");
}

} // namespace
} // namespace quillshift::e2e
