#include "support/WidgetBars.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QComboBox>
#include <QTest>
#include <QTextEdit>
#include <QWindow>

#include <random>

namespace quillshift {
namespace {

/// Above a text that has the keyboard.
class BarsTest : public testing::Test, protected WidgetBars {
protected:
    BarsTest() : WidgetBars(u"/nowhere") {
        window.resize(700, 400);
        window.show();
        window.activateWindow();
        text->setFocus();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
    }

    std::vector<QtBarWindow*> OpenPopups() {
        std::vector<QtBarWindow*> open;
        for (QtBarWindow* popup : Windows())
            if (popup->isWindow() && popup->isVisible())
                open.push_back(popup);
        return open;
    }

    QTextEdit* text = &static_cast<QtTextSurface&>(window.RichTextBox());
};

TEST_F(BarsTest, TenThousandRandomEventsLeaveNothingOpenDisabledOrWithoutTheKeyboard) {
    std::mt19937 random(20261124);
    const auto below = [&](int limit) { return std::uniform_int_distribution<int>(0, limit - 1)(random); };
    constexpr Qt::Key kKeys[] = {Qt::Key_Alt,  Qt::Key_Left,   Qt::Key_Right, Qt::Key_Up,   Qt::Key_Down,
                                 Qt::Key_Down, Qt::Key_Return, Qt::Key_Home,  Qt::Key_End,  Qt::Key_Escape,
                                 Qt::Key_X,    Qt::Key_F9,     Qt::Key_Tab,   Qt::Key_Space};
    std::size_t deepest = 0;
    for (int event = 0; event < 10000; ++event) {
        const auto open = OpenPopups();
        deepest = std::max(deepest, open.size());
        // Mostly where something is to be hit: on an open menu, or on the bars at the top of the window.
        QWidget* const target = !open.empty() && below(4) != 0
                                    ? static_cast<QWidget*>(open[std::size_t(below(int(open.size())))])
                                    : &window;
        const QPoint at(below(target->width()), below(target == &window ? text->y() : target->height()));
        switch (below(6)) {
        case 0:
            QTest::keyClick(window.windowHandle(), kKeys[below(std::size(kKeys))],
                            below(10) == 0 ? Qt::ControlModifier : Qt::NoModifier);
            break;
        case 1:
            QCursor::setPos(target->mapToGlobal(at));
            QTest::mouseClick(target->windowHandle(), below(5) == 0 ? Qt::RightButton : Qt::LeftButton,
                              Qt::NoModifier, at);
            break;
        default:
            QCursor::setPos(target->mapToGlobal(at));
            QTest::mouseMove(target->windowHandle(), at);
        }
        if (below(500) == 0)
            window.resize(300 + below(600), 400);
        if (below(400) == 0)
            QTest::qWait(260); // long enough for a sub-menu to open
    }
    EXPECT_GT(commands, 100);
    EXPECT_GE(deepest, 2U);

    for (int level = 0; level < 10; ++level)
        QTest::keyClick(window.windowHandle(), Qt::Key_Escape);
    EXPECT_TRUE(OpenPopups().empty());
    EXPECT_FALSE(toolkit.Menu().MenuMode);
    for (int bar = 0; bar < 3; ++bar)
        EXPECT_TRUE(bars.Bar(bar).Enabled()) << bar;
    EXPECT_TRUE(text->hasFocus());
    auto* directions = window.findChild<QComboBox*>();
    directions->setFocus();
    emit directions->activated(0);
    EXPECT_TRUE(text->hasFocus()) << "the keyboard goes back to the text";
    text->clear();
    QTest::keyClick(window.windowHandle(), Qt::Key_Y);
    EXPECT_EQ(text->toPlainText(), QStringLiteral("y"));
}

} // namespace
} // namespace quillshift
