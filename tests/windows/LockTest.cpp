#include "platform/qt/QtShell.h"
#include "platform/qt/ScreenReaders.h"
#include "shell/ProgramDialogs.h"
#include "support/FindControl.h"
#include "support/TestProgram.h"

#include <gtest/gtest.h>

#include <QAccessible>
#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QTest>
#include <QTimer>

#include <sys/prctl.h>

namespace quillshift {
namespace {

TEST(LockTest, TakesThePasswordByTheKeyboardAloneAndNoOtherWayOut) {
    for (const bool masked : {true, false}) {
        TestProgram test;
        test.Set(Setting::User, u"Анна")
            .Set(Setting::Password, u"Тайна")
            .Set(Setting::Tip, masked ? u"" : u"*");
        test.settings.Switch(Setting::DoNotShowPassword, masked);
        test.Start();
        ProgramParts& parts = test.program.Parts();
        test.dialogs->whileModal = [&] {
            QWidget owner;
            const auto made = ProgramDialogs(parts, owner).Make(DialogKind::Lock);
            Dialog& dialog = *made;
            dialog.show();
            auto& password = Find<QLineEdit>(dialog, "txtPassword");
            EXPECT_EQ(dialog.focusWidget(), &password);
            EXPECT_EQ(dialog.parentWidget(), nullptr) << "what is hidden is not above it, for nobody";
            EXPECT_EQ(Find<QLabel>(dialog, "lblShowPasswordTip").isEnabled(), !masked);
            QTest::keyClick(&dialog, Qt::Key_Escape);
            dialog.close();
            QTest::keyClicks(&password, QStringLiteral("abc"));
            EXPECT_EQ(password.displayText(), masked ? QStringLiteral("***") : QStringLiteral("abc"));
            QTest::keyClick(&password, Qt::Key_Backspace);
            QTest::keyClick(&password, Qt::Key_Z, Qt::ControlModifier);
            EXPECT_NE(password.text(), QStringLiteral("abc")) << "nothing is brought back";
            password.setText(QStringLiteral("тайна"));
            auto& user = Find<QLineEdit>(dialog, "txtUser");
            EXPECT_EQ(user.text(), QStringLiteral("Анна"));
            user.setFocus();
            QTest::keyClick(&user, Qt::Key_Return);
            EXPECT_EQ(test.messageBox.shown.size(), 1U);
            QTest::keyClick(&password, Qt::Key_Z, Qt::ControlModifier);
            EXPECT_EQ(password.text(), QString());
            EXPECT_EQ(dialog.focusWidget(), &password);
            Find<QLabel>(dialog, "lblShowPasswordTip").linkActivated({});
            EXPECT_EQ(test.LastBox(), test.settings.Text(Setting::Tip));
            EXPECT_TRUE(dialog.isVisible() && parts.lock.IsLocked());
            for (const auto* each : dialog.findChildren<QLineEdit*>())
                EXPECT_NE(each->text(), QStringLiteral("Тайна")) << "it is in no control";
            password.setText(QStringLiteral("Тайна"));
            QTest::keyClick(&password, Qt::Key_Return);
            EXPECT_FALSE(dialog.isVisible());
        };
        test.program.Run("MENU:SERVICE:LOCKED");
        EXPECT_FALSE(test.shell.ended);
    }
}

/// The dialogs in the order in which they are shown from now on.
struct CameUp final : QObject {
    explicit CameUp(std::vector<const QWidget*>& theOrder) : order(theOrder) {
        qApp->installEventFilter(this);
    }
    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() == QEvent::Show && qobject_cast<QDialog*>(watched) != nullptr)
            order.push_back(static_cast<QWidget*>(watched));
        return false;
    }
    std::vector<const QWidget*>& order;
};

TEST(LockTest, AllOtherWindowsGoAndTheNonModalOnesComeBack) {
    TestProgram test;
    QWidget owner;
    owner.show();
    ProgramDialogs dialogs(test.program.Parts(), owner);
    std::array<QDialog, 4> beside;
    for (QDialog& each : beside)
        each.setParent(&owner, Qt::Dialog);
    QDialog& left = beside[2];
    left.move(40, 50);
    for (const int shown : {1, 0, 3, 2, 0}) {
        QDialog& dialog = beside[std::size_t(shown)];
        dialog.show();
        dialog.activateWindow();
        EXPECT_TRUE(QTest::qWaitFor([&] { return QApplication::focusWindow() == dialog.windowHandle(); }));
    }
    std::vector<const QWidget*> back;
    CameUp cameUp(back);
    QTimer::singleShot(0, [&] {
        dialogs.HideAll();
        EXPECT_FALSE(left.isVisible());
    });
    QMessageBox box(&owner);
    EXPECT_EQ(box.exec(), QDialog::Rejected) << "a box is cancelled";
    back.clear();
    EXPECT_TRUE(owner.isVisible());
    dialogs.BringBack();
    EXPECT_TRUE(left.isVisible());
    EXPECT_EQ(left.pos(), QPoint(40, 50));
    EXPECT_EQ(back, (std::vector<const QWidget*>{&beside[1], &beside[3], &left, beside.data()}))
        << "the one on top last";
    EXPECT_FALSE(box.isVisible());
}

TEST(LockTest, AssistiveProgramsMeetWhatIsOnTheScreenAlone) {
    ShowScreenReadersTheScreenAlone();
    QAccessible::setActive(true);
    QWidget shown;
    shown.show();
    QWidget hidden;
    hidden.winId();
    QLineEdit text(QStringLiteral("secret"), &hidden);
    QAccessibleInterface& root = *QAccessible::queryAccessibleInterface(qApp);
    std::vector<QObject*> windows;
    windows.reserve(static_cast<std::size_t>(root.childCount()));
    for (int i = 0; i < root.childCount(); ++i)
        windows.push_back(root.child(i)->object());
    EXPECT_EQ(windows, std::vector<QObject*>{&shown});
    const auto before = QAccessible::uniqueId(QAccessible::queryAccessibleInterface(&text));
    QtShell shell({});
    shell.Conceal(true);
    EXPECT_EQ(::prctl(PR_GET_DUMPABLE), 0);
    EXPECT_EQ(QAccessible::accessibleInterface(before), nullptr);
    shell.Conceal(false);
    EXPECT_EQ(::prctl(PR_GET_DUMPABLE), 1);
    QAccessible::setActive(false);
}

} // namespace
} // namespace quillshift
