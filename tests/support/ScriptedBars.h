#pragma once

#include "commandbar/qsCommandBar.h"
#include "platform/Keys.h"
#include "support/FakeBarWindow.h"
#include "support/FakePlatform.h"
#include "support/FakeWindowMessages.h"
#include "support/RecordingSurface.h"

#include <deque>
#include <gtest/gtest.h>

namespace quillshift {

/// A main menu and a toolbar on a fake desktop, and a hand that follows a script. A script is steps with
/// blanks between: a key ("Down", "V", "Alt", "Ctrl+O"), or what the mouse does to an item ("over:File",
/// "down:", "up:", "click:", "arrow:", "right:"), or one of those that `Do` lists.
class ScriptedBars : public testing::Test {
protected:
    static constexpr WindowId kTop = 1, kElsewhere = 99;
    static constexpr Point kBeside{500, 10}; // the headings

    ScriptedBars() {
        messages.Open(kTop);
        menu = &AddControl(2, RectAt(100, 100, 600, 21));
        tools = &AddControl(3, RectAt(100, 121, 600, 24));
        menu->SetMainMenu(true);
        Fill("VIEW", {Entry{"Wide", u"&Wide"}});
        Fill("MORE", {Entry{"One", u"&One"}, Entry{"Two", u"&Two"}, Entry{"Late", u"&Late"}});
        Fill("FILE", {Entry{"Off", u"Of&f"}, Entry{"Open", u"&Open"}, Entry{"=1", u""},
                      Entry{"More", u"Mo&re", "MORE"}, Entry{"Tick", u"&Tick", "", ButtonStyle::Check},
                      Entry{"Ghost", u"&Ghost"}, Entry{"Gone", u"Go&ne"}});
        Fill("MENU", {Entry{"File", u"&File", "FILE"}, Entry{"Edit", u"&Edit", "VIEW"},
                      Entry{"View", u"&View", "VIEW"}, Entry{"Help", u"&Help", "MORE"}});
        Fill("TOOLS", {Entry{"Cut", u"", "", ButtonStyle::Check}, Entry{"=2", u""},
                       Entry{"Split", u"", "MORE", ButtonStyle::Split}, Entry{"List", u"", "VIEW"},
                       Entry{"Paste", u""}});
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
        static constexpr mCommandBars::ShortcutAlias kAliases[] = {
            {'K', modifier::kCtrl, 'O', modifier::kCtrl}};
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
        for (std::size_t newest = controls.size(); newest-- > 0;) {
            qsCommandBar& each = controls[newest];
            if (!each.Toolbar())
                continue;
            const cCommandBarButtons shown = each.Toolbar()->Buttons();
            for (int i = 1; i <= shown.count(); ++i)
                if (shown.Item(i).Key() == key && IsPlaced(each.Items()[std::size_t(i) - 1]))
                    return {&each, std::size_t(i) - 1};
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
        if (what != "over" && what != "up") {
            system.Press(window.Id());
            window.listener->OnMousePress(at, what == "right" ? MouseButton::Right : MouseButton::Left);
        }
        if (what == "click" || what == "up")
            window.listener->OnMouseRelease(at, MouseButton::Left);
    }
    // "Down", "V", "Ctrl+O"; one that no menu and no shortcut takes is typed into the text.
    void Key(const std::string& chord, bool up = false, bool repeated = false) {
        static const std::map<std::string, int> kKeys{
            {"Left", key::kLeft}, {"Right", key::kRight}, {"Up", key::kUp},       {"Down", key::kDown},
            {"Home", key::kHome}, {"End", key::kEnd},     {"Enter", key::kEnter}, {"Esc", key::kEscape},
            {"Alt", key::kAlt},   {"Shift", key::kShift}};
        const std::string last = chord.substr(chord.find('+') + 1);
        const int modifiers = chord.starts_with("Alt") && !(up && last == "Alt") ? modifier::kAlt
                              : chord.starts_with("Ctrl")                        ? modifier::kCtrl
                                                                                 : 0;
        const KeyEvent event{.key = kKeys.contains(last) ? kKeys.at(last) : last.at(0),
                             .up = up,
                             .repeated = repeated,
                             .modifiers = modifiers};
        if (!system.input->KeyboardFilter(event) && !up && last != "Alt")
            log += " typed";
    }
    void Leave() {
        const Point from = std::exchange(system.pointer, {0, 0});
        for (FakeBarWindow& window : windows)
            if (window.place.left <= from.x && from.x < window.place.right && window.place.top <= from.y &&
                from.y < window.place.bottom)
                window.listener->OnMouseLeave();
    }
    void ShowFree(qsCommandBar& control, const std::string& bar) {
        control.ShowPopupMenu({300, 300}, menu->CommandBars().Item(bar));
    }
    void Do(const std::string& step) {
        const std::map<std::string, std::function<void(const std::string&)>> steps{
            {"wait", [&](auto&) { platform.timers.Tick(); }},
            {"away", [&](auto&) { Leave(); }},
            {"beside", [&](auto&) { WindowOf(*menu).listener->OnMouseMove(kBeside); }},
            {"Alt", [&](auto&) { Key("Alt"), Key("Alt", true); }},
            {"hold", [&](auto& key) { Key(key); }},
            {"let-go", [&](auto& key) { Key(key, true); }},
            {"repeat", [&](auto& key) { Key(key, false, true); }},
            {"press",
             [&](auto& where) {
                 system.pointer = WindowOf(*menu).ToScreen(kBeside);
                 system.Press(where == "desk" ? 0 : where == "strip" ? menu->Window() : kElsewhere);
             }},
            {"interrupt", [&](auto&) { system.input->OnInterruption(); }},
            {"deactivate", [&](auto&) { messages.Send(kTop, message::kActivateApplication); }},
            {"foreground", [&](auto& who) { system.foreground = who == "none" ? 0 : kElsewhere; }},
            {"switch", [&](auto& menuState) { menu->SetEnabled(menuState == "on"); }},
            {"free", [&](auto& bar) { ShowFree(*menu, bar); }},
            {"nest", [&](auto& bar) { ShowFree(*toolkit.Find(toolkit.Menu().ActiveWindow), bar); }}};
        const auto colon = step.find(':');
        const std::string what = step.substr(0, colon);
        if (const auto found = steps.find(what); found != steps.end())
            found->second(colon == std::string::npos ? "" : step.substr(colon + 1));
        else if (colon != std::string::npos)
            Mouse(what, step.substr(colon + 1));
        else
            Key(step);
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
            ExpectAllIsBack();
        }
    }
    void ExpectAllIsBack() {
        system.foreground = kTop;
        EXPECT_EQ(Run("away wait").substr(0, 4), "off,");
        for (const qsCommandBar& control : controls)
            EXPECT_TRUE(control.Enabled() && !control.InUse && !HotItem(control.Items()));
        EXPECT_EQ(toolkit.Menu().ActiveWindow, 0);
        EXPECT_FALSE(system.watched || toolkit.Menu().KeyboardMode);
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

} // namespace quillshift
