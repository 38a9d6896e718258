#include "support/ScriptedBars.h"

namespace quillshift {
namespace {

using Bars = ScriptedBars;

TEST_F(Bars, GoWhereKeysAndMouseSendThem) {
    // clang-format off
    ExpectEach({

        // Along the strip, past what is disabled, and around its ends
        {"Alt", "MENU:File on,"},
        {"Alt Right", "MENU:View on,"},
        {"Alt Right Right Right", "MENU:File on,"},
        {"Alt Right Left", "MENU:File on,"},
        {"Alt Right Right", "MENU:Help on,"},
        {"Alt Left", "MENU:Help on,"},
        {"Alt beside", "MENU:File on,"},
        {"Alt Alt", "MENU:File on,"}, // leaves when pressed, enters when let go
        {"Alt Esc", "off,"},
        // Only these keys light the first row of what they open
        {"Alt Down", "MENU:File FILE:Off on, before FILE"},
        {"Alt Up", "MENU:File FILE:Off on, before FILE"},
        {"Alt Enter", "MENU:File FILE:Off on, before FILE"},
        {"Alt V", "MENU:View VIEW:Wide on, before VIEW"},
        {"Alt+V", "MENU:View VIEW:Wide on, before VIEW typed"},
        {"Alt+X", "off, typed"},
        {"Alt+E", "off, typed"},
        // Rows: disabled ones are reached, but not by Home and End, and do nothing
        {"Alt Down Down", "MENU:File FILE:Open on, before FILE"},
        {"Alt Down Down Down", "MENU:File FILE:More on, before FILE"},
        {"Alt Down Up", "MENU:File FILE:Gone on, before FILE"},
        {"Alt Down Up Down", "MENU:File FILE:Off on, before FILE"},
        {"Alt Down End", "MENU:File FILE:Tick on, before FILE"},
        {"Alt Down Home", "MENU:File FILE:Open on, before FILE"},
        {"Alt Down Enter", "off, before FILE after FILE"},
        {"Alt Down Home Enter", "off, before FILE after FILE click Open"},
        {"Alt Down O", "off, before FILE after FILE click Open"},
        {"Alt Down T", "off, before FILE after FILE click Tick"},
        {"Alt Down G", "MENU:File FILE:Off on, before FILE"},
        {"Alt Down Esc", "MENU:File on, before FILE after FILE"},
        {"Alt Down press:desk", "off, before FILE after FILE"},
        // Sub-menus
        {"Alt Down R", "MENU:File FILE:More MORE:One on, before FILE before MORE"},
        {"Alt Down R Esc", "MENU:File FILE:More on, before FILE before MORE after MORE"},
        {"Alt Down R Left", "MENU:File FILE:More on, before FILE before MORE after MORE"},
        {"Alt Down R Esc Right", "MENU:File FILE:More MORE:- on, before FILE before MORE after MORE before MORE"},
        {"Alt Down R Esc Enter", "MENU:File FILE:More MORE:One on, before FILE before MORE after MORE before MORE"},
        {"Alt Down R Right", "MENU:View VIEW:- on, before FILE before MORE after MORE after FILE before VIEW"},
        {"Alt Down R Down Enter", "off, before FILE before MORE after MORE after FILE click Two"},
        {"Alt Down Right", "MENU:View VIEW:- on, before FILE after FILE before VIEW"},
        {"Alt Down Left", "MENU:Help MORE:- on, before FILE after FILE before MORE"},
        // A free menu goes over to the strip of the control that showed it
        {"free:FILE", "FILE:- on, before FILE"},
        {"free:FILE Left", "MENU:Help MORE:- on, before FILE after FILE before MORE"},
        {"free:FILE Right", "MENU:File FILE:- on, before FILE after FILE before FILE"},
        {"free:FILE R Right", "MENU:File FILE:- on, before FILE before MORE after MORE after FILE before FILE"},
        {"free:FILE R Left", "FILE:More on, before FILE before MORE after MORE"},
        {"free:FILE Esc", "off, before FILE after FILE"},
        // The mouse
        {"over:Cut", "TOOLS:Cut off,"},
        {"over:Cut away wait", "off,"},
        {"over:=2", "off,"},
        {"click:Cut", "TOOLS:Cut off, click Cut"},
        {"over:Cut press:else Alt away wait Esc wait", "off,"},
        {"click:File", "MENU:File FILE:- on, before FILE"},
        {"click:File click:File", "off, before FILE after FILE"},
        {"click:File over:View", "MENU:View VIEW:- on, before FILE after FILE before VIEW"},
        {"click:File over:Edit", "MENU:File FILE:- on, before FILE"},
        {"click:File over:More", "MENU:File FILE:More on, before FILE"},
        {"click:File over:More wait", "MENU:File FILE:More MORE:- on, before FILE before MORE"},
        {"click:File over:More over:Open wait", "MENU:File FILE:Open on, before FILE"},
        {"click:File click:More click:Two", "off, before FILE before MORE after MORE after FILE click Two"},
        {"down:Cut over:Paste up:Paste", "TOOLS:Paste off,"},
        {"down:Cut over:Paste over:Cut up:Cut", "TOOLS:Cut off,"},
        {"click:File click:Off", "MENU:File FILE:- on, before FILE"},
        {"click:File click:Cut", "TOOLS:Cut off, before FILE after FILE click Cut"},
        {"click:File Right click:File", "MENU:File FILE:- on, before FILE after FILE before VIEW after VIEW before FILE"},
        {"click:File over:More wait over:Open away wait", "MENU:File FILE:More MORE:- on, before FILE before MORE"},
        {"click:File over:More wait deactivate", "off, before FILE before MORE after MORE after FILE"},
        {"click:File foreground:else Q", "off, before FILE after FILE typed"}, // that has come by itself, and has the keys
        {"click:File press:else", "off, before FILE after FILE"},
        {"click:File away wait", "MENU:File FILE:- on, before FILE"},
        {"click:File over:Open away wait", "MENU:File FILE:- on, before FILE"},
        {"right:Cut", "TOOLS:Cut off, right Cut 8"},
        {"click:List", "TOOLS:List VIEW:- on, before VIEW"},
        {"click:List over:Cut", "TOOLS:Cut on, before VIEW after VIEW"},
        {"over:Cut Alt away wait", "MENU:File TOOLS:Cut on,"},
        {"click:Split", "TOOLS:Split off, click Split"},
        {"arrow:Split", "TOOLS:Split MORE:- on, drop Split before MORE"},
        // Shortcuts and what they tick
        {"Ctrl+O", "off, click Open"},
        {"Ctrl+K", "off, click Open"}, // means the same
        {"Ctrl+L", "off, click Late"}, // enabled at the last moment
        {"Ctrl+X", "off, click Cut"},
        {"Ctrl+P", "off, typed"},
        {"click:File Ctrl+O", "off, before FILE after FILE click Open"}, // the letter is a mnemonic here
    });
    // clang-format on
    EXPECT_TRUE(Button("Tick").Checked()) << "it was clicked once";
    EXPECT_TRUE(Button("Cut").Checked()) << "it was clicked twice, and once by its shortcut";
}

TEST_F(Bars, AToolbarOffersWhatItHasNoRoomFor) {
    tools->MoreToolTip = u"More buttons";
    const auto icons = std::make_shared<PlatformImageList>(PlatformImageList{.size = {16, 16}, .images = {}});
    tools->SetToolbarImageList(icons);
    WindowOf(*tools).MoveTo(RectAt(100, 121, 114, 24)); // one pixel short
    ExpectEach({
        {"over:+", "TOOLS:+ off,"},
        {"right:+", "TOOLS:+ off, right - 106"},
        {"click:+", "TOOLS:+ TOOLS:- on, before TOOLS"},
        {"click:+ click:+", "off, before TOOLS after TOOLS"},
        {"click:+ click:Paste", "off, before TOOLS after TOOLS click Paste"},
        {"click:+ Up Enter", "off, before TOOLS after TOOLS click Paste"},
        {"click:+ Down Enter", "TOOLS:+ TOOLS:Split MORE:One on, before TOOLS before MORE"},
        {"click:+ Left", "TOOLS:Cut on, before TOOLS after TOOLS"},
    });
    Run("over:+");
    EXPECT_EQ(WindowOf(*tools).toolTip, u"More buttons");
    Run("click:+");
    Button("Paste").SetEnabled(false);
    EXPECT_EQ(Run("click:Paste"), "TOOLS:+ TOOLS:- on,");
    // Rows: icon, caption with two blanks, and what every row has. One is disabled, yet stands there.
    const Rect rows = WindowOf(*toolkit.Find(toolkit.Menu().ActiveWindow)).place;
    EXPECT_EQ(rows, RectAt(rows.left, 145, 16 + 6 * 10 + 52, 3 * 24 + 2));
    Run("Esc Esc");
    WindowOf(*tools).MoveTo(RectAt(100, 121, 115, 24));
    EXPECT_TRUE(std::ranges::all_of(tools->Items(), IsPlaced));
    EXPECT_EQ(tools->Items().size(), 5U);
}

TEST_F(Bars, OneThatIsLaidOutForgetsWhatIsHotUnlessAMenuIsOpen) {
    Run("over:Cut");
    EXPECT_EQ(WindowOf(*tools).toolTip, u"Cut out (Ctrl+X)");
    Button("Paste").SetIconIndex(1);
    EXPECT_EQ(Run(""), "off,");
    EXPECT_EQ(WindowOf(*tools).toolTip, u"");
    Run("Alt Down R");
    Button("Tick").SetCaption(u"&Ticked");
    EXPECT_EQ(Run(""), "MENU:File FILE:More MORE:One on,");
    Run("over:Open");
    EXPECT_EQ(windows[2].toolTip, u" (Ctrl+O)");
}

TEST_F(Bars, RepaintWhatHasChanged) {
    FakeBarWindow& strip = WindowOf(*menu);
    FakeBarWindow& bar = WindowOf(*tools);
    const Rect whole = RectAt(0, 0, 600, bar.place.Height());
    const Rect heading = RectAt(0, 0, 600, strip.place.Height());
    const Rect cut = AreaOf(tools->Items()[0]);
    const cCommandBar title = tools->CommandBars().Item("TOOLS");
    using Areas = std::vector<Rect>;
    const std::tuple<const char*, std::function<void()>, Areas, Areas> cases[] = {
        // on the menu, and on the toolbar
        {"state", [&] { Button("Cut").SetEnabled(false); }, {}, {cut}},
        {"state of a heading", [&] { Button("Edit").SetEnabled(true); }, {heading}, {}},
        {"pointer", [&] { Run("over:Paste"); }, {}, {AreaOf(tools->Items()[4])}},
        {"title", [&] { title.SetTitle(u"Tools"); }, {}, {whole}},
        {"style", [&] { toolkit.SetStyle(BarStyle::System); }, {heading}, {whole}},
        {"same style", [&] { toolkit.SetStyle(BarStyle::System); }, {}, {}},
        {"colour", [&] { menu->SetCustomColor(1, Colour{}); }, {heading}, {whole}},
        {"layout", [&] { Button("List").SetIconIndex(2); }, {}, {whole}},
        {"off", [&] { tools->SetRedraw(false), Button("List").SetIconIndex(3); }, {}, {}},
        {"on", [&] { tools->SetRedraw(true); }, {}, {whole}}};
    for (const auto& [what, change, onMenu, onTools] : cases) {
        strip.repainted.clear();
        bar.repainted.clear();
        change();
        EXPECT_EQ(strip.repainted, onMenu) << what;
        EXPECT_EQ(bar.repainted, onTools) << what;
        EXPECT_EQ(bar.painted, tools->Redraw()) << what;
    }
}

TEST_F(Bars, ShowTheirTicksAndTheStyleThatIsChosen) {
    const auto painted = [this] {
        RecordingSurface surface;
        WindowOf(*tools).listener->OnPaint(surface, {0, 0, 200, 24});
        return surface.drawn;
    };
    std::set<std::vector<std::string>> pictures{painted()};
    Button("Cut").SetChecked(true);
    pictures.insert(painted());
    for (const BarStyle style : {BarStyle::OfficeXP, BarStyle::Dark, BarStyle::System}) {
        toolkit.SetStyle(style);
        pictures.insert(painted());
    }
    EXPECT_EQ(pictures.size(), 5U) << "each is another";
}

TEST_F(Bars, FindTheColoursAsNewAndTheThemeDetectedIfTheyAreTheFirst) {
    constexpr int kHot = static_cast<int>(Slot::HotFillStart);
    mCommandBars fresh{{system, messages, subclass, colours, theme, platform.timers}};
    fresh.SetCustomColor(kHot, Rgb(1, 2, 3));
    theme.name = u"Metallic";
    EXPECT_EQ(fresh.Colours().ThemeColour(), ThemeColour::None) << "nobody has asked yet";
    messages.Open(4);
    FakeBarWindow window(4, 1, {});
    const qsCommandBar first(fresh, window);
    EXPECT_EQ(fresh.Colours().ThemeColour(), ThemeColour::Metallic);
    EXPECT_TRUE(first.UseStyleColor(kHot));
    fresh.SetCustomColor(kHot, Rgb(1, 2, 3));
    messages.Open(5);
    FakeBarWindow another(5, 1, {});
    EXPECT_FALSE(qsCommandBar(fresh, another).UseStyleColor(kHot));
}

TEST_F(Bars, AreMeasuredAnewWhenTheDesktopHasOtherLetters) {
    const cDisplayButtonInfo before = menu->Items()[0];
    WindowOf(*menu).textScale = 2;
    messages.Send(kTop, message::kSettingChange);
    EXPECT_EQ(AreaOf(menu->Items()[0]), (Rect{0, 0, before.Right + 4 * 6, before.Bottom + 13}));
}

TEST_F(Bars, ADropDownMayBeRefused) {
    refusesDrop = true;
    EXPECT_EQ(Run("arrow:Split"), "TOOLS:Split off, drop Split");
}

TEST_F(Bars, TheChevronMenuHidesAButtonBehindItself) {
    tools->ShowChevronMenu({200, 200});
    Run("Down Right Down Right Down Enter");
    EXPECT_FALSE(Button("Cut").Visible());
    EXPECT_EQ(toolkit.Menu().popups.Entries().size(), 3U) << "the list stays open";
}

TEST_F(Bars, ABarThatGoesWhileItsMenuIsOpenLeavesNothingBehind) {
    Run("click:File");
    menu->Buttons().Remove("Off");
    EXPECT_EQ(Run("Down Enter"), "off, after FILE click Open");
    Run("click:File");
    menu->CommandBars().Remove("FILE");
    EXPECT_EQ(Run("Down Enter Esc Esc"), "off, after FILE");
}

using MenuMode = ScriptedBars;

TEST_F(MenuMode, ComesAndGoesWithAltAndTheMouse) {
    // clang-format off
    ExpectEach({
        {"hold:Alt", "off,"},
        {"Alt hold:Alt", "off,"},
        {"Alt Q", "MENU:File on,"}, // taken, though it means nothing
        {"Alt let-go:Q", "MENU:File on,"},
        {"Alt hold:Shift Down", "MENU:File FILE:Off on, typed before FILE"},
        // Alt counts alone, and where there is a menu
        {"hold:Alt Alt+X let-go:Alt", "off, typed"},
        {"hold:Alt Alt+Shift let-go:Alt", "off, typed"},
        {"hold:Alt press:else let-go:Alt", "off,"},
        {"hold:Alt interrupt let-go:Alt", "off,"},
        {"foreground:none Alt", "off,"},
        {"foreground:else Alt", "off,"},
        {"foreground:none Alt+V", "off, typed"},
        {"foreground:none Ctrl+O", "off, typed"},
        {"switch:off Alt switch:on", "off,"},
        {"let-go:Alt+V", "off,"},
        {"let-go:Ctrl+O", "off,"},
        {"Alt+V repeat:Alt+V", "MENU:View VIEW:Wide on, before VIEW typed"},
        {"Alt Down interrupt", "off, before FILE after FILE"},
        // A press keeps the menu that it is meant for
        {"click:File over:More wait right:Off", "MENU:File FILE:More MORE:- on, before FILE before MORE right Off 62"},
        {"click:File over:More wait press:else", "off, before FILE before MORE after MORE after FILE"},
        {"click:File press:strip", "off, before FILE after FILE"}, // beside the headings
        {"Alt down:View", "MENU:View VIEW:- on, before VIEW"},
        {"click:List free:FILE", "TOOLS:List FILE:- on, before VIEW before FILE after VIEW"},
        // A free menu on a menu is a level of its own: what is below sleeps until it has gone
        {"Alt Down R nest:VIEW", "MENU:File FILE:More MORE:One VIEW:- on, before FILE before MORE before VIEW"},
        {"Alt Down R nest:VIEW over:Tick", "MENU:File FILE:More MORE:One VIEW:- on, before FILE before MORE before VIEW"},
        {"Alt Down R nest:VIEW press:else over:Tick wait", "MENU:File FILE:Tick on, before FILE before MORE before VIEW after VIEW after MORE"},
        {"Alt Down R nest:VIEW Esc Down", "MENU:File FILE:More MORE:Two on, before FILE before MORE before VIEW after VIEW"},
        {"Alt Down R nest:VIEW Left Esc", "MENU:File FILE:More on, before FILE before MORE before VIEW after VIEW after MORE"},
        {"Alt Down R nest:VIEW Right", "MENU:View VIEW:- on, before FILE before MORE before VIEW after VIEW after MORE after FILE before VIEW"},
        {"free:FILE nest:VIEW press:desk", "FILE:- on, before FILE before VIEW after VIEW"},
    });
    // clang-format on
}

TEST_F(MenuMode, LeavesNothingDisabledByWhicheverRoadItEnds) {
    for (const char* road : {"Esc", "hold:Alt", "press:else", "press:desk", "click:Cut", "deactivate"})
        for (std::size_t depth = 1; depth <= 6; ++depth) {
            const char* const steps[] = {"Alt", "Down", "R", "nest:FILE", "R", "nest:VIEW"};
            for (std::size_t i = 0; i < depth; ++i)
                Run(steps[i]);
            EXPECT_TRUE(toolkit.Menu().MenuMode);
            for (int guard = 0; toolkit.Menu().MenuMode && guard < 10; ++guard)
                Run(road);
            SCOPED_TRACE(testing::Message() << road << " at depth " << depth);
            ExpectAllIsBack();
        }
}

TEST_F(MenuMode, LeavesAloneWhatWasDisabledBefore) {
    tools->SetEnabled(false);
    Run("Alt Down Esc Esc");
    EXPECT_FALSE(tools->Enabled());
}

} // namespace
} // namespace quillshift
