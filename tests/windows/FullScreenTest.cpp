#include "document/frmFScreen.h"
#include "document/frmFScreenB.h"
#include "support/FindControl.h"
#include "support/TestProgram.h"

#include <gtest/gtest.h>

#include <QFrame>
#include <QTest>

#include <functional>

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

} // namespace
} // namespace quillshift
