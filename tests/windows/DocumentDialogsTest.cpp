#include "base/Windows1251.h"
#include "controls/ProgressBar.h"
#include "document/frmDocumentProperties.h"
#include "document/frmInsertTimeAndDate.h"
#include "harness/Iconv.h"
#include "recoding/frmDecode.h"
#include "recoding/frmDecoding.h"
#include "shell/ProgramDialogs.h"
#include "support/FailureOf.h"
#include "support/FindControl.h"
#include "support/TestProgram.h"

#include <QtTest/QtTest>
#include <QtWidgets/QtWidgets>

namespace quillshift {
namespace {

/// The real dialogs over a program whose main window is a fake.
struct DocumentDialogs : testing::Test {
    TestProgram test;
    ProgramParts& parts = (test.Start(), test.program.Parts());
    DialogContext context{parts.platform, parts.settings, parts.sounds, nullptr};

    static QString Text(const QWidget& dialog, const char* name) {
        return Find<QLineEdit>(dialog, name).text();
    }
};

TEST_F(DocumentDialogs, TheDateIsThatOfTheOpeningUnlessItIsToFollowTheClock) {
    for (const bool follows : {false, true}) {
        test.clock.now = {2026, 3, 5, 9, 7, 8};
        test.window.document.SetText(u"ab");
        test.window.document.SetSelLength(1);
        frmInsertTimeAndDate dialog(context, test.window.document);
        dialog.show();
        auto& dates = Find<QListWidget>(dialog, "lstDates");
        EXPECT_FALSE(Find<QCheckBox>(dialog, "chkAutoUpdate").isChecked());
        Find<QCheckBox>(dialog, "chkAutoUpdate").setChecked(follows);
        test.messageBox.shown.clear();
        QTest::keyClick(&dialog, Qt::Key_Return); // nothing is chosen
        EXPECT_EQ(test.LastBox(), u"Выберите необходимый формат!");
        EXPECT_TRUE(dialog.isVisible());
        EXPECT_EQ(test.window.document.Text(), u"ab");

        test.clock.now.minute = 8;
        dates.setCurrentRow(13);
        const QPoint row = dates.visualItemRect(dates.item(13)).center();
        QTest::mouseClick(dates.viewport(), Qt::LeftButton, {}, row);
        QTest::mouseDClick(dates.viewport(), Qt::LeftButton, {}, row);
        QTest::mouseRelease(dates.viewport(), Qt::LeftButton, {}, row); // else it counts as held from then on
        EXPECT_EQ(test.window.document.Text(),
                  follows ? u"05 марта 2026 09.08.08b" : u"05 марта 2026 09.07.08b");
        EXPECT_FALSE(dialog.isVisible());
    }
}

TEST_F(DocumentDialogs, PropertiesAreTheDisksAndCanBeCopiedButNotChanged) {
    test.fileDialog.FileName = u"/d/.name.txt";
    test.files.facts[u"/d/.name.txt"] = {
        .size = 1024, .created = 1, .modified = 60, .accessed = 3600, .hidden = true, .readOnly = true};
    frmDocumentProperties dialog(context);
    dialog.show();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&dialog));
    EXPECT_EQ(Text(dialog, "lblName"), QStringLiteral(".name.txt"));
    EXPECT_EQ(Text(dialog, "txtLocation"), QStringLiteral("/d/.name.txt"));
    EXPECT_EQ(Text(dialog, "lblSize"), QStringLiteral("1,00 КБ"));
    EXPECT_EQ(Text(dialog, "lblDate0"), QStringLiteral("01.01.1970 г., 0:0:1"));
    EXPECT_EQ(Text(dialog, "lblDate1"), QStringLiteral("01.01.1970 г., 0:1:0"));
    EXPECT_EQ(Text(dialog, "lblDate2"), QStringLiteral("01.01.1970 г., 1:0:0"));
    constexpr std::pair<const char*, bool> kTicked[] = {
        {"chkAttrib1", true}, {"chkAttrib2", false}, {"chkAttrib3", true}, {"chkAttrib4", false}};
    for (const auto& [name, ticked] : kTicked) {
        auto& box = Find<QCheckBox>(dialog, name);
        EXPECT_EQ(box.isChecked(), ticked) << name;
        QTest::mouseClick(&box, Qt::LeftButton, {}, {8, box.height() / 2});
        EXPECT_EQ(box.isChecked(), ticked) << name;
        box.toggle();
        EXPECT_EQ(box.isChecked(), ticked) << name;
        EXPECT_TRUE(Find<QPushButton>(dialog, "cmdClose").hasFocus() && !box.hasFocus()) << name;
    }
    auto& size = Find<QLineEdit>(dialog, "lblSize");
    QTest::keyClicks(&size, QStringLiteral("x"));
    EXPECT_EQ(size.text(), QStringLiteral("1,00 КБ"));
    QTest::mouseDClick(&size, Qt::LeftButton, {}, {8, size.height() / 2});
    QTest::mouseRelease(&size, Qt::LeftButton, {}, {8, size.height() / 2});
    EXPECT_TRUE(size.hasSelectedText());
    QTest::keyClick(&dialog, Qt::Key_Escape);
    EXPECT_FALSE(dialog.isVisible());
}

