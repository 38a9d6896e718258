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
        button.ToolTip.clear();
        EXPECT_EQ(button.FullToolTip(), text.empty() ? u"" : u" (" + text + u")");
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

} // namespace
} // namespace quillshift
