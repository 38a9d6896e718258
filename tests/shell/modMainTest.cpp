#include "base/Error.h"
#include "shell/Layout.h"
#include "support/TestProgram.h"

#include <gtest/gtest.h>

#include <array>

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
        test.window.state = WindowState::Minimised;
        const std::size_t before = test.window.layouts.size();
        test.window.OnResize();
        EXPECT_EQ(test.window.layouts.size(), before) << "a minimised window has no area";
    }
}

TEST(Main, ShowsItsNoticeOnceAndRefusesASecondCopyBehindIt) {
    struct Case {
        const char16_t *firstRun, *manyCopies;
        bool another;
        std::vector<std::u16string> boxes; // how they begin
    };
    const Case cases[] = {{u"1", u"0", true, {u"Эта версия", u"Программа уже"}},
                          {u"1", u"1", true, {u"Эта версия"}},
                          {u"0", u"0", true, {u"Программа уже"}},
                          {u"0", u"0", false, {}},
                          {u"2", u"", true, {}}};
    for (const Case& c : cases) {
        TestProgram test;
        test.Set(Setting::FirstRun, c.firstRun).Set(Setting::ManyCopies, c.manyCopies);
        test.shell.anotherCopyRuns = c.another;
        test.Start();
        std::vector<std::u16string> boxes;
        for (const auto& box : test.messageBox.shown)
            boxes.push_back(box.text.substr(0, box.text.find(u' ', box.text.find(u' ') + 1)));
        EXPECT_EQ(boxes, c.boxes);
        const bool refused = !c.boxes.empty() && c.boxes.back() == u"Программа уже";
        EXPECT_EQ(test.shell.ended, refused);
        EXPECT_EQ(test.window.shown, !refused);
        EXPECT_NE(test.settings.Text(Setting::FirstRun), u"1") << "it shows once";
        if (!test.messageBox.shown.empty()) {
            EXPECT_EQ(test.messageBox.shown[0].icon,
                      refused && c.boxes.size() == 1 ? BoxIcon::Information : BoxIcon::None);
        }
    }
}

TEST(Main, ReportsEachFailureButThatOfAWindowThatUnloadedItself) {
    for (const auto& [number, boxes] : {std::pair{5, 1U}, {364, 0U}, {0, 0U}, {-1, 0U}, {365, 1U}}) {
        TestProgram test;
        test.window.whenShown = [number = number] { throw Error(number, u"", u"why"); };
        test.Start();
        EXPECT_EQ(test.messageBox.shown.size(), boxes) << number;
    }
}

TEST(Load, TitlesTheWindowAndPlaysItsSound) {
    for (const auto& [shown, title] : {std::pair{u"1", u"Morvane Quillshift 3.0 Preview - [Документ]"},
                                       {u"2", u"Morvane Quillshift 3.0 Preview - [Документ не сохранен]"},
                                       {u"3", u"Morvane Quillshift 3.0 Preview"},
                                       {u"4", u"Morvane Quillshift 3.0"}}) {
        TestProgram test;
        test.Set(Setting::ShowInCaption, shown)
            .Set(Setting::FormLoad, u"1")
            .Set(Setting::FormLoadPath, u"/l.wav");
        test.Set(Setting::KeyDown, u"1").Set(Setting::KeyDownPath, u"/k.wav");
        EXPECT_EQ(test.Start().title, title);
        test.window.document.OnKeyDown();
        EXPECT_EQ(test.sound.played, (std::vector<std::u16string>{u"/l.wav", u"/k.wav"}));
    }
}

