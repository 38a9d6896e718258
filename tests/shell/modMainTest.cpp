#include "base/Error.h"
#include "base/Utf8.h"
#include "platform/Keys.h"
#include "shell/Layout.h"
#include "support/TestProgram.h"

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
    // Two settings, whether another copy runs, and how the boxes begin.
    const std::tuple<const char16_t*, const char16_t*, bool, std::vector<std::u16string>> cases[] = {
        {u"1", u"0", true, {u"Эта версия", u"Программа уже"}},
        {u"1", u"1", true, {u"Эта версия"}},
        {u"0", u"0", true, {u"Программа уже"}},
        {u"0", u"0", false, {}},
        {u"2", u"", true, {}}};
    for (const auto& [firstRun, manyCopies, another, expected] : cases) {
        TestProgram test;
        test.Set(Setting::FirstRun, firstRun).Set(Setting::ManyCopies, manyCopies);
        test.shell.anotherCopyRuns = another;
        test.Start();
        std::vector<std::u16string> boxes;
        for (const auto& box : test.messageBox.shown)
            boxes.push_back(box.text.substr(0, box.text.find(u' ', box.text.find(u' ') + 1)));
        EXPECT_EQ(boxes, expected);
        const bool refused = !boxes.empty() && boxes.back() == u"Программа уже";
        EXPECT_EQ(test.shell.ended, refused);
        EXPECT_EQ(test.window.shown, !refused);
        EXPECT_NE(test.settings.Text(Setting::FirstRun), u"1") << "it shows once";
        if (!test.messageBox.shown.empty()) {
            EXPECT_EQ(test.messageBox.shown[0].icon,
                      refused && boxes.size() == 1 ? BoxIcon::Information : BoxIcon::None);
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

TEST(Bars, OpenTheirMenuOnARightClickAsTheTextDoesButTheMenuNone) {
    TestProgram test;
    FakeMainView& window = test.Start();
    MainBars& bars = test.program.Parts().bars;
    std::vector<std::string> clicked;
    bars.OnClick = [&](std::string_view key) { clicked.emplace_back(key); };
    const auto opened = [&] { return test.toolkit.Find(test.toolkit.Menu().ActiveWindow); };
    EXPECT_EQ(bars.Bar(0).Toolbar()->Key(), "MENU");
    window.document.OnRightMouseDown({300, 300});
    EXPECT_EQ(opened()->Toolbar()->Key(), "MENU:EDIT");
    test.toolkit.Tracking().EndMenuMode();
    for (const int bar : {0, 1, 2}) {
        FakeBarWindow& strip = window.CmdBar(bar);
        strip.listener->OnMousePress({700, 10}, MouseButton::Right);
        ASSERT_EQ(opened() != nullptr, bar != 0);
        if (bar == 0)
            continue;
        EXPECT_EQ(opened()->Toolbar()->Key(), "MENU:VIEW:TOOLBARS");
        EXPECT_EQ(window.windows.back().ToScreen({}), strip.ToScreen({700, 10}));
        for (const int key : {key::kDown, key::kEnter})
            test.system.input->KeyboardFilter({.key = key});
    }
    EXPECT_EQ(clicked, std::vector<std::string>(2, "MENU:VIEW:TOOLBARS:TBSTANDART"));
}

TEST(Bars, AreAsHighAsTheirIconsWant) {
    TestProgram test;
    for (const auto& [bar, item] : {std::pair(ItemBar::Standart, 1), {ItemBar::Decode, 6}})
        test.settings.ShowItem(bar, item, true);
    test.Start();
    MainBars& bars = test.program.Parts().bars;
    for (const auto& [icons, height, width] :
         {std::tuple(ToolBarIcons::Large, 29, 32), {ToolBarIcons::Small, 25, 24}})
        for (const int bar : {1, 2}) {
            bars.AttachToolBar(bar, icons);
            EXPECT_EQ(test.window.CmdBar(bar).place.Height(), height) << bar;
            EXPECT_EQ(AreaOf(bars.Bar(bar).Items()[bar == 1 ? 1 : 6]).Width(), width) << bar;
        }
}

/// A start with windows switched on, each by its letter: splash, welcome and getting started.
struct Start : TestProgram {
    explicit Start(const std::string& on) {
        for (const auto& [kind, letter, shown] : kWindows)
            settings.Switch(shown, on.find(letter) != std::string::npos);
        settings.Set(Setting::FormUnload, u"1");
        TestProgram::Start();
    }
    // The one window that is up: its letter, the main window's M, or none.
    std::string Up() {
        std::string up;
        for (const auto& [kind, letter, shown] : kWindows)
            if (dialogs->IsLoaded(kind))
                up += letter;
        return up + (window.shown ? "M" : "");
    }

    static constexpr std::tuple<DialogKind, char, Setting> kWindows[] = {
        {DialogKind::Splash, 'S', Setting::Splash},
        {DialogKind::Welcome, 'W', Setting::Welcome},
        {DialogKind::WorkBegin, 'B', Setting::WorkBegin}};
};

// Every combination of the switches, gone through by the buttons: one window at a time, in order.
TEST(StartChainTest, ShowsWhatIsSwitchedOnOneAfterAnother) {
    for (const std::string expected : {"M", "BM", "WM", "WBM", "SM", "SBM", "SWM", "SWBM"}) {
        Start test(expected);
        std::string seen = test.Up();
        for (const auto& [kind, letter, shown] : Start::kWindows) {
            if (!test.dialogs->IsLoaded(kind))
                continue;
            test.clipboard.Hold(u"meanwhile another program copies");
            if (kind != DialogKind::Splash)
                test.program.Parts().start.GoOn(kind, false);
            test.timers.Tick();
            seen += test.Up();
        }
        EXPECT_EQ(seen, expected);
        EXPECT_FALSE(test.shell.ended);
        EXPECT_EQ(test.settings.Is(Setting::Welcome), expected.find('W') != std::string::npos)
            << "nobody asked for its end";
    }
}

/// A program with a document and a lock that has a name, a password and a hint.
struct ProgramLockTest : testing::Test, TestProgram {
    ProgramLockTest() {
        Set(Setting::User, u"Анна").Set(Setting::Password, u"Тайна 1").Set(Setting::ClipboardDetect, u"1");
        Start();
        timers.Tick();
        window.document.SetText(u"letter");
        timers.Tick();
        messageBox.shown.clear();
    }
    // What is done while the dialog stands; then the right password opens it.
    void WhileLocked(const std::function<void()>& what) {
        const auto isKeptLocked = [this] {
            const auto kept = ReadRecoveryFile(recovery.file.value_or(""));
            return kept && kept->place.isLocked;
        };
        dialogs->whileModal = [&] {
            EXPECT_TRUE(isKeptLocked()) << "what is shown at the next start";
            what();
            EXPECT_TRUE(lock.Enter(settings.Text(Setting::Password)));
        };
        program.Run("MENU:SERVICE:LOCKED");
        EXPECT_FALSE(isKeptLocked());
        EXPECT_TRUE(window.shown && dialogs->hidings == 0 && !shell.concealed && !lock.IsLocked());
    }
    ProgramLock& lock = program.Parts().lock;
};

TEST_F(ProgramLockTest, OpensToThePasswordAsItStoodWhenItCameAndToNothingElse) {
    WhileLocked([this] {
        Set(Setting::Password, u"changed");
        for (const auto* wrong :
             {u"", u"тайна 1", u"Тайна", u"Тайна 1 ", u"Тайна 1Тайна 1", u"changed", u"Анна"}) {
            messageBox.shown.clear();
            EXPECT_FALSE(lock.Enter(wrong));
            EXPECT_EQ(LastBox(), u"Вы ввели неверный пароль. Попробуйте еще раз.");
        }
        Set(Setting::Password, u"Тайна 1");
    });
    EXPECT_FALSE(lock.IsLocked());
}

TEST_F(ProgramLockTest, NeedsANameOrAPassword) {
    for (const auto& [user, password, stands] :
         {std::tuple(u"", u"", false), {u"Анна", u"", true}, {u"", u"x", true}, {u"Анна", u"\u03C0", true}}) {
        Set(Setting::User, user).Set(Setting::Password, password);
        bool stood = false;
        WhileLocked([&] { stood = true; });
        EXPECT_EQ(stood, stands) << ToUtf8(password);
        EXPECT_EQ(messageBox.shown.size(), stands ? 0U : 1U);
        messageBox.shown.clear();
    }
}

// Each is tried while the lock stands, and leaves everything hidden and the text as it is.
TEST_F(ProgramLockTest, HasNoWayRoundIt) {
    Set(Setting::SaveChange, u"1").Set(Setting::MessageOnExit, u"1");
    const std::pair<const char*, std::function<void()>> ways[] = {
        {"the main window's close", [this] { EXPECT_FALSE(window.OnClose()); }},
        {"a shortcut", [this] { program.Run("MENU:FILE:NEW"); }},
        {"a save", [this] { program.Run("TOOLBAR:SAVE"); }},
        {"the full screen", [this] { program.Run("MENU:VIEW:FULLSCREEN"); }},
        {"a second lock", [this] { program.Run("TOOLBAR:LOCKED"); }},
        {"a file that has changed", [this] { window.OnActivate(); }},
        {"a file that is dropped", [this] { window.document.OnFileDrop(u"/d/file"); }}};
    files.files[u"/d/file"] = "dropped";
    for (const auto& [name, way] : ways)
        WhileLocked([&, this, name = name, &way = way] {
            const auto before = dialogs->shown.size();
            way();
            timers.Tick();
            EXPECT_EQ(dialogs->shown.size(), before) << name;
            EXPECT_TRUE(!window.shown && dialogs->hidings == 1 && shell.concealed) << name;
            EXPECT_TRUE(messageBox.shown.empty()) << name;
            EXPECT_EQ(window.document.Text(), u"letter") << name;
        });
    EXPECT_FALSE(shell.ended);
}

// The notice waits for the keys that were pressed before it.
TEST_F(ProgramLockTest, IsNotCoveredByTheNoticeOfAPasteBefore) {
    clipboard.Hold(std::nullopt);
    program.Run("MENU:EDIT:PASTE");
    WhileLocked([this] {
        timers.Tick();
        EXPECT_TRUE(messageBox.shown.empty());
        clipboard.Text(); // pasted as the password
        timers.Tick();
        EXPECT_EQ(messageBox.shown.size(), 1U);
    });
}

TEST_F(ProgramLockTest, StandsBeforeATextThatWasLeftLocked) {
    RecoveredTexts& recovered = program.Parts().recovered;
    RecoveryPlace place;
    place.isLocked = true;
    place.path = u"/d/name";
    recovery.left = {{.name = "1", .bytes = RecoveryFile(u"secret", place), .time = 0}};
    recovered.Find();
    EXPECT_EQ(recovered.At(0).name, u"(скрыт)");
    EXPECT_EQ(recovered.At(0).path + recovered.At(0).firstLine, u"(программа была заблокирована)");
    int stood = 0;
    dialogs->whileModal = [&] { stood += lock.Enter(u"Тайна 1") ? 1 : 0; };
    EXPECT_TRUE(recovered.Restore(0));
    EXPECT_EQ(window.document.Text(), u"secret");
    EXPECT_EQ(stood, 1);
    Set(Setting::User, u"").Set(Setting::Password, u"");
    EXPECT_TRUE(recovered.MaySeeLocked());
    EXPECT_EQ(stood, 1);
    EXPECT_TRUE(messageBox.shown.empty());
}

TEST_F(ProgramLockTest, EndsTheProgramWhenItsDialogIsTakenAway) {
    dialogs->whileModal = [] {};
    program.Run("MENU:SERVICE:LOCKED");
    EXPECT_TRUE(shell.ended);
    EXPECT_FALSE(window.shown);
    EXPECT_TRUE(shell.concealed);
}

} // namespace
} // namespace quillshift
