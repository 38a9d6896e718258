#include "e2e/EditorTest.h"

namespace quillshift::e2e {
namespace {

class SettingsByKeyboard : public EditorTest {
protected:
    using Picture = std::vector<std::uint32_t>;

    Picture Area(int top, int height) {
        editor.Settle();
        const Rect window = desktop.Place(editor.Window());
        return desktop.Pixels(RectAt(window.left, window.top + top, window.Width(), height));
    }
    Picture ToolBar() { return Area(24, 22); }
    void Press(const std::vector<const char*>& chords) {
        for (const char* chord : chords)
            desktop.Press(chord);
    }
    void StartAnew() {
        editor.Choose("MENU:FILE:EXIT");
        EXPECT_EQ(editor.WaitForEnd(), 0);
        editor.Start();
    }
};

TEST_F(SettingsByKeyboard, HiddenItemsStayAwayUntilTheyAreShownAgain) {
    editor.Start();
    const Picture all = ToolBar();
    const auto toggleTwo = [this] {
        editor.Choose("MENU:VIEW:TOOLBARS:TBCUSTOMIZE");
        editor.SettleIn(u"Настройка панелей инструментов...");
        Press({"Tab", "Down", "space", "Down", "space", "Return"});
    };
    toggleTwo();
    const Picture fewer = ToolBar();
    EXPECT_NE(fewer, all);
    EXPECT_FALSE(editor.Store().IsItemShown(ItemBar::Standart, 1) ||
                 editor.Store().IsItemShown(ItemBar::Standart, 2));
    StartAnew();
    EXPECT_EQ(ToolBar(), fewer);
    toggleTwo();
    EXPECT_EQ(ToolBar(), all);
}

TEST_F(SettingsByKeyboard, AFontIsTheDocumentsAtOnceAndAtTheNextStart) {
    editor.Set(Setting::SaveChange, u"0").Set(Setting::FontSize, u"8").Start();
    desktop.Type(u"Жук");
    const Picture small = Area(100, 60);
    editor.Choose("MENU:FORMAT:FONT");
    editor.SettleIn(u"Параметры программы");
    Press({"Tab", "Tab", "Down", "Down", "Down", "Return"});
    const Picture large = Area(100, 60);
    EXPECT_NE(large, small);
    EXPECT_EQ(editor.Store().Text(Setting::FontSize), u"14");
    StartAnew();
    desktop.Type(u"Жук");
    EXPECT_EQ(Area(100, 60), large);
}

} // namespace
} // namespace quillshift::e2e
