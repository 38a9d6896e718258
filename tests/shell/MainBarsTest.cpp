#include "shell/MainBars.h"

#include "platform/Keys.h"
#include "shell/Catalogue.h"
#include "support/TestProgram.h"

#include <gtest/gtest.h>

namespace quillshift {
namespace {

/// The bars of the main window on a fake desktop.
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

    TestProgram test;
    FakePlatform& platform = test;
    FakeBarSystem& system = test.system;
    mCommandBars& toolkit = test.toolkit;
    MainBars& bars = test.program.Parts().bars;
    std::deque<FakeBarWindow>& windows = test.window.windows;
    FakeBarWindow& menu = windows[0];
    FakeBarWindow& toolbar = windows[1];
    FakeBarWindow& decode = windows[2];
    std::vector<std::string> clicked;
};

TEST_F(MainBarsTest, TheToolbarsAndTheTextOpenTheirMenuOnARightClickAndTheMenuNone) {
    EXPECT_EQ(bars.Bar(0).Toolbar()->Key(), "MENU");
    test.window.document.OnRightMouseDown({300, 300});
    EXPECT_EQ(toolkit.Find(toolkit.Menu().ActiveWindow)->Toolbar()->Key(), "MENU:EDIT");
    toolkit.Tracking().EndMenuMode();
    for (FakeBarWindow* bar : {&menu, &toolbar, &decode}) {
        bar->listener->OnMousePress({700, 10}, MouseButton::Right);
        const qsCommandBar* const popup = toolkit.Find(toolkit.Menu().ActiveWindow);
        EXPECT_EQ(popup != nullptr, bar != &menu);
        if (popup == nullptr)
            continue;
        EXPECT_EQ(popup->Toolbar()->Key(), "MENU:VIEW:TOOLBARS");
        EXPECT_EQ(windows.back().place.left, bar->place.left + 700);
        EXPECT_EQ(windows.back().place.top, bar->place.top + 10);
        system.input->KeyboardFilter({.key = key::kDown});
        system.input->KeyboardFilter({.key = key::kEnter});
    }
    EXPECT_EQ(clicked, std::vector<std::string>(2, "MENU:VIEW:TOOLBARS:TBSTANDART"));
}

TEST_F(MainBarsTest, TheToolbarsAreAsHighAsTheirIconsWant) {
    for (const auto& [icons, height] : {std::pair{ToolBarIcons::Large, 29}, {ToolBarIcons::Small, 25}})
        for (const int bar : {1, 2}) {
            bars.AttachToolBar(bar, icons);
            EXPECT_EQ(windows[static_cast<std::size_t>(bar)].place.Height(), height) << bar;
            const cDisplayButtonInfo button = bars.Bar(bar).Items()[bar == 1 ? 1 : 6];
            EXPECT_EQ(button.Right - button.Left, icons == ToolBarIcons::Large ? 32 : 24) << bar;
        }
}

} // namespace
} // namespace quillshift
