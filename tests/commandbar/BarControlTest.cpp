#include "commandbar/qsCommandBar.h"
#include "platform/Keys.h"
#include "support/FakeBarControl.h"
#include "support/FakeBarWindow.h"
#include "support/FakeDesktop.h"
#include "support/FakePlatform.h"
#include "support/FakeWindowMessages.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <deque>
#include <sstream>

namespace quillshift {
namespace {

constexpr WindowId kTop = 1;
constexpr WindowId kElsewhere = 99;
constexpr mCommandBars::ShortcutAlias kAliases[] = {{'K', modifier::kCtrl, 'O', modifier::kCtrl}};

/// A main menu and a toolbar on a fake desktop, and a hand that follows a script.
class Bars : public testing::Test {
protected:
    Bars() {
        messages.Open(kTop);
        menu = &AddControl(2, RectAt(100, 100, 600, 21));
        tools = &AddControl(3, RectAt(100, 121, 600, 24));
        menu->SetMainMenu(true);
        Fill("VIEW", {{"Wide", u"&Wide"}});
        Fill("MORE", {{"One", u"&One"}, {"Two", u"&Two"}, {"Late", u"&Late"}});
        Fill("FILE", {{"Off", u"Of&f"},
                      {"Open", u"&Open"},
                      {"=1", u""},
                      {"More", u"Mo&re", "MORE"},
                      {"Tick", u"&Tick", "", ButtonStyle::Check},
                      {"Ghost", u"&Ghost"},
                      {"Gone", u"Go&ne"}});
        Fill("MENU", {{"File", u"&File", "FILE"},
                      {"Edit", u"&Edit", "VIEW"},
                      {"View", u"&View", "VIEW"},
                      {"Help", u"&Help", "MORE"}});
        Fill("TOOLS", {{"Cut", u"", "", ButtonStyle::Check},
                       {"=2", u""},
                       {"Split", u"", "MORE", ButtonStyle::Split},
                       {"List", u"", "VIEW"},
                       {"Paste", u""}});
        for (const char* off : {"Off", "Gone", "Edit", "Late"})
            Button(off).SetEnabled(false);
        Button("Ghost").SetVisible(false);
        for (const char* heading : {"File", "Edit", "View", "Help"})
            Button(heading).SetShowCaptionInToolbar(true);
        for (const auto& [button, letter] : {std::pair{"Open", 'O'}, {"Cut", 'X'}, {"Late", 'L'}}) {
            Button(button).SetShortcutKey(letter);
            Button(button).SetShortcutModifiers(modifier::kCtrl);
        }
        toolkit.Model().FindButton("Two")->Infrequent = true; // shown all the same
        toolkit.BeforeShortcut = [this] { Button("Late").SetEnabled(true); };
        toolkit.Aliases = kAliases;
        for (const char* tool : {"Cut", "Split", "List", "Paste"})
            Button(tool).SetIconIndex(0);
        Button("Cut").SetToolTip(u"Cut out");
        Button("Paste").SetToolTip(u"Paste in");
        menu->SetToolbar(menu->CommandBars().Item("MENU"));
        tools->SetToolbar(tools->CommandBars().Item("TOOLS"));
        system.foreground = kTop;
        log.clear();
    }

    struct Entry {
        const char* key;
        std::u16string caption;
        const char* bar = "";
        ButtonStyle style = ButtonStyle::Normal;
    };
    void Fill(const char* bar, const std::vector<Entry>& entries) {
        const cCommandBar made = menu->CommandBars().Add(bar);
        for (const Entry& entry : entries) {
            const auto style = entry.key[0] == '=' ? ButtonStyle::Separator : entry.style;
            const cButton button = menu->Buttons().Add(entry.key, -1, entry.caption, style);
            if (*entry.bar != 0)
                button.SetBar(menu->CommandBars().Item(entry.bar));
            made.Buttons().Add(button);
        }
    }
    qsCommandBar& AddControl(WindowId id, Rect place) {
        messages.Open(id);
        FakeBarWindow& window = windows.emplace_back(id, id < 10 ? kTop : id, place);
        qsCommandBar& control = controls.emplace_back(toolkit, window);
        control.ButtonClick = [this](const cButton& button) { log += " click " + button.Key(); };
        control.ButtonDropDown = [this](const cButton& button, bool& cancel) {
            log += " drop " + button.Key();
            cancel = refusesDrop;
        };
        control.BeforeShowMenu = [this](const cCommandBar& bar) { log += " before " + bar.Key(); };
        control.AfterShowMenu = [this, &control](const cCommandBar& bar) {
            log += " after " + bar.Key() + (control.InUse ? " in use" : "");
        };
        control.RightClick = [this](const std::optional<cButton>& button, Point at) {
            log += " right " + (button ? button->Key() : "-") + " " + std::to_string(at.x);
        };
        control.RequestNewInstance = [this] {
            return &AddControl(static_cast<WindowId>(10 + windows.size()), {});
        };
        return control;
    }
    cButton Button(const char* key) { return menu->Buttons().Item(key); }
    FakeBarWindow& WindowOf(const qsCommandBar& control) {
        return *std::ranges::find(windows, control.Window(), &FakeBarWindow::Id);
    }

