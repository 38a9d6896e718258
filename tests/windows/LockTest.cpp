#include "platform/qt/QtShell.h"
#include "platform/qt/ScreenReaders.h"
#include "settings/frmLockProgram.h"
#include "shell/ProgramDialogs.h"
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

/// The lock's real dialog.
struct LockTest : testing::Test {
    LockTest() {
        test.Set(Setting::User, u"Анна").Set(Setting::Password, u"Тайна").Set(Setting::Tip, u"что-то");
        test.settings.Switch(Setting::DoNotShowPassword, true);
        test.Start();
    }
    // Runs `what` on the dialog while the lock stands.
    void WhileLocked(const std::function<void(frmLockProgram&)>& what) {
        test.dialogs->whileModal = [this, what] {
            frmLockProgram dialog({test.platform, parts.settings, parts.sounds, nullptr}, parts.lock);
            dialog.show();
            what(dialog);
            if (parts.lock.IsLocked())
                parts.lock.Enter(u"Тайна");
        };
        test.program.Run("MENU:SERVICE:LOCKED");
    }
    TestProgram test;
    ProgramParts& parts = test.program.Parts();
};

TEST_F(LockTest, TakesThePasswordByTheKeyboardAloneAndNoOtherWayOut) {
    WhileLocked([this](frmLockProgram& dialog) {
        auto& password = *dialog.findChild<QLineEdit*>("txtPassword");
        EXPECT_EQ(dialog.focusWidget(), &password);
        EXPECT_EQ(dialog.findChild<QLineEdit*>("txtUser")->text(), QStringLiteral("Анна"));
        EXPECT_EQ(dialog.parentWidget(), nullptr) << "what is hidden is not above it, for nobody";
        QTest::keyClick(&dialog, Qt::Key_Escape);
        dialog.close();
        password.insert(QStringLiteral("тайна"));
        QTest::keyClicks(&password, QStringLiteral("x"));
        EXPECT_EQ(password.displayText(), QStringLiteral("******"));
        password.clear();
        QTest::keyClick(&password, Qt::Key_Z, Qt::ControlModifier);
        EXPECT_EQ(password.text(), QString()) << "nothing is brought back";
        QTest::keyClick(&password, Qt::Key_Return);
        EXPECT_EQ(test.messageBox.shown.size(), 1U);
        EXPECT_EQ(password.text(), QString());
        dialog.findChild<QLabel*>("lblShowPasswordTip")->linkActivated({});
        EXPECT_EQ(test.LastBox(), u"что-то");
        EXPECT_TRUE(dialog.isVisible());
        for (const auto* each : dialog.findChildren<QLineEdit*>())
            EXPECT_NE(each->text(), QStringLiteral("Тайна")) << "it is in no control";
        password.setText(QStringLiteral("Тайна"));
        QTest::keyClick(dialog.findChild<QLineEdit*>("txtUser"), Qt::Key_Return);
        EXPECT_FALSE(dialog.isVisible());
    });
}

TEST_F(LockTest, AllOtherWindowsGoAndTheNonModalOnesComeBack) {
    QWidget owner;
    owner.show();
    QDialog left(&owner);
    left.move(40, 50);
    left.show();
    ProgramDialogs dialogs(parts, owner);
    QTimer::singleShot(0, [&] {
        dialogs.HideAll();
        EXPECT_FALSE(left.isVisible());
    });
    QMessageBox box(&owner);
    EXPECT_EQ(box.exec(), QDialog::Rejected) << "a box is cancelled";
    EXPECT_TRUE(owner.isVisible());
    dialogs.BringBack();
    EXPECT_TRUE(left.isVisible());
    EXPECT_EQ(left.pos(), QPoint(40, 50));
    EXPECT_FALSE(box.isVisible());
}

TEST_F(LockTest, AssistiveProgramsMeetWhatIsOnTheScreenAlone) {
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
