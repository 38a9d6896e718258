#include "shell/MainBars.h"

#include "platform/Keys.h"
#include "shell/Catalogue.h"
#include "support/TestProgram.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace quillshift {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

constexpr WindowId kTop = 1;
constexpr WindowId kElsewhere = 99;

/// The bars of the main window on a fake desktop, with a hand for mouse and keyboard.
class MainBarsTest : public testing::Test {
protected:
    MainBarsTest() {
        test.Start();
        for (const int bar : {1, 2})
            for (int item = 0; item < 40; ++item)
                test.settings.ShowItem(bar == 1 ? ItemBar::Standart : ItemBar::Decode, item, true);
        bars.OnClick = [this](std::string_view key) { clicked.emplace_back(key); };
        for (const CatalogueEntry& entry : Catalogue())
            bars.Button(entry.Key).SetVisible(true);
        platform.timers.Tick();
        for (const CatalogueEntry& entry : Catalogue())
            bars.Button(entry.Key).SetEnabled(true);
    }

    FakeBarWindow& Popup(std::size_t number) { return windows[3 + number]; }
    std::vector<std::size_t> OpenPopups() {
        std::vector<std::size_t> open;
        for (std::size_t i = 3; i < windows.size(); ++i)
            if (windows[i].visible)
                open.push_back(i - 3);
        return open;
    }

    // Where an item of a window stands, by its place in the bar.
    Point Middle(FakeBarWindow& window, std::size_t item) {
        const cDisplayButtonInfo& info = toolkit.Find(window.Id())->Items()[item];
        return {(info.Left + info.Right) / 2, (info.Top + info.Bottom) / 2};
    }
    void Hover(FakeBarWindow& window, std::size_t item) {
        const Point at = Middle(window, item);
        system.pointer = window.ToScreen(at);
        system.underPointer = window.Id();
        system.input->MouseFilter(false);
        window.listener->OnMouseMove(at);
    }
    void Press(WindowId window) {
        system.underPointer = window;
        system.input->MouseFilter(true);
    }
    void Click(FakeBarWindow& window, std::size_t item) {
        Hover(window, item);
        Press(window.Id());
        window.listener->OnMousePress(Middle(window, item), MouseButton::Left);
        window.listener->OnMouseRelease(Middle(window, item), MouseButton::Left);
    }
    bool Key(int virtualKey, int modifiers = 0) {
        return system.input->KeyboardFilter({.key = virtualKey, .modifiers = modifiers});
    }
    void Alt() {
        system.input->KeyboardFilter({.key = key::kAlt, .modifiers = modifier::kAlt});
        system.input->KeyboardFilter({.key = key::kAlt, .up = true});
    }
    void ExpectAllIsBack() {
        EXPECT_THAT(OpenPopups(), IsEmpty());
        EXPECT_FALSE(toolkit.Menu().MenuMode);
        for (int bar = 0; bar < 3; ++bar)
            EXPECT_TRUE(bars.Bar(bar).Enabled()) << bar;
    }

    TestProgram test;
    FakePlatform& platform = test;
    FakeBarSystem& system = test.system;
    FakeWindowMessages& messages = test.messages;
    mCommandBars& toolkit = test.toolkit;
    MainBars& bars = test.program.Parts().bars;
    std::deque<FakeBarWindow>& windows = test.window.windows;
    FakeBarWindow& menu = windows[0];
    FakeBarWindow& toolbar = windows[1];
    FakeBarWindow& decode = windows[2];
    std::vector<std::string> clicked;
};

TEST_F(MainBarsTest, ASecondClickOnAHeadingClosesItsMenu) {
    Click(menu, 0);
    Click(menu, 0);
    ExpectAllIsBack();
}

