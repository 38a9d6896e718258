#include "support/TestProgram.h"

#include "base/Utf8.h"

#include <gtest/gtest.h>

namespace quillshift {
namespace {

/// A program with a document and a lock that has a name, a password and a hint.
struct ProgramLockTest : testing::Test, TestProgram {
    ProgramLockTest() {
        Set(Setting::User, u"Анна").Set(Setting::Password, u"Тайна 1").Set(Setting::ClipboardDetect, u"1");
        Start();
        timers.Tick();
        window.document.SetText(u"letter");
        timers.Tick();
        messageBox.shown.clear();
    }
    // What is done while the dialog stands; then the right password opens it.
    void WhileLocked(const std::function<void()>& what) {
        const auto isKeptLocked = [this] {
            const auto kept = ReadRecoveryFile(recovery.file.value_or(""));
            return kept && kept->place.isLocked;
        };
        dialogs->whileModal = [&] {
            EXPECT_TRUE(isKeptLocked()) << "what is shown at the next start";
            what();
            EXPECT_TRUE(lock.Enter(settings.Text(Setting::Password)));
        };
        program.Run("MENU:SERVICE:LOCKED");
        EXPECT_FALSE(isKeptLocked());
        EXPECT_TRUE(window.shown && dialogs->hidings == 0 && !shell.concealed && !lock.IsLocked());
    }
    ProgramLock& lock = program.Parts().lock;
};

TEST_F(ProgramLockTest, OpensToThePasswordAsItStoodWhenItCameAndToNothingElse) {
    WhileLocked([this] {
        Set(Setting::Password, u"changed");
        for (const auto* wrong :
             {u"", u"тайна 1", u"Тайна", u"Тайна 1 ", u"Тайна 1Тайна 1", u"changed", u"Анна"}) {
            messageBox.shown.clear();
            EXPECT_FALSE(lock.Enter(wrong));
            EXPECT_EQ(LastBox(), u"Вы ввели неверный пароль. Попробуйте еще раз.");
        }
        Set(Setting::Password, u"Тайна 1");
    });
    EXPECT_FALSE(lock.IsLocked());
}

TEST_F(ProgramLockTest, NeedsANameOrAPassword) {
    for (const auto& [user, password, stands] :
         {std::tuple(u"", u"", false), {u"Анна", u"", true}, {u"", u"x", true}, {u"Анна", u"\u03C0", true}}) {
        Set(Setting::User, user).Set(Setting::Password, password);
        bool stood = false;
        WhileLocked([&] { stood = true; });
        EXPECT_EQ(stood, stands) << ToUtf8(password);
        EXPECT_EQ(messageBox.shown.size(), stands ? 0U : 1U);
        messageBox.shown.clear();
    }
}

// Each is tried while the lock stands, and leaves everything hidden and the text as it is.
TEST_F(ProgramLockTest, HasNoWayRoundIt) {
    Set(Setting::SaveChange, u"1").Set(Setting::MessageOnExit, u"1");
    const std::pair<const char*, std::function<void()>> ways[] = {
        {"the main window's close", [this] { EXPECT_FALSE(window.OnClose()); }},
        {"a shortcut", [this] { program.Run("MENU:FILE:NEW"); }},
        {"a save", [this] { program.Run("TOOLBAR:SAVE"); }},
        {"the full screen", [this] { program.Run("MENU:VIEW:FULLSCREEN"); }},
        {"a second lock", [this] { program.Run("TOOLBAR:LOCKED"); }},
        {"a file that has changed", [this] { window.OnActivate(); }},
        {"a file that is dropped", [this] { window.document.OnFileDrop(u"/d/file"); }}};
    files.files[u"/d/file"] = "dropped";
    for (const auto& each : ways) {
        const char* const name = each.first;
        const auto& way = each.second;
        WhileLocked([&, this] {
            const auto before = dialogs->shown.size();
            way();
            timers.Tick();
            EXPECT_EQ(dialogs->shown.size(), before) << name;
            EXPECT_TRUE(!window.shown && dialogs->hidings == 1 && shell.concealed) << name;
            EXPECT_TRUE(messageBox.shown.empty()) << name;
            EXPECT_EQ(window.document.Text(), u"letter") << name;
        });
    }
    EXPECT_FALSE(shell.ended);
}

// The notice waits for the keys that were pressed before it.
TEST_F(ProgramLockTest, IsNotCoveredByTheNoticeOfAPasteBefore) {
    clipboard.Hold(std::nullopt);
    program.Run("MENU:EDIT:PASTE");
    WhileLocked([this] {
        timers.Tick();
        EXPECT_TRUE(messageBox.shown.empty());
        clipboard.Text(); // pasted as the password
        timers.Tick();
        EXPECT_EQ(messageBox.shown.size(), 1U);
    });
}

TEST_F(ProgramLockTest, StandsBeforeATextThatWasLeftLocked) {
    RecoveredTexts& recovered = program.Parts().recovered;
    RecoveryPlace place;
    place.isLocked = true;
    place.path = u"/d/name";
    recovery.left = {{.name = "1", .bytes = RecoveryFile(u"secret", place), .time = 0}};
    recovered.Find();
    EXPECT_EQ(recovered.At(0).name, u"(скрыт)");
    EXPECT_EQ(recovered.At(0).path + recovered.At(0).firstLine, u"(программа была заблокирована)");
    int stood = 0;
    dialogs->whileModal = [&] { stood += lock.Enter(u"Тайна 1") ? 1 : 0; };
    EXPECT_TRUE(recovered.Restore(0));
    EXPECT_EQ(window.document.Text(), u"secret");
    EXPECT_EQ(stood, 1);
    Set(Setting::User, u"").Set(Setting::Password, u"");
    EXPECT_TRUE(recovered.MaySeeLocked());
    EXPECT_EQ(stood, 1);
    EXPECT_TRUE(messageBox.shown.empty());
}

TEST_F(ProgramLockTest, EndsTheProgramWhenItsDialogIsTakenAway) {
    dialogs->whileModal = [] {};
    program.Run("MENU:SERVICE:LOCKED");
    EXPECT_TRUE(shell.ended);
    EXPECT_FALSE(window.shown);
    EXPECT_TRUE(shell.concealed);
}

} // namespace
} // namespace quillshift