TEST_F(DocumentDialogs, PropertiesOfNoFileOrARemovedOneArePlaceholders) {
    for (const auto* path : {u"", u"/d/removed.txt"}) {
        test.fileDialog.FileName = path;
        const frmDocumentProperties dialog(context);
        EXPECT_EQ(Text(dialog, "lblName"), QStringLiteral("Документ"));
        EXPECT_EQ(Text(dialog, "txtLocation"), QStringLiteral("<Файл не сохранен>"));
        EXPECT_EQ(Text(dialog, "lblSize"), QStringLiteral("<Файл не сохранен>"));
        for (const auto* date : {"lblDate0", "lblDate1", "lblDate2"})
            EXPECT_EQ(Text(dialog, date), QStringLiteral("<Неизвестно>"));
    }
    test.files.files[u"/d/a.txt"] = "a";
    test.fileDialog.FileName = u"/d/a.txt";
    EXPECT_EQ(Text(frmDocumentProperties(context), "lblDate0"), QStringLiteral("<Неизвестно>"));
}

using RecodingDialogs = DocumentDialogs;

// Recodes a letter of the source's alphabet by each pair, against the system's own conversion.
TEST_F(RecodingDialogs, RecodesByThePairThatIsChosenAndByNoneOfOneSet) {
    constexpr std::pair<const char*, const char*> kSets[] = {{"DOS", "CP866"},
                                                             {"WIN", "CP1251"},
                                                             {"KOI", "KOI8-R"},
                                                             {"ISO", "ISO-8859-5"},
                                                             {"MAC", "MACCYRILLIC"}};
    frmDecode dialog(context, parts.job);
    dialog.show();
    const auto option = [&](const std::string& set, char side) -> QRadioButton& {
        return Find<QRadioButton>(dialog, ("Option" + set + side).c_str());
    };
    EXPECT_TRUE(option("DOS", '1').isChecked() && option("WIN", '2').isChecked());
    EXPECT_FALSE(option("DOS", '2').isEnabled());
    for (const auto& [source, sourceSet] : kSets)
        for (const auto& [target, targetSet] : kSets) {
            const std::u16string before = windows1251::Decode(Iconv("Жук", "UTF-8", sourceSet));
            test.window.document.SetText(before);
            option(source, '1').setChecked(true);
            option(target, '2').setChecked(true);
            for (const auto& [other, set] : kSets)
                EXPECT_EQ(option(other, '2').isEnabled(), other != source);
            const auto shown = test.dialogs->shown.size();
            QTest::keyClick(&dialog, Qt::Key_Return);
            EXPECT_EQ(test.dialogs->shown.size() - shown, source == target ? 0U : 1U);
            const std::u16string after = windows1251::Decode(Iconv("Жук", "UTF-8", targetSet));
            EXPECT_EQ(test.window.document.Text(), source == target ? before : after) << source << target;
        }
}

TEST_F(RecodingDialogs, PlayTheirSoundsAtLoadMovePressAndUnload) {
    test.SwitchSoundsOn();
    {
        frmDecode dialog(context, parts.job);
        dialog.show();
        QTest::mouseMove(&Find<QPushButton>(dialog, "cmdCancel"));
        QTest::mouseClick(&Find<QPushButton>(dialog, "cmdCancel"), Qt::RightButton);
    }
    EXPECT_EQ(test.sound.played, (std::vector<std::u16string>{u"FormLoad.wav", u"ButtonMove.wav",
                                                              u"ButtonClick.wav", u"FormUnload.wav"}));
}

