#include "commandbar/cButtonInt.h"
#include "commandbar/mHooks.h"
#include "support/FakeMenuModeHost.h"

#include <gmock/gmock.h>

namespace quillshift {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::IsSupersetOf;
using testing::Not;

constexpr int kEscape = 27;
constexpr int kF = 'F';
constexpr WindowId kMenu = FakeMenuModeHost::kMenu;
constexpr WindowId kToolbar = FakeMenuModeHost::kToolbar;
constexpr WindowId kSecondToolbar = FakeMenuModeHost::kSecondToolbar;
constexpr WindowId kPopup = 11, kSubMenu = 12, kFree = 13, kFreeSub = 14, kUpperFree = 15;
constexpr WindowId kElsewhere = 999;

struct MenuModeTest : testing::Test {
    MenuState state;
    FakeMenuModeHost host{state};
    MenuTracking& tracking = host.tracking;
    mHooks hooks{state, tracking, host};

    bool Down(int key, int modifiers = 0) {
        return hooks.KeyboardFilter({.key = key, .modifiers = modifiers});
    }
    bool Up(int key, int modifiers = 0) {
        return hooks.KeyboardFilter({.key = key, .up = true, .modifiers = modifiers});
    }
    bool AltDown() { return Down(key::kAlt, modifier::kAlt); }
    bool AltUp() { return Up(key::kAlt); }
    void ClickOn(WindowId window, bool item = false) {
        host.underPointer = window;
        host.itemUnderPointer = item;
        hooks.MouseFilter(true);
    }
    // The keys of the controls themselves, as far as they end a menu.
    void LetEscapeLeave() {
        host.onKey = [this](WindowId control, int key) {
            if (key == kEscape && state.popups.Find(control))
                tracking.LeavePopup(control);
            else if (key == kEscape)
                tracking.SetMenuMode(false);
        };
    }
    void ExpectOffAndAllEnabled() {
        EXPECT_FALSE(state.MenuMode);
        EXPECT_FALSE(state.KeyboardMode);
        EXPECT_EQ(state.ActiveWindow, 0);
        EXPECT_THAT(host.shown, IsEmpty());
        EXPECT_THAT(host.Enabled(), IsSupersetOf({kMenu, kToolbar, kSecondToolbar}));
        EXPECT_EQ(host.Enabled().size(), host.controls.size());
    }
};

TEST_F(MenuModeTest, KeysGoWhereTheForegroundWindowLetsThem) {
    struct Case {
        const char* what;
        WindowId foreground;
        int key;
        bool up;
        int modifiers;
        bool swallowed;
        bool searched;
        bool entered;
    };
    const WindowId top = FakeMenuModeHost::kTop;
    host.shortcut = kF;
    host.onKey = [this](WindowId control, int key) {
        if (key == kF) // the only mnemonic
            host.Open(kPopup, control);
    };
    for (const Case& c : {
             Case{"a shortcut", top, kF, false, modifier::kCtrl, true, true, false},
             {"no shortcut", top, 'G', false, modifier::kCtrl, false, true, false},
             {"a shortcut going up", top, kF, true, modifier::kCtrl, false, false, false},
             {"a letter let go while Alt is held", top, kF, true, modifier::kAlt, false, false, false},
             {"Alt with a shortcut that is a mnemonic too", top, kF, false, modifier::kAlt, true, true, true},
             {"Alt with a letter that is no mnemonic", top, 'G', false, modifier::kAlt, false, true, false},
             {"Alt with a letter over a disabled window", 0, 'G', false, modifier::kAlt, false, true, false},
             {"Shift after Alt", top, key::kShift, false, modifier::kAlt, false, false, false},
         }) {
        host.foreground = c.foreground;
        host.log.clear();
        EXPECT_EQ(hooks.KeyboardFilter({.key = c.key, .up = c.up, .modifiers = c.modifiers}), c.swallowed)
            << c.what;
        const auto search = "search " + std::to_string(c.key);
        EXPECT_EQ(std::count(host.log.begin(), host.log.end(), search), c.searched ? 1 : 0) << c.what;
        EXPECT_EQ(state.MenuMode, c.entered) << c.what;
        tracking.EndMenuMode();
    }
}

TEST_F(MenuModeTest, AltThatIsNotAloneEntersNothing) {
    const std::pair<const char*, std::function<void()>> cases[] = {
        {"another key", [&] { Down('G', modifier::kAlt); }},
        {"Alt+Shift", [&] { Down(key::kShift, modifier::kAlt); }},
        {"a window moved with Alt and the mouse", [&] { ClickOn(kElsewhere); }},
        {"a switch to another window", [&] { hooks.OnInterruption(); }},
        {"a disabled window", [&] { host.foreground = 0; }},
        {"a window without a menu", [&] { host.foreground = 200; }},
        {"a disabled menu", [&] { host.Of(kMenu).enabled = false; }},
    };
    for (const auto& [what, between] : cases) {
        AltDown();
        between();
        EXPECT_FALSE(AltUp()) << what;
        EXPECT_FALSE(state.MenuMode) << what;
        host.foreground = FakeMenuModeHost::kTop;
    }
}

TEST_F(MenuModeTest, AKeyHeldDownWithAltOpensItsMenuOnce) {
    host.onKey = [this](WindowId control, int) { host.Open(kPopup, control); };
    Down(kF, modifier::kAlt);
    EXPECT_TRUE(hooks.KeyboardFilter({.key = kF, .repeated = true, .modifiers = modifier::kAlt}));
    EXPECT_THAT(host.shown, ElementsAre(kPopup));
}

TEST_F(MenuModeTest, AFreePopupOnAMenuDisablesWhatIsBeneath) {
    host.Open(kPopup, kMenu);
    host.Open(kSubMenu, kPopup);
    host.OpenFree(kFree, kSubMenu);
    EXPECT_THAT(host.Enabled(), ElementsAre(kFree));
    host.Open(kFreeSub, kFree);
    host.OpenFree(kUpperFree, kFreeSub);
    EXPECT_THAT(host.Enabled(), ElementsAre(kUpperFree));

    ClickOn(kElsewhere);
    EXPECT_THAT(host.Enabled(), ElementsAre(kFree, kFreeSub, kUpperFree)) << "the upper one is free again";
    EXPECT_EQ(state.ActiveWindow, kFreeSub);
    ClickOn(kElsewhere);
    EXPECT_THAT(host.shown, ElementsAre(kPopup, kSubMenu));
    EXPECT_THAT(host.closed, ElementsAre(kUpperFree, kFreeSub, kFree));
    EXPECT_THAT(host.Enabled(), IsSupersetOf({kMenu, kPopup, kSubMenu}));
    EXPECT_TRUE(state.MenuMode);
    ClickOn(kElsewhere);
    ExpectOffAndAllEnabled();
}

TEST_F(MenuModeTest, AClickEndsTheMenuUnlessItIsMeantForIt) {
    struct Case {
        const char* what;
        WindowId window;
        bool item;
        bool ends;
    };
    for (const Case& c : {
             Case{"another program's or no window", 0, false, true},
             {"another window", kElsewhere, false, true},
             {"the newest popup", kSubMenu, false, false},
             {"its parent", kPopup, false, false},
             {"an item of the source", kMenu, true, false},
             {"the source beside its items", kMenu, false, true},
             {"an item of another bar", kToolbar, true, true},
         }) {
        host.Open(kPopup, kMenu);
        host.Open(kSubMenu, kPopup);
        state.KeyboardMode = true;
        host.underPointer = c.window;
        hooks.MouseFilter(false);
        EXPECT_FALSE(state.KeyboardMode);
        EXPECT_TRUE(state.MenuMode) << "only a press ends it";
        ClickOn(c.window, c.item);
        EXPECT_EQ(state.MenuMode, !c.ends) << c.what;
        tracking.EndMenuMode();
    }
    tracking.SetMenuMode(true, kToolbar);
    state.ActiveWindow = kToolbar;
    ClickOn(kToolbar);
    EXPECT_TRUE(state.MenuMode) << "the window that has the keys";
}

TEST_F(MenuModeTest, LeavesNoWindowDisabledByWhicheverRoadItEnds) {
    LetEscapeLeave();
    const auto openAll = [&](int depth) {
        tracking.SetMenuMode(true, kMenu);
        state.ActiveWindow = kMenu;
        const std::vector<std::function<void()>> steps{
            [&] { host.Open(kPopup, kMenu); }, [&] { host.Open(kSubMenu, kPopup); },
            [&] { host.OpenFree(kFree, kSubMenu); }, [&] { host.Open(kFreeSub, kFree); },
            [&] { host.OpenFree(kUpperFree, kFreeSub); }};
        for (int step = 0; step < depth; ++step)
            steps[static_cast<std::size_t>(step)]();
    };
    const auto untilItEnds = [&](const std::function<void()>& step) {
        for (int guard = 0; state.MenuMode && guard < 20; ++guard)
            step();
    };
    const std::vector<std::pair<const char*, std::function<void()>>> roads{
        {"Escape", [&] { untilItEnds([&] { Down(kEscape); }); }},
        {"Alt", [&] { untilItEnds([&] { AltDown(); }); }},
        {"clicks elsewhere", [&] { untilItEnds([&] { ClickOn(kElsewhere); }); }},
        {"clicks on another bar", [&] { untilItEnds([&] { ClickOn(kToolbar, true); }); }},
        {"deactivation", [&] { tracking.EndMenuMode(); }},
        {"the lowest popup closed first",
         [&] {
             tracking.Close(kPopup);
             tracking.EndMenuMode();
         }},
        {"a popup in the middle closed first",
         [&] {
             tracking.Close(kFree);
             untilItEnds([&] { ClickOn(kElsewhere); });
         }},
    };
    for (const auto& [name, road] : roads)
        for (int depth = 0; depth <= 5; ++depth) {
            SCOPED_TRACE(testing::Message() << name << ", depth " << depth);
            openAll(depth);
            road();
            ExpectOffAndAllEnabled();
        }
}

TEST_F(MenuModeTest, LeavesControlsAloneThatWereDisabledBefore) {
    host.Of(kSecondToolbar).enabled = false;
    host.OpenFree(kFree, kToolbar);
    EXPECT_EQ(state.PopupLevel(), 0) << "free, but on no popup";
    EXPECT_EQ(state.MenuSource, kToolbar);
    tracking.SetMenuMode(false);
    EXPECT_THAT(host.Enabled(), Not(Contains(kSecondToolbar)));
}

} // namespace
} // namespace quillshift