TEST_F(MainBarsTest, EveryRoadClosesWhatItShould) {
    Click(menu, 0);
    Press(kElsewhere);
    ExpectAllIsBack();

    Click(menu, 7);
    Hover(Popup(OpenPopups()[0]), 0);
    platform.timers.Tick();
    ASSERT_THAT(OpenPopups(), SizeIs(2));
    messages.Send(kTop, message::kActivateApplication);
    ExpectAllIsBack();

    Click(menu, 0);
    Alt(); // goes back to the headings
    EXPECT_THAT(OpenPopups(), IsEmpty());
    Key(key::kEscape);
    ExpectAllIsBack();

    Click(menu, 0);
    Press(toolbar.Id()); // another bar
    ExpectAllIsBack();
}

TEST_F(MainBarsTest, OneItemRepaintsWhenThePointerComesOverIt) {
    toolbar.repainted.clear();
    Hover(toolbar, 2);
    EXPECT_THAT(toolbar.repainted, SizeIs(1));
    EXPECT_EQ(toolbar.toolTip, u"Открыть документ");
    toolbar.listener->OnMouseLeave();
    system.pointer = {0, 0};
    platform.timers.Tick();
    EXPECT_THAT(toolbar.repainted, SizeIs(2));
    EXPECT_EQ(toolbar.toolTip, u"");
}

TEST_F(MainBarsTest, TheChevronMenuHidesAButtonBehindItself) {
    bars.Bar(1).ShowChevronMenu({200, 200});
    Key(key::kDown);
    Key(key::kRight);
    Key(key::kRight);
    ASSERT_THAT(OpenPopups(), SizeIs(3));
    Key(key::kEnter);
    EXPECT_FALSE(bars.Button("TOOLBAR:NEW").Visible());
    EXPECT_THAT(OpenPopups(), SizeIs(3)) << "the list stays open";
}

TEST_F(MainBarsTest, ABarThatGoesWhileItsMenuIsOpenLeavesNothingBehind) {
    Click(menu, 0);
    bars.Bar(0).Buttons().Remove("MENU:FILE:OPEN");
    Click(Popup(0), 1);
    EXPECT_THAT(clicked, ElementsAre("MENU:FILE:REOPEN")) << "the rows have moved up";
    Click(menu, 0);
    bars.Bar(0).CommandBars().Remove("MENU:FILE");
    Key(key::kDown);
    Key(key::kEnter);
    Key(key::kEscape);
    Key(key::kEscape);
    ExpectAllIsBack();
}

TEST_F(MainBarsTest, ABoxThatComesByItselfGetsTheKeys) {
    Click(menu, 0);
    system.foreground = kElsewhere;
    EXPECT_FALSE(Key(key::kDown));
    ExpectAllIsBack();
}

TEST_F(MainBarsTest, AFreeMenuGivesWayToTheStripAndHangsOnNone) {
    toolbar.listener->OnMousePress({700, 10}, MouseButton::Right);
    Key(key::kLeft);
    Key(key::kRight);
    EXPECT_THAT(OpenPopups(), ElementsAre(0)) << "no heading opens beside it";
    Hover(menu, 0);
    EXPECT_THAT(OpenPopups(), SizeIs(1));
    EXPECT_EQ(toolkit.Find(toolkit.Menu().ActiveWindow)->Toolbar()->Key(), "MENU:FILE");
}

TEST_F(MainBarsTest, TheClickThatOpensAMenuDoesNotCloseIt) {
    Click(menu, 0);
    Key(key::kRight);
    Click(menu, 0);
    EXPECT_THAT(OpenPopups(), SizeIs(1));
}

TEST_F(MainBarsTest, ARowCoolsWhenThePointerHasGoneAlsoBesideAnOpenSubMenu) {
    Click(menu, 7);
    Hover(Popup(0), 0);
    platform.timers.Tick();
    Hover(Popup(0), 1);
    Popup(0).listener->OnMouseLeave();
    system.pointer = {0, 0};
    platform.timers.Tick();
    EXPECT_FALSE(toolkit.Find(Popup(0).Id())->Items()[1].MouseOver);
    EXPECT_EQ(Popup(0).toolTip, u"") << "a row tells its shortcut already";
}

} // namespace
} // namespace quillshift
