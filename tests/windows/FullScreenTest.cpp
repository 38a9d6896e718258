#include "document/frmFScreen.h"
#include "document/frmFScreenB.h"
#include "support/FindControl.h"
#include "support/TestProgram.h"

#include <QtTest/QtTest>
#include <QtWidgets/QtWidgets>

namespace quillshift {
namespace {

TEST(FullScreenWindows, StandWhereTheyAreToldKeepThePlaceOfTheSmallOneAndHaveOneRoadOut) {
    const std::function<void(frmFScreen&, frmFScreenB&)> roads[] = {
        [](frmFScreen& screen, frmFScreenB&) { screen.close(); },
        [](frmFScreen&, frmFScreenB& bar) { bar.close(); },
        [](frmFScreen&, frmFScreenB& bar) { QTest::keyClick(&bar, Qt::Key_Escape); },
        [](frmFScreen&, frmFScreenB& bar) { QTest::keyClick(&bar, Qt::Key_Return); }};
    for (const auto& road : roads) {
        const bool minimised = &road == roads;
        const bool lost = &road == &roads[1];
        TestProgram test;
        test.Set(Setting::FullScreenLeft, lost ? u"99000" : u"3000")
            .Set(Setting::FullScreenTop, u"1500")
            .Start();
        ProgramParts& parts = test.program.Parts();
        frmFScreen screen({parts.platform, parts.settings, parts.sounds, nullptr}, parts.fullScreen);
        screen.setWindowState(Qt::WindowNoState);
        screen.resize(1000, 600);
        screen.show();
        const auto& surface = Find<QtTextSurface>(screen, "FSRTB");
        EXPECT_EQ(Find<QFrame>(screen, "ShapeRichTextBox").geometry(), QRect(8, 8, 981, 581));
        EXPECT_EQ(surface.geometry(), QRect(10, 10, 978, 578));
        EXPECT_EQ(surface.lineWrapColumnOrWidth(), 951);
        EXPECT_EQ(surface.Font(), (SurfaceFont{u"Tahoma", 8.25F}));
        auto& bar = *screen.findChild<frmFScreenB*>();
        EXPECT_EQ(bar.pos(), QPoint(lost ? 0 : 200, 100)) << "within reach";
        EXPECT_TRUE(bar.isVisible() && bar.windowFlags().testFlag(Qt::WindowStaysOnTopHint));
        EXPECT_FALSE(bar.windowFlags().testFlag(Qt::WindowCloseButtonHint));
        bar.move(210, 120);
        if (minimised)
            bar.showMinimized();
        screen.hide();
        EXPECT_FALSE(bar.isVisible());
        EXPECT_EQ(parts.settings.Text(Setting::FullScreenLeft), minimised ? u"3000" : u"3150");
        EXPECT_EQ(parts.settings.Text(Setting::FullScreenTop), minimised ? u"1500" : u"1800");
        screen.show();
        QTest::keyClick(&screen, Qt::Key_Escape);
        EXPECT_TRUE(parts.fullScreen.IsOn());
        road(screen, bar); // the mode ends before its text goes
        EXPECT_FALSE(parts.fullScreen.IsOn()) << &road - roads;
    }
}

TEST(FullScreenWindows, UndoWhatIsWrittenInThemAndNoMoreAlsoInALongLine) {
    const std::u16string line = u"before\r\n" + std::u16string(70'000, u'x');
    TestProgram test;
    test.Start();
    ProgramParts& parts = test.program.Parts();
    parts.window.RichTextBox().SetText(line);
    frmFScreen screen({parts.platform, parts.settings, parts.sounds, nullptr}, parts.fullScreen);
    screen.show();
    auto& surface = Find<QtTextSurface>(screen, "FSRTB");
    surface.SetSelStart(40'000);
    QTest::keyClick(&surface, Qt::Key_Y);
    QTest::keyClick(&surface, Qt::Key_Z);
    const auto undo = [&](Qt::KeyboardModifiers more = {}) {
        QTest::keyClick(&surface, Qt::Key_Z, Qt::ControlModifier | more);
        return std::u16string(surface.Part(40'000, 2));
    };
    EXPECT_EQ(undo(), u"yx");
    EXPECT_EQ(undo(), u"xx");
    EXPECT_EQ(undo(), u"xx");
    EXPECT_TRUE(surface.Text() == line);
    EXPECT_EQ(undo(Qt::ShiftModifier), u"yx");
    EXPECT_GT(surface.document()->blockCount(), 3) << "the line is in parts, as in the main window";
    surface.setReadOnly(true);
    EXPECT_EQ(undo(), u"yx");
    parts.fullScreen.End();
    EXPECT_EQ(parts.window.RichTextBox().Length(), line.size() + 1);
    surface.setReadOnly(false);
    undo(); // the mode is over, and its window still there
    EXPECT_EQ(parts.window.RichTextBox().Length(), line.size() + 1);
}

} // namespace
} // namespace quillshift
