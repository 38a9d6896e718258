#include "e2e/EditorTest.h"

#include "support/Iconv.h"

namespace quillshift::e2e {
namespace {

class Editing : public EditorTest {
protected:
    Editing() { editor.Set("SaveChange", u"0"); }
    std::string Bytes(const std::string& text) { return Iconv(text + "\r\n", "UTF-8", "CP1251"); }
};

TEST_F(Editing, IsUndoneRedoneCutCopiedAndPastedByShortcuts) {
    editor.Start();
    desktop.Type(u"Ёжик");
    editor.Settle();
    desktop.Press("Ctrl+z");
    desktop.Press("Ctrl+z");
    EXPECT_EQ(Saved(), Bytes("Ёж"));
    desktop.Press("F4");
    EXPECT_EQ(Saved(), Bytes("Ёжи"));
    desktop.Press("Ctrl+a");
    desktop.Press("Ctrl+c");
    desktop.Press("Ctrl+v");
    EXPECT_EQ(Saved(), Bytes("ЁжиЁжи"));
    desktop.Press("Ctrl+z");
    EXPECT_EQ(Saved(), Bytes("Ёжи"));
    desktop.Press("F4");
    EXPECT_EQ(Saved(), Bytes("ЁжиЁжи"));
    desktop.Press("Ctrl+a");
    desktop.Press("Ctrl+x");
    EXPECT_EQ(Saved(), Bytes(""));
    desktop.Press("Ctrl+v");
    EXPECT_EQ(Saved(), Bytes("ЁжиЁжи"));
    desktop.Press("Ctrl+k");
    EXPECT_EQ(Saved(), Bytes(""));
}

TEST_F(Editing, TypingOverASelectionIsTakenBackInTwoSteps) {
    editor.Start();
    desktop.Type(u"one two");
    desktop.Press("Ctrl+Shift+Left");
    desktop.Type(u"x");
    EXPECT_EQ(Saved(), Bytes("one x"));
    desktop.Press("Ctrl+z");
    desktop.Press("Ctrl+z");
    EXPECT_EQ(Saved(), Bytes("one two"));
}

TEST_F(Editing, ChangesCaseByTheMenuAndOffersTheEditMenuAtTheMouse) {
    editor.Start();
    desktop.Type(u"ёж and hare");
    editor.Settle();
    editor.Choose("MENU:FORMAT:ALLTEXTCASE:CASEU");
    EXPECT_EQ(Saved(), Bytes("ЁЖ AND HARE"));
    const Rect window = desktop.Place(editor.Window());
    desktop.Click({window.left + 300, window.top + 300}, 3);
    desktop.WaitUntil("the menu is open", [&] { return !desktop.Popups().empty(); });
    editor.Settle();
    desktop.Press("Up");
    desktop.Press("Return"); // the last entry clears
    EXPECT_EQ(Saved(), Bytes(""));
}

} // namespace
} // namespace quillshift::e2e
