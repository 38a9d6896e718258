#include "shell/Layout.h"
#include "support/TestProgram.h"

#include <gtest/gtest.h>

namespace quillshift {
namespace {

// Whatever the store has, or has not, the text area gets the height that the bars leave.
TEST(Main, AnEmptyOrOddStoreGoesStraightToACentredWindow) {
    for (const auto* icons : {u"", u"2", u"0", u"1"}) {
        TestProgram test;
        if (*icons != 0)
            test.Set(Setting::UseLargeIcons, icons);
        test.shell.anotherCopyRuns = true;
        const FakeMainView& window = test.Start();
        EXPECT_TRUE(window.shown);
        EXPECT_TRUE(test.messageBox.shown.empty());
        EXPECT_FALSE(window.barVisible.at(1));
        EXPECT_FALSE(window.barVisible.at(2));
        EXPECT_EQ(window.title, u"Morvane Quillshift 3.0");
        EXPECT_EQ(window.bounds.left, 3750_twips);
        ASSERT_FALSE(window.layouts.empty());
        EXPECT_EQ(window.layouts.back().picEditorHeight, 9150_twips - 870_twips);
    }
}

// The sizes, by hand: outer height 9150, width 11700, menu of one row.
TEST(Main, LaysTheTextAreaOutByIconsAndBars) {
    const std::tuple<const char16_t*, int, float, float, float> cases[] = {
        {u"0", 2, 7470, 7350, 7290}, {u"0", 1, 7875, 7755, 7695}, {u"0", 0, 8280, 8160, 8100},
        {u"1", 2, 7260, 7140, 7080}, {u"1", 1, 7765, 7645, 7585}, {u"1", 0, 8280, 8160, 8100}};
    for (const auto& [icons, bars, editor, shape, surface] : cases) {
        TestProgram test;
        test.Set(Setting::UseLargeIcons, icons).Set(Setting::ToolBarStandart, bars > 0 ? u"1" : u"0");
        test.Set(Setting::ToolBarDecode, bars > 1 ? u"1" : u"2");
        EXPECT_EQ(test.Start().layouts.back(),
                  (MainView::EditorLayout{{editor}, {shape}, {11460}, {surface}, {11390}}));
    }
}

TEST(Main, TakesTheClipboardInAndReportsWhatFailsOnTheWay) {
    TestProgram test;
    test.Set(Setting::StartAtStartup, u"1").Set(Setting::DefaultCode, u"0");
    test.clipboard.text = std::u16string(40000, u'x');
    test.program.Main();
    EXPECT_EQ(test.LastBox().substr(0, 20), u"Произошла ошибка № 6");
    EXPECT_TRUE(test.window.shown);
}

TEST(Load, RestoresThePlaceAndBringsALostWindowBackIntoReach) {
    TestProgram test;
    test.Set(Setting::SaveWindowPositionAndSize, u"1")
        .Set(Setting::MainLeft, u"150")
        .Set(Setting::MainTop, u"300.5");
    test.Set(Setting::MainHeight, u"6000").Set(Setting::MainWidth, u"9000").Set(Setting::WindowState, u"2");
    const FakeMainView& window = test.Start();
    EXPECT_EQ(window.RestoredBounds(), (TwipsRect{150_twips, {300.5F}, 9000_twips, 6000_twips}));
    EXPECT_EQ(window.state, WindowState::Maximised);
}

// Two monitors of 19200 by 12000 side by side, the first with a panel at its top: where a window of 9000 by
// 6000 comes to stand.
TEST(Load, BringsOnlyTheSideThatIsOutOfReachBack) {
    const std::vector<TwipsRect> areas{{{0}, {450}, {19200}, {11550}}, {{19200}, {0}, {19200}, {12000}}};
    const std::tuple<float, float, float, float> cases[] = {
        {100, 500, 100, 500},     {-7500, 500, -7500, 500}, {-7501, 500, 0, 500},
        {100, 449, 100, 450},     {100, 10500, 100, 10500}, {100, 10501, 100, 450},
        {36900, 300, 36900, 300}, {36901, 300, 19200, 300}, {90000, 500, 0, 500},
        {25000, -200, 25000, 0},  {25000, 90000, 25000, 0}, {90000, 90000, 0, 450}};
    for (const auto& [left, top, newLeft, newTop] : cases)
        EXPECT_EQ(WithinReach({{left}, {top}, {9000}, {6000}}, areas),
                  (TwipsRect{{newLeft}, {newTop}, {9000}, {6000}}))
            << left << " " << top;
}

TEST(Load, OpensFirstInTheMiddleAndNoLargerThanTheScreen) {
    EXPECT_EQ(FirstPlace({{{0}, {0}, {19200}, {12000}}}), (TwipsRect{{3750}, {1395}, {11700}, {9210}}));
    EXPECT_EQ(FirstPlace({{{150}, {450}, {9600}, {5550}}}), (TwipsRect{{150}, {450}, {9600}, {5550}}));
}

TEST(Closing, AsksThenCleansUpThenAsksAgain) {
    TestProgram test;
    test.Set(Setting::SaveChange, u"1").Set(Setting::ClearClipboard, u"1").Set(Setting::MessageOnExit, u"1");
    test.Set(Setting::SaveWindowPositionAndSize, u"1")
        .Set(Setting::MainLeft, u"0")
        .Set(Setting::MainWidth, u"9000");
    FakeMainView& window = test.Start();
    window.document.SetText(u"x");
    test.clipboard.text = u"kept";

    EXPECT_FALSE(test.window.OnClose()); // Cancel at the first question
    EXPECT_EQ(test.clipboard.text, u"kept");

    window.bounds.left = {1500.5F};
    window.SetState(WindowState::Minimised);
    test.messageBox.answers = {BoxAnswer::No, BoxAnswer::No};
    EXPECT_FALSE(test.window.OnClose());
    EXPECT_EQ(test.clipboard.text, u"");
    EXPECT_EQ(test.settings.Text(Setting::MainLeft), u"1500.5");
    EXPECT_EQ(test.settings.Text(Setting::WindowState), u"") << "a minimised window stores no state";
    EXPECT_EQ(test.settings.Find(Setting::ClipboardText), u"");
    EXPECT_FALSE(test.shell.ended);

    test.Set(Setting::FormUnload, u"1").Set(Setting::FormUnloadPath, u"/end.wav");
    test.messageBox.answers = {BoxAnswer::No, BoxAnswer::Yes};
    EXPECT_TRUE(test.window.OnClose());
    EXPECT_TRUE(test.shell.ended);
    EXPECT_EQ(test.sound.ended, std::vector<std::u16string>{u"/end.wav"}) << "the end cut its own sound";
}

TEST(Links, ANoticeTellsThatNobodyOpensThem) {
    TestProgram test;
    test.Start();
    test.program.Run("MENU:HELP:VISITHOMEPAGE");
    EXPECT_EQ(test.LastBox(), u"");
    test.shell.opensLinks = false;
    test.program.Run("MENU:HELP:AUTHORMAIL");
    EXPECT_TRUE(test.LastBox().ends_with(test.shell.opened.back()));
    EXPECT_TRUE(test.shell.opened.back().starts_with(u"mailto:"));
}

} // namespace
} // namespace quillshift
