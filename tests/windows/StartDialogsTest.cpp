#include "harness/TemporaryFolder.h"
#include "settings/frmAbout.h"
#include "settings/frmLicense.h"
#include "settings/frmSplash.h"
#include "settings/frmWelcome.h"
#include "settings/frmWorkBegin.h"
#include "shell/ProgramDialogs.h"
#include "support/FindControl.h"
#include "support/TestProgram.h"
#include "support/TestsFolder.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QCheckBox>
#include <QClipboard>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QTest>
#include <QTextEdit>

namespace quillshift {
namespace {

/// A program that is at the first of its dialogs, or before.
struct AtStart {
    TestProgram test;
    ProgramParts& parts = test.program.Parts();
    DialogContext context{parts.platform, parts.settings, parts.sounds, nullptr};

    AtStart() {
        for (const SoundEvent& event : kSoundEvents) {
            test.settings.Switch(event.on, true);
            test.settings.Set(event.path, event.defaultFile);
        }
    }
    static void Press(const QWidget& dialog, const char* button) {
        QTest::mouseClick(&Find<QPushButton>(dialog, button), Qt::LeftButton);
    }
    /// How the chain goes on: "main", "end" or not at all.
    std::string Next() {
        test.timers.Tick();
        return std::string(test.window.shown ? "main" : "") + (test.shell.ended ? "end" : "");
    }
};
struct StartDialogs : testing::Test, AtStart {};

enum class Way { FirstButton, LastButton, Escape, CloseBox };

void Leave(Dialog& dialog, Way way) {
    const QList<DialogButton*> buttons = dialog.findChildren<DialogButton*>();
    dialog.show();
    switch (way) {
    case Way::FirstButton:
        QTest::mouseClick(buttons.front(), Qt::LeftButton);
        break;
    case Way::LastButton:
        QTest::mouseClick(buttons.back(), Qt::LeftButton);
        break;
    case Way::Escape:
        QTest::keyClick(&dialog, Qt::Key_Escape);
        break;
    case Way::CloseBox:
        dialog.close();
        break;
    }
}

TEST(StartDialog, EachWayOutOfTheWelcomeDoesWhatItSays) {
    for (const auto& [way, next] :
         {std::pair{Way::FirstButton, "main"}, {Way::Escape, "main"}, {Way::CloseBox, "end"}})
        for (const bool notAgain : {false, true}) {
            AtStart start;
            start.test.settings.Switch(Setting::Welcome, true);
            frmWelcome dialog(start.context, start.parts.start);
            Find<QCheckBox>(dialog, "chkDoNotShowThisDialog").setChecked(notAgain);
            Leave(dialog, way);
            EXPECT_EQ(start.Next(), next);
            EXPECT_EQ(start.test.settings.Is(Setting::Welcome), way == Way::CloseBox || !notAgain);
        }
}

TEST(StartDialog, GettingStartedOpensADocumentOnlyWhereThatIsChosenAndConfirmed) {
    struct Case {
        std::vector<const char*> chosen;
        Way way;
        bool opens;
        const char* next;
    };
    const Case cases[] = {{{}, Way::FirstButton, false, "main"},
                          {{"optOpenDocument"}, Way::FirstButton, true, "main"},
                          {{"optOpenDocument", "optCreateNewDocument"}, Way::FirstButton, false, "main"},
                          {{"optOpenDocument"}, Way::LastButton, false, "main"},
                          {{"optOpenDocument"}, Way::Escape, false, "main"},
                          {{"optOpenDocument"}, Way::CloseBox, true, "end"}};
    for (const auto& [chosen, way, opens, next] : cases) {
        AtStart start;
        start.test.settings.Switch(Setting::WorkBegin, true);
        bool& openAtStart = start.parts.start.OpenAtStart;
        openAtStart = true;
        frmWorkBegin dialog(start.context, start.parts.start);
        EXPECT_FALSE(openAtStart);
        EXPECT_TRUE(Find<QRadioButton>(dialog, "optCreateNewDocument").isChecked());
        for (const char* option : chosen)
            Find<QRadioButton>(dialog, option).setChecked(true);
        Find<QCheckBox>(dialog, "chkDoNotShowThisDialog").setChecked(true);
        Leave(dialog, way);
        EXPECT_EQ(openAtStart, opens);
        EXPECT_EQ(start.Next(), next);
        EXPECT_EQ(start.test.fileDialog.namesAtOpening.size(), opens && way != Way::CloseBox ? 1U : 0U);
        EXPECT_EQ(start.test.settings.Is(Setting::WorkBegin), way == Way::CloseBox);
    }
}

TEST_F(StartDialogs, UnloadBeforeTheNextOneIsHeard) {
    QWidget owner;
    ProgramDialogs dialogs(parts, owner);
    dialogs.Show(DialogKind::Welcome);
    dialogs.Close(DialogKind::Welcome);
    EXPECT_FALSE(dialogs.IsLoaded(DialogKind::Welcome));
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_EQ(test.sound.played, (std::vector<std::u16string>{u"FormLoad.wav", u"FormUnload.wav"}));
}

TEST_F(StartDialogs, TheSplashShowsItsPictureClicksAndStays) {
    const std::string picture = Contents(TestsFolder().parent_path() / "Splash.spl");
    const std::pair<std::string, bool> cases[] = {
        {picture, true}, {"", false}, {picture.substr(0, 100), false}, {"no picture", false}};
    for (const auto& [bytes, shows] : cases) {
        test.files.files[u"/program/Splash.spl"] = bytes;
        for (const bool above : {false, true}) {
            test.settings.Switch(Setting::TopMost, above);
            frmSplash splash(context);
            splash.show();
            EXPECT_EQ(splash.isVisible(), shows);
            EXPECT_EQ(splash.windowFlags().testFlag(Qt::WindowStaysOnTopHint), above);
            test.sound.played.clear();
            QTest::mouseClick(&splash, Qt::RightButton);
            QTest::keyClick(&splash, Qt::Key_Escape);
            splash.close();
            EXPECT_EQ(splash.isVisible(), shows);
            EXPECT_TRUE(!shows || splash.size() == QSize(480, 270)) << "two pixels of the file to the unit";
        }
        EXPECT_EQ(test.sound.played, std::vector<std::u16string>{u"ButtonClick.wav"});
    }
}

TEST_F(StartDialogs, TheAboutBoxTellsTheVersionAndItsButtonIsSilent) {
    {
        frmAbout about(context);
        about.show();
        EXPECT_EQ(Find<QLabel>(about, "lblVersion").text(),
                  QStringLiteral("Version 3.0.0 Preview build 241 for Microsoft Windows."));
        for (const char* link : {"Hyperlink1", "Hyperlink2"})
            QTest::mouseClick(&Find<QWidget>(about, link), Qt::LeftButton);
        Press(about, "cmdOK");
        EXPECT_FALSE(about.isVisible());
    }
    EXPECT_EQ(test.shell.opened, (std::vector<std::u16string>{u"mailto:author@quillshift.example",
                                                              u"https://quillshift.example/"}));
    EXPECT_EQ(test.sound.played, (std::vector<std::u16string>{u"FormLoad.wav", u"FormUnload.wav"}));
}

TEST_F(StartDialogs, TheLicenceCanBeReadInTwoLanguagesAndCopiedButNotWritten) {
    const frmLicense empty(context);
    EXPECT_EQ(Find<QTextEdit>(empty, "RichTextBox").toPlainText(), QString()) << "there is no file";
    test.files.files[u"/program/License.rtf"] = Contents(TestsFolder().parent_path() / "License.rtf");
    frmLicense dialog(context);
    auto& text = Find<QTextEdit>(dialog, "RichTextBox");
    dialog.show();
    const QString whole = text.toPlainText();
    EXPECT_TRUE(whole.startsWith(QStringLiteral("Лицензия MIT\nCopyright (c)")));
    const QString english =
        QString::fromStdString(Contents(TestsFolder().parent_path() / "LICENSE")).simplified();
    EXPECT_TRUE(QString(whole).simplified().endsWith(english)) << "word for word";
    text.setFocus();
    QTest::keyClicks(&text, QStringLiteral("x"));
    QTest::keyClick(&text, Qt::Key_A, Qt::ControlModifier);
    QTest::keyClick(&text, Qt::Key_X, Qt::ControlModifier);
    QTest::keyClick(&text, Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(text.toPlainText(), whole);
    EXPECT_EQ(QApplication::clipboard()->text(), whole);
    QTest::keyClick(&text, Qt::Key_Escape);
    EXPECT_FALSE(dialog.isVisible());
}

} // namespace
} // namespace quillshift
