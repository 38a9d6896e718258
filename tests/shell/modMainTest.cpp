#include "shell/Layout.h"
#include "support/TestProgram.h"

#include <gtest/gtest.h>

namespace quillshift {
namespace {

TEST(Main, AnEmptyStoreGoesStraightToACentredWindowWithoutBars) {
    TestProgram test;
    test.shell.anotherCopyRuns = true;
    const FakeMainView& window = test.Start();
    EXPECT_TRUE(window.shown);
    EXPECT_TRUE(test.messageBox.shown.empty());
    EXPECT_FALSE(window.barVisible.at(1));
    EXPECT_FALSE(window.barVisible.at(2));
    EXPECT_EQ(window.title, u"Morvane Quillshift 3.0");
    EXPECT_TRUE(window.layouts.empty());
    EXPECT_EQ(window.bounds.left, 3750_twips);
}

TEST(Main, TellsTheNoticeOnceAndThenRefusesASecondCopy) {
    TestProgram test;
    test.Set("FirstRun", u"1").Set("ManyCopies", u"0");
    test.shell.anotherCopyRuns = true;
    test.program.Main();
    ASSERT_EQ(test.messageBox.shown.size(), 2U);
    EXPECT_EQ(test.messageBox.shown[0].icon, BoxIcon::None);
    EXPECT_EQ(test.messageBox.shown[1].icon, BoxIcon::Information);
    EXPECT_EQ(test.settings.Preference("FirstRun"), u"0");
    EXPECT_TRUE(test.shell.ended);
    EXPECT_EQ(test.window, nullptr);
}

TEST(Main, TakesTheClipboardInAndReportsWhatFailsOnTheWay) {
    TestProgram test;
    test.Set("StartAtStartup", u"1").Set("DefaultCode", u"0");
    test.clipboard.text = std::u16string(40000, u'x');
    test.program.Main();
    EXPECT_EQ(test.LastBox(), u"Произошла ошибка № 6\r\nOverflow");
    EXPECT_TRUE(test.window->shown);
}

TEST(Load, RestoresThePlaceAndBringsALostWindowBackIntoReach) {
    TestProgram test;
    test.Set("SaveWindowPositionAndSize", u"1").Set("MainLeft", u"150").Set("MainTop", u"300.5");
    test.Set("MainHeight", u"6000").Set("MainWidth", u"9000").Set("WindowState", u"2");
    const FakeMainView& window = test.Start();
    EXPECT_EQ(window.bounds, (TwipsRect{150_twips, {300.5F}, 9000_twips, 6000_twips}));
    EXPECT_EQ(window.state, WindowState::Maximised);

    const TwipsRect away{{90000}, {100}, {9000}, {6000}};
    EXPECT_EQ(WithinReach(away, {test.screen.Primary()}).left, 0_twips);
}

TEST(Layout, FollowsTheTableOfHeights) {
    struct Case {
        const char16_t* large;
        int bars;
        float editor;
    };
    for (const Case& c : {Case{u"0", 2, 8320}, Case{u"0", 1, 8725}, Case{u"0", 0, 9130}, Case{u"1", 2, 8110},
                          Case{u"1", 1, 8615}, Case{u"1", 0, 9130}}) {
        const auto layout = LayOutEditor(10000_twips, 8000_twips, c.large, c.bars);
        ASSERT_TRUE(layout);
        EXPECT_EQ(layout->picEditorHeight.value, c.editor);
        EXPECT_EQ(layout->shapeHeight.value, c.editor - 120);
        EXPECT_EQ(layout->surfaceHeight.value, c.editor - 180);
        EXPECT_EQ(layout->shapeWidth, 7760_twips);
        EXPECT_EQ(layout->surfaceWidth, 7690_twips);
    }
    EXPECT_FALSE(LayOutEditor(10000_twips, 8000_twips, u"", 2));
}

TEST(Bars, AreLaidOutBehindTheCommandThatHidesThem) {
    TestProgram test;
    test.settings.WriteString(Hive::CurrentUser, settings_path::kToolBars, "UseLargeIcons", u"0");
    test.Set("ToolBarStandart", u"1").Set("ToolBarDecode", u"1");
    FakeMainView& window = test.Start();
    const std::size_t before = window.layouts.size();
    window.checked["MENU:VIEW:TOOLBARS:TBDECODE"] = false; // as the click has flipped it
    test.program.Dispatch("MENU:VIEW:TOOLBARS:TBDECODE");
    EXPECT_FALSE(window.barVisible[2]);
    EXPECT_EQ(test.settings.Preference("ToolBarDecode"), u"0");
    EXPECT_EQ(window.layouts.size(), before);
    test.timers.Tick();
    ASSERT_EQ(window.layouts.size(), before + 1);
    EXPECT_EQ(window.layouts.back().picEditorHeight, window.bounds.height - 1275_twips);
}

TEST(Closing, AsksThenCleansUpThenAsksAgain) {
    TestProgram test;
    test.Set("SaveChange", u"1").Set("ClearClipboard", u"1").Set("MessageOnExit", u"1");
    test.Set("SaveWindowPositionAndSize", u"1").Set("MainLeft", u"0").Set("MainWidth", u"9000");
    FakeMainView& window = test.Start();
    window.document.SetText(u"x");
    test.clipboard.text = u"kept";

    EXPECT_FALSE(test.program.OnClose()); // Cancel at the first question
    EXPECT_EQ(test.clipboard.text, u"kept");

    window.bounds.left = {1500.5F};
    window.state = WindowState::Minimised;
    test.messageBox.answers = {BoxAnswer::No, BoxAnswer::No};
    EXPECT_FALSE(test.program.OnClose());
    EXPECT_EQ(test.clipboard.text, u"");
    EXPECT_EQ(test.settings.Preference("MainLeft"), u"1500.5");
    EXPECT_EQ(test.settings.Preference("WindowState"), u"") << "a minimised window stores no state";
    EXPECT_EQ(test.settings.ReadString(Hive::CurrentUser, settings_path::kClipboard, "ClipboardText"), u"");
    EXPECT_FALSE(test.shell.ended);

    test.messageBox.answers = {BoxAnswer::No, BoxAnswer::Yes};
    EXPECT_TRUE(test.program.OnClose());
    EXPECT_TRUE(test.shell.ended);
}

TEST(Commands, AnswerWhereTheyCanDoNothing) {
    TestProgram test;
    const FakeMainView& window = test.Start();
    test.program.Dispatch("MENU:DECODE:DECODE");
    EXPECT_EQ(test.LastBox(), u"Документ не содержит текста!");
    EXPECT_EQ(window.decodeDialogs, 0);
    test.program.Dispatch("MENU:DECODE:WIZARD");
    EXPECT_EQ(test.shell.started.back(), u"/program/Wizard.exe");
    EXPECT_EQ(test.messageBox.shown.back().icon, BoxIcon::Information);
    test.program.Dispatch("MENU:NO:SUCH");
    EXPECT_EQ(test.messageBox.shown.size(), 2U);
}

} // namespace
} // namespace quillshift