// The settings of the load one by one: what they change, and that "2" is no switch.
TEST(Load, ObeysEachSwitch) {
    for (const auto& [value, on] : {std::pair{u"0", false}, {u"2", false}, {u"1", true}}) {
        TestProgram test;
        for (const Setting setting : {Setting::TopMost, Setting::ToolBarStandart, Setting::ToolBarDecode,
                                      Setting::ClipboardDetect, Setting::HideInfrequently})
            test.Set(setting, value);
        test.Set(Setting::Style, on ? u"System" : u"OfficeXP").Set(Setting::ShowToolTips, on ? u"0" : u"2");
        test.Set(Setting::DefaultCode, on ? u"19" : u"20").Set(Setting::FontName, u"Font");
        test.Set(Setting::FontSize, u"12.5");
        test.settings.ShowItem(ItemBar::Standart, 1, on);
        test.settings.ShowItem(ItemBar::Decode, 7, on);
        test.clipboard.text = u"copied before";
        const FakeMainView& window = test.Start();
        for (int tick = 0; tick < 3; ++tick)
            test.timers.Tick();
        EXPECT_EQ(window.topMost, on);
        EXPECT_EQ(test.Button("MENU:VIEW:ONTOP").Checked(), on);
        EXPECT_EQ(window.barVisible.at(1), on);
        EXPECT_EQ(test.Button("MENU:VIEW:TOOLBARS:TBSTANDART").Checked(), on);
        EXPECT_EQ(window.barVisible.at(2), on);
        EXPECT_EQ(test.Button("MENU:VIEW:TOOLBARS:TBDECODE").Checked(), on);
        EXPECT_EQ(window.document.Text(), on ? u"copied before" : u"");
        EXPECT_EQ(test.toolkit.HideInfrequentlyUsed, !on);
        EXPECT_EQ(test.toolkit.Style(), on ? BarStyle::System : BarStyle::OfficeXP);
        EXPECT_EQ(test.Button("TOOLBAR:NEW").ToolTip().empty(), on);
        EXPECT_EQ(test.Button("TOOLBAR2:UNDO").ToolTip().empty(), on);
        EXPECT_EQ(window.direction, on ? 19 : 0);
        EXPECT_EQ(window.document.Font(), (SurfaceFont{u"Font", 12.5F}));
        EXPECT_EQ(test.Button("TOOLBAR:NEW").Visible(), on);
        EXPECT_FALSE(test.Button("TOOLBAR:SEP1").Visible()) << "absent is hidden";
        EXPECT_EQ(test.Button("TOOLBAR2:SEP4").Visible(), on);
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

TEST(Load, OpensFirstInTheMiddleNoLargerThanTheScreenAndMayBeVeryLow) {
    EXPECT_EQ(FirstPlace({{{0}, {0}, {19200}, {12000}}}), (TwipsRect{{3750}, {1395}, {11700}, {9210}}));
    EXPECT_EQ(FirstPlace({{{150}, {450}, {9600}, {5550}}}), (TwipsRect{{150}, {450}, {9600}, {5550}}));
    EXPECT_EQ(LayOutEditor(900_twips, 100_twips, ToolBarIcons::Large, 2).surfaceHeight, 0_twips)
        << "a window lower than its bars";
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
    test.files.unwritable = {u"/d/full.txt"};
    for (const std::deque<std::u16string>& chosen : {std::deque<std::u16string>{}, {u"/d/full.txt"}}) {
        test.messageBox.answers = {BoxAnswer::Yes};
        test.fileDialog.chosen = chosen;
        EXPECT_FALSE(test.window.OnClose()) << "Yes that saved nothing";
        EXPECT_EQ(test.clipboard.text, u"kept");
        EXPECT_TRUE(test.program.Parts().document.DocumentModified);
    }

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
    EXPECT_EQ(test.clipboard.handedOver, u"") << "behind the clearing";
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

/// A start with the switches of splash, welcome and getting started, and what has shown so far.
struct Start : TestProgram {
    explicit Start(const std::array<bool, 3>& on) {
        for (std::size_t i = 0; i < kSwitches.size(); ++i)
            settings.Switch(kSwitches[i], on[i]);
        settings.Set(Setting::FormUnload, u"1");
        TestProgram::Start();
    }
    // The one window that is up: a letter of S, W, B, the main window's M, or none.
    std::string Up() {
        std::string up;
        for (const auto& [kind, letter] : kLetters)
            if (dialogs->IsLoaded(kind))
                up += letter;
        return up + (window.shown ? "M" : "");
    }
    StartChain& Chain() { return program.Parts().start; }

    static constexpr std::array kSwitches{Setting::Splash, Setting::Welcome, Setting::WorkBegin};
    static constexpr std::pair<DialogKind, char> kLetters[] = {
        {DialogKind::Splash, 'S'}, {DialogKind::Welcome, 'W'}, {DialogKind::WorkBegin, 'B'}};
};

// Every combination of the switches, gone through by the buttons: one window at a time, in order.
TEST(StartChainTest, ShowsWhatIsSwitchedOnOneAfterAnother) {
    for (const char* const steps : {"M", "BM", "WM", "WBM", "SM", "SBM", "SWM", "SWBM"}) {
        const std::string expected = steps;
        const auto has = [&](char step) { return expected.find(step) != std::string::npos; };
        Start test({has('S'), has('W'), has('B')});
        std::string seen = test.Up();
        for (const auto& [kind, letter] : Start::kLetters) {
            if (!test.dialogs->IsLoaded(kind))
                continue;
            test.clipboard.Hold(u"meanwhile another program copies");
            if (kind != DialogKind::Splash)
                test.Chain().GoOn(kind, false);
            test.timers.Tick();
            seen += test.Up();
        }
        EXPECT_EQ(seen, expected);
        EXPECT_FALSE(test.shell.ended);
        EXPECT_EQ(test.settings.Is(Setting::Welcome), has('W')) << "nobody asked for its end";
    }
}

} // namespace
} // namespace quillshift
