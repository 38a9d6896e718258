#include "document/frmDocumentProperties.h"
#include "document/frmInsertTimeAndDate.h"
#include "support/FindControl.h"
#include "support/TestProgram.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QCheckBox>
#include <QLineEdit>
#include <QListWidget>
#include <QTest>

namespace quillshift {
namespace {

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

} // namespace
} // namespace quillshift
