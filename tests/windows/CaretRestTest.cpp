#include "platform/qt/CaretRest.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QLineEdit>
#include <QStyleHints>
#include <QTest>

namespace quillshift {
namespace {

TEST(CaretRest, StopsTheBlinkingUntilAKeyIsPressed) {
    const int before = QApplication::cursorFlashTime();
    ASSERT_GT(before, 0);
    const CaretRest rest(std::chrono::milliseconds(1));
    QLineEdit field;
    field.show();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&field));
    ASSERT_TRUE(QTest::qWaitFor([] { return QApplication::cursorFlashTime() == 0; }));
    bool blinksAgain = false;
    QObject::connect(QApplication::styleHints(), &QStyleHints::cursorFlashTimeChanged, &field,
                     [&](int time) { blinksAgain = blinksAgain || time == before; });
    QTest::keyClick(field.windowHandle(), Qt::Key_A);
    EXPECT_TRUE(blinksAgain);
}

} // namespace
} // namespace quillshift
