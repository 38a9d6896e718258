#include "e2e/BarsTest.h"
#include "e2e/ScreenReader.h"

namespace quillshift::e2e {
namespace {

class DesktopsWishes : public BarsTest {
protected:
    // The ground of the menu bar, where no heading is.
    std::uint32_t Ground() const {
        const Rect window = desktop.Place(editor.Window());
        return desktop.Pixel({window.right - 4, window.top + 4});
    }
    void WaitForGround(std::uint32_t wanted) {
        desktop.WaitUntil("the bars have another ground", [&] { return Ground() == wanted; });
    }
};

TEST_F(DesktopsWishes, BlackAndWhiteComesAndGoes) {
    const ScreenReader bus(desktop, editor.home.Path());
    editor.environment = bus.Needs();
    const std::string wish = "org.freedesktop.appearance/contrast=uint32 ";
    Put(Path("wishes"), wish + "0\n");
    const Process portal(
        "/usr/bin/python3",
        {(TestsFolder().parent_path() / "harness/portal.py").string(), Path("wishes").string()}, bus.Its());
    editor.Start();
    const std::uint32_t usual = Ground();
    Put(Path("wishes"), wish + "1\n");
    WaitForGround(0xFFFFFF);
    Put(Path("wishes"), wish + "1\norg.freedesktop.appearance/color-scheme=uint32 1\n");
    WaitForGround(0);
    OpenByKeyboard(1);
    const Rect menu = WaitForMenu(1);
    EXPECT_EQ(desktop.Pixel({menu.right - 3, menu.bottom - 3}), 0);
    EXPECT_EQ(desktop.Pixel({menu.right - 1, menu.bottom - 3}), 0xFFFFFF) << "its edge";
    desktop.Press("Escape");
    Put(Path("wishes"), wish + "0\n");
    WaitForGround(usual);
}

TEST_F(DesktopsWishes, LargerTextMakesBarsAndMenusLarger) {
    editor.environment.insert({{"XDG_CURRENT_DESKTOP", "KDE"}, {"KDE_SESSION_VERSION", "5"}});
    std::filesystem::create_directories(Path("config"));
    Put(Path("config/kdeglobals"), "[General]\nfont=DejaVu Sans,18,-1,5,50,0,0,0,0,0\n");
    editor.Start();
    OpenByKeyboard(1);
    const Rect menu = WaitForMenu(1);
    EXPECT_GE(menu.Height(), HeightOfMenu("MENU:EDIT") * 5 / 4);
    const Rect window = desktop.Place(editor.Window());
    EXPECT_GE(menu.top - window.top, 21 * 3 / 2) << "the menu bar";
    EXPECT_NE(desktop.Pixel({window.left + 400, window.bottom - 2}), 0xFFFFFF)
        << "the text ends in the window";
}

} // namespace
} // namespace quillshift::e2e