TEST_F(RecodingDialogs, BeginAnewEachTimeThatTheyAreShown) {
    QWidget owner;
    ProgramDialogs dialogs(parts, owner);
    for (int time = 0; time < 2; ++time) {
        QTimer::singleShot(0, [] {
            QWidget& dialog = *QApplication::activeModalWidget();
            EXPECT_TRUE(Find<QRadioButton>(dialog, "OptionDOS1").isChecked());
            Find<QRadioButton>(dialog, "OptionKOI1").setChecked(true);
            dialog.close();
        });
        dialogs.Show(DialogKind::Decode, 0);
    }
}

// Only the job closes its dialog: Escape and the close box ask.
TEST_F(RecodingDialogs, TheProgressDialogAsksBeforeItStops) {
    frmDecoding dialog(context, parts.job);
    EXPECT_EQ(Find<QLineEdit>(dialog, "txtPath").text(), QStringLiteral("Документ не сохранен"));
    dialog.show();
    test.messageBox.answers = {BoxAnswer::No, BoxAnswer::No, BoxAnswer::No};
    QTest::keyClick(&dialog, Qt::Key_Escape);
    dialog.close();
    QTest::mouseClick(&Find<QPushButton>(dialog, "cmdCancel"), Qt::LeftButton);
    EXPECT_EQ(test.messageBox.shown.size(), 3U);
    EXPECT_TRUE(dialog.isVisible());
    EXPECT_FALSE(parts.recoding.StopRequested);
    test.messageBox.answers = {BoxAnswer::Yes};
    QTest::keyClick(&dialog, Qt::Key_Escape);
    EXPECT_TRUE(parts.recoding.StopRequested);
}

TEST(ProgressBarTest, InvertsTheLabelUnderTheFilledPart) {
    ProgressBar bar;
    bar.resize(200, 24);
    bar.SetText(u"MMMMMMMM");
    bar.SetValue(50);
    const QImage image = bar.grab().toImage();
    EXPECT_EQ(image.pixelColor(2, 2), QColor(0, 0, 128));
    EXPECT_EQ(image.pixelColor(197, 2), QColor(Qt::white));
    const auto shows = [&](QColor colour, int from, int to) {
        for (int x = from; x < to; ++x)
            for (int y = 0; y < image.height(); ++y)
                if (image.pixelColor(x, y) == colour)
                    return true;
        return false;
    };
    EXPECT_TRUE(shows(QColor(255, 255, 127), 60, 99)) << "the inverse of the label's black";
    EXPECT_TRUE(shows(QColor(Qt::black), 101, 140));
    EXPECT_FALSE(shows(QColor(Qt::black), 0, 99));
}

TEST(ProgressBarTest, ReckonsPercentagesAndRefusesAnEmptyWhole) {
    ProgressBar bar;
    bar.SetTotalValue(-1); // has no effect without `CalculatePercentage`
    bar.SetCalculatePercentage(true);
    EXPECT_EQ(bar.TotalValue(), 100);
    bar.SetTotalValue(8);
    bool reached = false;
    QMetaObject::invokeMethod(
        &bar, [&] { reached = true; }, Qt::QueuedConnection);
    bar.SetValue(1);
    EXPECT_TRUE(reached) << "a step lets events through, such as a stop";
    EXPECT_EQ(bar.Label(), u" 13%");
    QAccessibleInterface* const told = QAccessible::queryAccessibleInterface(&bar);
    EXPECT_EQ(told->role(), QAccessible::ProgressBar);
    EXPECT_EQ(told->valueInterface()->currentValue().toDouble(), 12.5);
    const Error error = FailureOf([&] { bar.SetTotalValue(0); });
    EXPECT_EQ(static_cast<unsigned>(error.Number()), 0x800403E9U);
    EXPECT_EQ(error.Source(), u"spbProgressBar");
    bar.SetCalculatePercentage(false);
    EXPECT_EQ(bar.TotalValue(), 0);
}

} // namespace
} // namespace quillshift
