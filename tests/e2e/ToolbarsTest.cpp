#include "e2e/BarsTest.h"

namespace quillshift::e2e {
namespace {

class Toolbars : public BarsTest {
protected:
    void ResizeTo(int width) {
        const int height = desktop.Place(editor.Window()).Height();
        desktop.Resize(editor.Window(), {width, height});
        desktop.WaitUntil("the window is resized",
                          [&] { return desktop.Place(editor.Window()).Width() == width; });
        editor.Settle();
    }
};

// Flat in one style; a gradient from side to side in the other.
TEST_F(Toolbars, HaveTheStyleOfTheSettings) {
    for (const bool system : {false, true}) {
        Editor program(desktop);
        program.Set(Setting::Style, system ? u"System" : u"OfficeXP").Start();
        const Rect window = desktop.Place(program.Window());
        const std::uint32_t corner = desktop.Pixel({window.left + 1, window.top + 25});
        EXPECT_EQ(corner, desktop.Pixel({window.left + 1, window.top + 43}));
        EXPECT_EQ(corner != desktop.Pixel({window.right - 2, window.top + 25}), system);
    }
}

TEST_F(Toolbars, WhatANarrowWindowHasNoRoomForIsInAMenu) {
    editor.Set(Setting::SaveChange, u"0").Set(Setting::UseLargeIcons, u"1").Start();
    desktop.Type(u"q");
    desktop.Press("Ctrl+a");
    ResizeTo(400);
    const Rect window = desktop.Place(editor.Window());
    const int below = window.top + 2 * 21 + 2 + 29; // two rows of headings, a line, and the bar
    desktop.Click({window.right - 7, below - 1});
    WaitForMenu(1);
    desktop.Press("Down");
    desktop.Press("Return"); // cuts
    WaitUntilClosed();
    EXPECT_EQ(Saved(), "\r\n");
}

} // namespace
} // namespace quillshift::e2e
