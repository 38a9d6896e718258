#include "support/ScriptedBars.h"

namespace quillshift {
namespace {

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