    // The control that shows a button at present, and the button's place in it. "+" is the toolbar's own.
    std::pair<qsCommandBar*, std::size_t> Find(const std::string& key) {
        if (key == "+")
            return {tools, tools->Items().size() - 1};
        for (auto each = controls.rbegin(); each != controls.rend(); ++each) {
            if (!each->Toolbar())
                continue;
            const cCommandBarButtons shown = each->Toolbar()->Buttons();
            for (int i = 1; i <= shown.count(); ++i)
                if (shown.Item(i).Key() == key && IsPlaced(each->Items()[std::size_t(i) - 1]))
                    return {&*each, std::size_t(i) - 1};
        }
        ADD_FAILURE() << key << " is nowhere to be seen";
        return {menu, 0};
    }
    void Mouse(const std::string& what, const std::string& key) {
        auto [control, index] = Find(key);
        FakeBarWindow& window = WindowOf(*control);
        const cDisplayButtonInfo item = control->Items()[index];
        const bool arrow = what == "arrow";
        const Point at{arrow ? item.Right - 3 : (item.Left + item.Right) / 2, (item.Top + item.Bottom) / 2};
        system.pointer = window.ToScreen(at);
        system.underPointer = window.Id();
        system.input->MouseFilter(false);
        window.listener->OnMouseMove(at);
        if (what == "over")
            return;
        system.Press(window.Id());
        window.listener->OnMousePress(at, what == "right" ? MouseButton::Right : MouseButton::Left);
        if (what == "click")
            window.listener->OnMouseRelease(at, MouseButton::Left);
    }
    void Do(const std::string& step) {
        static const std::map<std::string, int> kKeys{
            {"Left", key::kLeft}, {"Right", key::kRight}, {"Up", key::kUp},       {"Down", key::kDown},
            {"Home", key::kHome}, {"End", key::kEnd},     {"Enter", key::kEnter}, {"Esc", key::kEscape}};
        const auto colon = step.find(':');
        if (step == "deactivate")
            messages.Send(kTop, message::kActivateApplication);
        else if (step == "box")
            system.foreground = kElsewhere;
        else if (colon != std::string::npos && step.starts_with("press"))
            system.Press(step == "press:desk" ? 0 : kElsewhere);
        else if (colon != std::string::npos)
            Mouse(step.substr(0, colon), step.substr(colon + 1));
        else if (step == "beside")
            WindowOf(*menu).listener->OnMouseMove({500, 10});
        else if (step == "wait")
            platform.timers.Tick();
        else if (step == "away") {
            const Point from = std::exchange(system.pointer, {0, 0});
            for (FakeBarWindow& window : windows)
                if (window.place.left <= from.x && from.x < window.place.right &&
                    window.place.top <= from.y && from.y < window.place.bottom)
                    window.listener->OnMouseLeave();
        } else if (step == "free")
            menu->ShowPopupMenu({300, 300}, menu->CommandBars().Item("FILE"));
        else if (step == "Alt") {
            system.input->KeyboardFilter({.key = key::kAlt, .modifiers = modifier::kAlt});
            system.input->KeyboardFilter({.key = key::kAlt, .up = true});
        } else if (step.starts_with("Alt+") || step.starts_with("Ctrl+"))
            system.input->KeyboardFilter(
                {.key = step.back(), .modifiers = step[0] == 'A' ? modifier::kAlt : modifier::kCtrl});
        else
            system.input->KeyboardFilter({.key = kKeys.contains(step) ? kKeys.at(step) : step.at(0)});
    }
    // The bars with something lit, as "BAR:item", then what was told of since the last time.
    std::string Run(const char* script) {
        std::istringstream steps(script);
        for (std::string step; steps >> step;)
            Do(step);
        std::string state;
        const auto add = [&](const qsCommandBar& control) {
            std::string lit = control.IsPopup() ? "-" : "";
            for (std::size_t i = 0; i < control.Items().size(); ++i) {
                const cDisplayButtonInfo& item = control.Items()[i];
                if (item.MouseOver || item.MouseOverSplit || item.ShowingMenu)
                    lit = i < std::size_t(control.Toolbar()->Buttons().count())
                              ? control.Toolbar()->Buttons().Item(static_cast<int>(i) + 1).Key()
                              : "+";
            }
            if (!lit.empty())
                state += control.Toolbar()->Key() + ":" + lit + " ";
        };
        add(*menu);
        add(*tools);
        for (const cMenuPopupStack& popup : toolkit.Menu().popups.Entries()) {
            EXPECT_TRUE(WindowOf(*toolkit.Find(popup.hwnd)).visible);
            EXPECT_EQ(WindowOf(*toolkit.Find(popup.hwnd)).shadows, 2);
            add(*toolkit.Find(popup.hwnd));
        }
        state += toolkit.Menu().MenuMode ? "on" : "off";
        return state + "," + std::exchange(log, {});
    }

