#include "harness/TemporaryFolder.h"
#include "settings/frmAbout.h"
#include "settings/frmLicense.h"
#include "settings/frmSplash.h"
#include "shell/ProgramDialogs.h"
#include "support/FindControl.h"
#include "support/TestProgram.h"
#include "support/TestsFolder.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QBuffer>
#include <QClipboard>
#include <QImage>
#include <QLabel>
#include <QPushButton>
#include <QScreen>
#include <QTest>
#include <QTextEdit>

namespace quillshift {
namespace {

/// A program at its start, with all sounds on.
struct StartDialogs : testing::Test {
    TestProgram test;
    ProgramParts& parts = test.program.Parts();
    DialogContext context{parts.platform, parts.settings, parts.sounds, nullptr};

    StartDialogs() {
        for (const SoundEvent& event : kSoundEvents) {
            test.settings.Switch(event.on, true);
            test.settings.Set(event.path, event.defaultFile);
        }
    }
};

enum class Way { FirstButton, LastButton, Escape, CloseBox };

void Leave(Dialog& dialog, Way way) {
    const QList<DialogButton*> buttons = dialog.findChildren<DialogButton*>();
    if (way == Way::Escape)
        QTest::keyClick(&dialog, Qt::Key_Escape);
    else if (way == Way::CloseBox)
        dialog.close();
    else
        QTest::mouseClick(way == Way::FirstButton ? buttons.front() : buttons.back(), Qt::LeftButton);
}

TEST(StartDialog, EachWayOutDoesWhatItSays) {
    using enum Way;
    constexpr const char* kNotAgain = "chkDoNotShowThisDialog";
    constexpr const char* kOpen = "optOpenDocument";
    constexpr const char* kNew = "optCreateNewDocument";
    struct Case {
        DialogKind kind;
        std::vector<const char*> chosen;
        Way way;
        bool goesOn = true;
        bool opens = false;
    };
    const Case cases[] = {{DialogKind::Welcome, {}, FirstButton},
                          {DialogKind::Welcome, {kNotAgain}, FirstButton},
                          {DialogKind::Welcome, {kNotAgain}, Escape},
                          {DialogKind::Welcome, {kNotAgain}, CloseBox, false},
                          {DialogKind::WorkBegin, {}, FirstButton},
                          {DialogKind::WorkBegin, {kOpen, kNotAgain}, FirstButton, true, true},
                          {DialogKind::WorkBegin, {kOpen, kNew}, FirstButton},
                          {DialogKind::WorkBegin, {kOpen, kNotAgain}, LastButton},
                          {DialogKind::WorkBegin, {kOpen}, Escape},
                          {DialogKind::WorkBegin, {kOpen, kNotAgain}, CloseBox, false}};
    for (const Case& one : cases) {
        const auto& [kind, chosen, way, goesOn, opens] = one;
        SCOPED_TRACE(&one - cases);
        TestProgram test;
        const Setting isShown = kind == DialogKind::Welcome ? Setting::Welcome : Setting::WorkBegin;
        test.settings.Switch(isShown, true);
        test.program.Parts().start.OpenAtStart = kind == DialogKind::WorkBegin; // which clears it
        QWidget owner;
        const auto dialog = ProgramDialogs(test.program.Parts(), owner).Make(kind);
        dialog->show();
        for (const char* button : chosen)
            Find<QAbstractButton>(*dialog, button).setChecked(true);
        Leave(*dialog, way);
        EXPECT_FALSE(test.window.shown || test.shell.ended) << "in the middle of its event";
        test.sound.played = {u"of the dialog"};
        test.timers.Tick();
        EXPECT_EQ(test.sound.ended.empty(), goesOn) << "the end would cut it";
        EXPECT_EQ(test.window.shown, goesOn);
        EXPECT_EQ(test.shell.ended, !goesOn);
        EXPECT_EQ(test.fileDialog.namesAtOpening.size(), opens ? 1U : 0U);
        const bool ticked = std::ranges::find(chosen, kNotAgain) != chosen.end();
        EXPECT_EQ(test.settings.Is(isShown), !ticked || way == CloseBox);
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
    QByteArray large;
    QBuffer file(&large);
    QImage(2000, 1000, QImage::Format_RGB32).save(&file, "PNG");
    const QSize screen = QGuiApplication::primaryScreen()->availableSize();
    const std::pair<std::string, QSize> cases[] = {
        {picture, {480, 270}}, // two pixels of the file to the unit
        {large.toStdString(), {screen.width(), screen.width() / 2}},
        {"", {}},
        {picture.substr(0, 100), {}},
        {"no picture", {}}};
    for (const auto& [bytes, size] : cases) {
        test.files.files[u"/program/Splash.spl"] = bytes;
        for (const bool above : {false, true}) {
            test.settings.Switch(Setting::TopMost, above);
            frmSplash splash(context);
            splash.show();
            EXPECT_EQ(splash.windowFlags().testFlag(Qt::WindowStaysOnTopHint), above);
            test.sound.played.clear();
            QTest::mouseClick(&splash, Qt::RightButton);
            QTest::keyClick(&splash, Qt::Key_Escape);
            splash.close();
            EXPECT_EQ(splash.isVisible() ? splash.size() : QSize(), size);
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
        QTest::mouseClick(&Find<QPushButton>(about, "cmdOK"), Qt::LeftButton);
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
