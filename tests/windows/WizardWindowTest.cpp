#include "base/Utf8.h"
#include "support/FakePlatform.h"
#include "support/FindControl.h"
#include "wizard/Letters.h"
#include "wizard/rescue/DiskFiles.h"
#include "wizard/window/frmWizard.h"

#include <QtTest/QtTest>
#include <QtWidgets/QtWidgets>
#include <gtest/gtest.h>

namespace quillshift::wizard {
namespace {

/// The window over real files.
struct WizardWindow : testing::Test, FakePlatform, Letters {
    void Show() {
        window.show();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    }
    void Wait() {
        ASSERT_TRUE(QTest::qWaitFor([this] { return rescue.WhatIsDone() == Doing::Nothing; }, 20000));
    }
    void Press(const char* name) { Find<QPushButton>(window, name).click(); }
    QTreeView& Files() { return Find<QTreeView>(window, "lstFiles"); }
    QString Cell(int row, int column) { return Files().model()->index(row, column).data().toString(); }
    void GoTo(int row) { Files().setCurrentIndex(Files().model()->index(row, 0)); }
    QRadioButton& Option(int number) {
        return Find<QRadioButton>(window, ("proposal" + std::to_string(number) + "Option").c_str());
    }
    bool IsOn(const char* name) { return Find<QPushButton>(window, name).isEnabled(); }
    void Drop(const QMimeData& data) {
        QDragEnterEvent enter({}, Qt::CopyAction, &data, Qt::LeftButton, {});
        QCoreApplication::sendEvent(&window, &enter);
        EXPECT_TRUE(enter.isAccepted());
        QDropEvent drop({}, Qt::CopyAction | Qt::MoveAction, &data, Qt::LeftButton, {});
        QCoreApplication::sendEvent(&window, &drop);
        EXPECT_EQ(drop.dropAction(), Qt::CopyAction) << "or the other program deletes its own";
    }

