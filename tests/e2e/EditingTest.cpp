#include "e2e/BarsTest.h"

#include "harness/Iconv.h"

namespace quillshift::e2e {
namespace {

class Editing : public BarsTest {
protected:
    Editing() { editor.Set(Setting::SaveChange, u"0"); }
    std::string Bytes(const std::string& text) { return Iconv(text + "\r\n", "UTF-8", "CP1251"); }
};

TEST_F(Editing, IsDoneByShortcutsOldChordsAndTheMenuAtTheMouse) {
    editor.Start();
    desktop.Type(u"Ёж 2");
    desktop.Press("Alt+x"); // no mnemonic, and no letter for the text
    const std::pair<std::vector<const char*>, const char*> cases[] = {
        {{"Ctrl+z", "Ctrl+z"}, "Ёж"},
        {{"F4"}, "Ёж "},
        {{"Ctrl+a", "Ctrl+c", "Ctrl+v"}, "Ёж Ёж "},
        {{"Alt+BackSpace"}, "Ёж "},
        {{"Ctrl+Shift+z"}, "Ёж Ёж "},
        {{"Ctrl+a", "Ctrl+x"}, ""},
        {{"Shift+Insert"}, "Ёж Ёж "},
        {{"Ctrl+a", "Shift+Delete"}, ""},
        {{"Ctrl+v"}, "Ёж Ёж "},
        {{"Ctrl+k"}, ""}};
    for (const auto& [keys, text] : cases) {
        for (const char* chord : keys)
            desktop.Press(chord);
        EXPECT_EQ(Saved(), Bytes(text)) << keys.back();
    }
    desktop.Type(u"x");
    const Rect window = desktop.Place(editor.Window());
    desktop.Click({window.left + 300, window.top + 300}, 3);
    WaitForMenu(1);
    desktop.Press("Up");
    desktop.Press("Return"); // the last entry clears
    EXPECT_EQ(Saved(), Bytes(""));
}

TEST_F(Editing, AnIndentGoesAndStopsAtTheMargin) {
    editor.Start();
    desktop.Type(u"many a word");
    editor.Settle();
    const Rect window = desktop.Place(editor.Window());
    const Rect margin = RectAt(window.left + 10, window.top + 84, 40, 20);
    const auto before = desktop.Pixels(margin);
    editor.Choose("MENU:FORMAT:INDENT");
    desktop.WaitUntil("the text has moved", [&] { return desktop.Pixels(margin) != before; });
    editor.Choose("MENU:FORMAT:OUTDENT");
    editor.Choose("MENU:FORMAT:OUTDENT");
    desktop.WaitUntil("the text is back", [&] { return desktop.Pixels(margin) == before; });
}

TEST_F(Editing, AMovedSelectionIsOneStepAndASelectedTextIsForTheMiddleButton) {
    editor.Start();
    desktop.Type(u"abc def");
    desktop.Press("Home");
    desktop.Press("Ctrl+Shift+Right");
    editor.Settle();
    const Rect window = desktop.Place(editor.Window());
    const Point selected{window.left + 16, window.top + 91};
    desktop.HoldButton(selected);
    for (int x = 0; x <= 200; x += 20) {
        desktop.MoveTo({selected.x + x, selected.y});
        desktop.WaitUntilQuiet(editor.Program());
    }
    desktop.ReleaseButton();
    editor.Settle();
    EXPECT_EQ(Saved(), Bytes("defabc "));
    desktop.Press("Ctrl+z");
    EXPECT_EQ(Saved(), Bytes("abc def"));
    desktop.Press("Ctrl+a");
    editor.Settle();
    desktop.Click({window.left + 300, window.top + 300}, 2);
    editor.Settle();
    EXPECT_EQ(Saved(), Bytes("abc defabc def")) << "what a command selects, the middle button puts in";
    desktop.Press("Ctrl+z");
    desktop.Press("Ctrl+k");
    editor.Settle();
    desktop.Press("Ctrl+z");
    EXPECT_EQ(Saved(), Bytes("abc def"));
}

} // namespace
} // namespace quillshift::e2e
