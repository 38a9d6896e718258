#include "commandbar/VirtualKeys.h"
#include "commandbar/cButtonInt.h"

#include <gtest/gtest.h>

namespace quillshift {
namespace {

TEST(AShortcutsText, NamesModifiersInOneOrderAndThenTheKey) {
    struct Case {
        int key;
        int modifiers;
        const char16_t* text;
    };
    using namespace modifier;
    for (const Case& c :
         {Case{46, kShift | kCtrl, u"Ctrl+Shift+Del"}, Case{'S', kAlt | kShift | kCtrl, u"Ctrl+Shift+Alt+S"},
          Case{'7', kAlt, u"Alt+7"}, Case{FunctionKey(4), 0, u"F4"},
          Case{FunctionKey(12), kCtrl, u"Ctrl+F12"}, Case{33, 0, u"Page up"},
          Case{0x61, kCtrl, u"Ctrl+Num 1"}, Case{0, kCtrl, u""}, Case{7, kCtrl, u""}}) {
        cButtonInt button("B");
        button.ToolTip = u"Tip";
        button.ShortcutKey = static_cast<std::int16_t>(c.key);
        button.ShortcutModifiers = c.modifiers;
        const std::u16string text = c.text;
        EXPECT_EQ(button.ShortcutText(), text);
        EXPECT_EQ(button.FullToolTip(), text.empty() ? u"Tip" : u"Tip (" + text + u")");
    }
}

TEST(AMnemonic, IsTheCharacterBehindTheFirstMark) {
    struct Case {
        const char16_t* caption;
        int key;
        bool matches;
    };
    for (const Case& c :
         {Case{u"&Open", 'O', true}, Case{u"Save &as", 'A', true}, Case{u"&1. file", '1', true},
          Case{u"Open", 'O', false}, Case{u"Open&", 'O', false}, Case{u"&Open &as", 'A', false},
          Case{u"A && B", 'B', false}, Case{u"A && B", 0, false}}) {
        cButtonInt button("B");
        button.Caption = c.caption;
        EXPECT_EQ(button.HasMnemonic(c.key), c.matches) << c.key;
    }
}

TEST(AnItem, IsSelectableByItsStateAndPlace) {
    const auto selectable = [](auto change, DisplayMode mode, Orientation orientation) {
        cButtonInt button("B");
        change(button);
        return button.IsSelectable(mode, orientation);
    };
    constexpr auto top = Orientation::Top;
    constexpr auto left = Orientation::Left;
    constexpr auto toolbar = DisplayMode::Toolbar;
    constexpr auto list = DisplayMode::AddOrRemoveList;
    const auto plain = [](cButtonInt&) {};
    const auto separator = [](cButtonInt& b) { b.Style = ButtonStyle::Separator; };
    const auto tickedOff = [](cButtonInt& b) {
        b.Visible = b.Enabled = false;
        b.CustomiseState = CustomiseState::NotTicked;
    };
    EXPECT_TRUE(selectable(plain, toolbar, top));
    EXPECT_FALSE(selectable(separator, list, top));
    EXPECT_FALSE(selectable([](cButtonInt& b) { b.Locked = true; }, toolbar, top));
    EXPECT_FALSE(selectable([](cButtonInt& b) { b.Enabled = false; }, list, top));
    EXPECT_FALSE(selectable([](cButtonInt& b) { b.Visible = false; }, DisplayMode::PopupMenu, top));
    EXPECT_TRUE(selectable(tickedOff, list, top));
    EXPECT_FALSE(selectable(tickedOff, toolbar, top));

    const auto panel = [](cButtonInt& b) { b.Style = ButtonStyle::Panel; };
    const auto panelWithIcon = [](cButtonInt& b) {
        b.Style = ButtonStyle::Panel;
        b.IconIndex = 0;
    };
    EXPECT_FALSE(selectable(panelWithIcon, toolbar, top));
    EXPECT_FALSE(selectable(panel, toolbar, left));
    EXPECT_TRUE(selectable(panelWithIcon, toolbar, left));
}

} // namespace
} // namespace quillshift