    Settings settings{store};
    SoundEvents sounds{settings, sound};
    DiskFiles disk;
    Rescue rescue{disk, clipboard};
    frmWizard window{{platform, settings, sounds, nullptr}, rescue};
};

TEST_F(WizardWindow, RescuesADroppedFolderAndBringsItBack) {
    const std::string letter = Make("1.txt", koi), brief = Make("2.txt", few),
                      odd = Make("\xF7.txt", Iconv(text, "UTF-8", "CP866"));
    EXPECT_FALSE(Files().isVisible());
    for (const char* name : {"cmdRepair", "cmdReturn", "cmdClear"})
        EXPECT_FALSE(IsOn(name)) << name;
    QMimeData dropped;
    const QString folder = QString::fromStdString(folder_);
    dropped.setUrls({QUrl::fromLocalFile(folder), QUrl(QStringLiteral("file://") + folder + "/%F7.txt")});
    Show();
    Drop(dropped);
    Wait();
    ASSERT_EQ(Files().model()->rowCount(), 3);
    EXPECT_EQ(Cell(0, 0), QStringLiteral("1.txt"));
    EXPECT_EQ(Cell(0, 1), QStringLiteral("KOI8-R"));
    EXPECT_TRUE(Option(1).isChecked());
    EXPECT_TRUE(
        Option(1).accessibleDescription().contains(QString::fromStdString(text.substr(0, text.find(',')))));
    GoTo(1);
    EXPECT_EQ(Cell(1, 2), QStringLiteral("сомнительно"));
    Option(1).click();
    EXPECT_EQ(Cell(1, 2), QStringLiteral("выбрано вручную"));
    Press("cmdRepair");
    Wait();
    EXPECT_EQ(Contents(letter), text);
    EXPECT_EQ(Contents(brief), "Вот В");
    EXPECT_EQ(Contents(odd), text);
    EXPECT_FALSE(IsOn("cmdRepair"));
    EXPECT_FALSE(Option(1).isEnabled()) << "it is done";
    messageBox.answers = {BoxAnswer::No, BoxAnswer::Yes};
    Press("cmdReturn");
    EXPECT_EQ(Contents(letter), text) << "asked first";
    Find<QPushButton>(window, "cmdReturn").setFocus();
    Press("cmdReturn");
    Wait();
    EXPECT_TRUE(Files().hasFocus()) << "or the next Enter would close the window";
    EXPECT_EQ(Contents(letter), koi);
    EXPECT_FALSE(IsOn("cmdReturn"));
    window.List({Make("../other.txt", text)});
    Wait();
    EXPECT_EQ(Cell(0, 0), QStringLiteral("letters/1.txt"));
    Press("cmdClear");
    EXPECT_EQ(Files().model()->rowCount(), 0);
}

TEST_F(WizardWindow, TakesAPastedTextBackToTheClipboard) {
    Show();
    QTest::keyClick(&window, Qt::Key_V, Qt::ControlModifier);
    ASSERT_EQ(messageBox.shown.size(), 1U) << "there is nothing to paste";
    clipboard.SetText(FromUtf8(Iconv(koi, "CP866", "UTF-8")));
    QTest::keyClick(&window, Qt::Key_V, Qt::ControlModifier);
    QTest::keyClick(&window, Qt::Key_Return);
    EXPECT_EQ(clipboard.text, FromUtf8(text));
    EXPECT_EQ(Cell(0, 2), QStringLiteral("в буфере обмена"));
}

TEST_F(WizardWindow, ListsTenThousandFilesInShortTurnsAndStopsAtEscape) {
    for (int i = 0; i < 10000; ++i)
        Make(std::to_string(i), i % 100 == 0 ? koi : "x");
    Show();
    window.List({folder_});
    ASSERT_TRUE(QTest::qWaitFor([this] { return Files().model()->rowCount() > 100; }, 20000));
    EXPECT_LT(Files().model()->rowCount(), 10000) << "they come bit by bit";
    QTest::keyClick(&window, Qt::Key_Escape);
    Wait();
    EXPECT_TRUE(window.isVisible()) << "the first Escape stops";
    window.List({folder_});
    Wait();
    EXPECT_EQ(Files().model()->rowCount(), 10000);
    QTest::keyClick(&window, Qt::Key_Escape);
    EXPECT_FALSE(window.isVisible());
}

// By what a reader and a keyboard need; the order is that of reading.
TEST_F(WizardWindow, IsThereForTheKeyboardAndScreenReaders) {
    Make("1.txt", few);
    Make("2.txt", koi);
    Make("3.txt", text);
    Show();
    window.List({folder_});
    Wait();
    QStringList names;
    QWidget* widget = &Find<QPushButton>(window, "cmdFiles");
    do {
        if ((widget->focusPolicy() & Qt::TabFocus) != 0 && widget->isVisible() && widget->isEnabled())
            names << widget->objectName();
        widget = widget->nextInFocusChain();
    } while (widget != &Find<QPushButton>(window, "cmdFiles"));
    names.removeAll(QString());
    EXPECT_EQ(names.join(u' '),
              QStringLiteral("cmdFiles cmdFolder cmdPaste cmdClear lstFiles proposal1Option "
                             "proposal2Option proposal3Option proposal4Option cmbTarget "
                             "cmdRepair cmdClose"));
    QSet<QString> keys;
    for (const QPushButton* button : window.findChildren<QPushButton*>())
        if (button->isVisible()) {
            const QString key = QKeySequence::mnemonic(button->text()).toString();
            EXPECT_FALSE(key.isEmpty() || keys.contains(key)) << button->text().toStdString();
            keys.insert(key);
        }
    EXPECT_FALSE(Files().accessibleName().isEmpty());
    const QString picture = qEnvironmentVariable("GALLERY");
    if (!picture.isEmpty()) {
        QCoreApplication::processEvents(); // what is laid out only then
        EXPECT_TRUE(window.grab().save(picture + QStringLiteral("/wizard.png")));
    }
}

TEST_F(WizardWindow, CutsNoCaptionHoweverLargeTheTextIs) {
    const QFont usual = QApplication::font();
    QApplication::setFont(QFont(usual.family(), 30));
    frmWizard large({platform, settings, sounds, nullptr}, rescue);
    large.show();
    large.List({Make("1.txt", few)});
    Wait();
    ASSERT_TRUE(QTest::qWaitFor([&] { return Find<QPushButton>(large, "cmdLikeIt").isVisible(); }));
    QCoreApplication::processEvents();
    EXPECT_EQ(large.size().boundedTo(large.screen()->availableSize()), large.size());
    for (const QPushButton* button : large.findChildren<QPushButton*>())
        EXPECT_TRUE(!button->isVisible() || button->width() >= button->minimumSizeHint().width())
            << button->text().toStdString();
    QApplication::setFont(usual);
}

} // namespace
} // namespace quillshift::wizard
