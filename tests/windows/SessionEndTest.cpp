#include "platform/qt/SessionEnd.h"
#include "support/WidgetBars.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QDialog>
#include <QSessionManager>
#include <QTest>

namespace quillshift {
namespace {

// The toolkit closes all windows at this event, as if the user had.
TEST(SessionEnd, EndsTheProgramAndClosesNoWindow) {
    int ended = 0;
    const SessionEnd end({.save = [] {}, .end = [&] { ++ended; }});
    QWidget window;
    window.show();
    QEvent quit(QEvent::Quit);
    QCoreApplication::sendEvent(qApp, &quit);
    EXPECT_EQ(ended, 1);
    EXPECT_TRUE(window.isVisible());
}

TEST(SessionEnd, SavesWhenItMayCome) {
    int saved = 0;
    auto* const manager = qApp->findChild<QSessionManager*>();
    ASSERT_NE(manager, nullptr);
    {
        const SessionEnd end({.save = [&] { ++saved; }, .end = [] {}});
        emit qApp->commitDataRequest(*manager);
        EXPECT_EQ(saved, 1);
    }
    emit qApp->commitDataRequest(*manager);
    EXPECT_EQ(saved, 1) << "nobody is there any more";
}

// What is new is written then.
TEST(MainWindow, TellsWhenTheKeyboardGoesFromAnyOfTheWindows) {
    WidgetBars bars(u"");
    bars.window.show();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&bars.window));
    int told = 0;
    bars.window.OnDeactivate = [&] { ++told; };
    QDialog first(&bars.window), second(&bars.window);
    int expected = 0;
    for (QDialog* dialog : {&first, &second}) {
        dialog->show();
        dialog->activateWindow();
        ASSERT_TRUE(
            QTest::qWaitFor([&] { return QGuiApplication::focusWindow() == dialog->windowHandle(); }));
        EXPECT_GT(told, std::exchange(expected, told));
    }
}

} // namespace
} // namespace quillshift