    struct Step {
        const char* script;
        const char* outcome;
    };
    // Each script begins and ends with nothing open.
    void ExpectEach(const std::vector<Step>& steps) {
        for (const Step& step : steps) {
            EXPECT_EQ(Run(step.script), step.outcome) << step.script;
            toolkit.Tracking().EndMenuMode();
            system.foreground = kTop;
            Run("away wait");
            for (const qsCommandBar& control : controls)
                EXPECT_TRUE(control.Enabled() && !control.InUse && !HotItem(control.Items()));
            EXPECT_FALSE(system.watched);
        }
    }

    FakePlatform platform;
    FakeWindowMessages messages;
    FakeBarSystem system;
    FakeSystemColours colours;
    FakeTheme theme;
    MSubclass subclass{messages, u"test"};
    mCommandBars toolkit{{system, messages, subclass, colours, theme, platform.timers}};
    std::deque<FakeBarWindow> windows;
    std::deque<qsCommandBar> controls;
    qsCommandBar* menu = nullptr;
    qsCommandBar* tools = nullptr;
    bool refusesDrop = false;
    std::string log;
};

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
        {"Alt+V", "MENU:View VIEW:Wide on, before VIEW"},
        {"Alt+X", "off,"},
        {"Alt+E", "off,"},
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
        {"free", "FILE:- on, before FILE"},
        {"free Left", "MENU:Help MORE:- on, before FILE after FILE before MORE"},
        {"free Right", "MENU:File FILE:- on, before FILE after FILE before FILE"},
        {"free R Right", "MENU:File FILE:- on, before FILE before MORE after MORE after FILE before FILE"},
        {"free R Left", "FILE:More on, before FILE before MORE after MORE"},
        {"free Esc", "off, before FILE after FILE"},
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
        {"click:File click:Off", "MENU:File FILE:- on, before FILE"},
        {"click:File click:Cut", "TOOLS:Cut off, before FILE after FILE click Cut"},
        {"click:File Right click:File", "MENU:File FILE:- on, before FILE after FILE before VIEW after VIEW before FILE"},
        {"click:File over:More wait over:Open away wait", "MENU:File FILE:More MORE:- on, before FILE before MORE"},
        {"click:File over:More wait deactivate", "off, before FILE before MORE after MORE after FILE"},
        {"click:File box Down", "off, before FILE after FILE"}, // that has come by itself, and has the keys
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
        {"Ctrl+P", "off,"},
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

TEST_F(Bars, AToolbarIsAsHighAsItIsTold) {
    for (const char* shown : {"all", "none"}) {
        tools->SetHeight(25);
        EXPECT_EQ(WindowOf(*tools).place.Height(), 25) << shown;
        tools->SetHeight(29);
        EXPECT_EQ(WindowOf(*tools).place.Height(), 29) << shown;
        for (const char* tool : {"Cut", "=2", "Split", "List", "Paste"}) {
            EXPECT_TRUE(!Button(tool).Visible() || tools->Items()[Find(tool).second].Bottom == 29) << tool;
            Button(tool).SetVisible(false);
        }
    }
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
    struct Case {
        const char* what;
        std::function<void()> change;
        std::vector<Rect> onMenu, onTools;
    };
    for (const Case& c : {Case{"state", [&] { Button("Cut").SetEnabled(false); }, {}, {cut}},
                          {"state of a heading", [&] { Button("Edit").SetEnabled(true); }, {heading}, {}},
                          {"pointer", [&] { Run("over:Paste"); }, {}, {AreaOf(tools->Items()[4])}},
                          {"title", [&] { title.SetTitle(u"Tools"); }, {}, {whole}},
                          {"style", [&] { toolkit.SetStyle(BarStyle::System); }, {heading}, {whole}},
                          {"same style", [&] { toolkit.SetStyle(BarStyle::System); }, {}, {}},
                          {"colour", [&] { menu->SetCustomColor(1, Colour{}); }, {heading}, {whole}},
                          {"layout", [&] { Button("List").SetIconIndex(2); }, {}, {whole}},
                          {"off", [&] { tools->SetRedraw(false), Button("List").SetIconIndex(3); }, {}, {}},
                          {"on", [&] { tools->SetRedraw(true); }, {}, {whole}}}) {
        strip.repainted.clear();
        bar.repainted.clear();
        c.change();
        EXPECT_EQ(strip.repainted, c.onMenu) << c.what;
        EXPECT_EQ(bar.repainted, c.onTools) << c.what;
        EXPECT_EQ(bar.painted, tools->Redraw()) << c.what;
    }
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

} // namespace
} // namespace quillshift
