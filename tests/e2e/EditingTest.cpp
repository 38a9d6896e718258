#include "e2e/BarsTest.h"

#include "support/Iconv.h"

namespace quillshift::e2e {
namespace {

class Editing : public BarsTest {
protected:
    Editing() { editor.Set(Setting::SaveChange, u"0"); }
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

TEST_F(Editing, IsDoneByTheMenuAndByTheToolbar) {
    editor.Start();
    const std::pair<const char*, std::function<void(const std::string&)>> roads[] = {
        {"menu", [&](const std::string& command) { editor.Choose("MENU:EDIT:" + command); }},
        {"toolbar", [&](const std::string& command) { desktop.Click(Tool("TOOLBAR:" + command)); }},
    };
    for (const auto& road : roads) {
        SCOPED_TRACE(road.first);
        const auto run = [&](const std::string& command) {
            road.second(command);
            editor.Settle();
        };
        desktop.Type(u"one two");
        desktop.Press("Ctrl+Shift+Left");
        editor.Settle();
        run("CUT");
        run("PASTE");
        EXPECT_EQ(Saved(), Bytes("one two"));
        run("UNDO");
        EXPECT_EQ(Saved(), Bytes("one "));
        run("REDO");
        EXPECT_EQ(Saved(), Bytes("one two"));
        desktop.Press("Ctrl+Home");
        desktop.Press("Ctrl+Shift+Right");
        editor.Settle();
        run("COPY");
        run("DELETE");
        EXPECT_EQ(Saved(), Bytes("two"));
        run("CLEAR");
        run("PASTE");
        EXPECT_EQ(Saved(), Bytes("one "));
        run("CLEAR");
    }
}

TEST_F(Editing, AnIndentGoesAndStopsAtTheMargin) {
    editor.Start();
    desktop.Type(u"many a word");
    editor.Settle();
    const Rect window = desktop.Place(editor.Window());
    const Rect margin = RectAt(window.left + 10, window.top + 70, 40, 20);
    const auto before = desktop.Pixels(margin);
    desktop.Click(Tool("TOOLBAR:INDENT"));
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

TEST_F(Editing, KnowsOldChordsAndTypesNoneOfAlt) {
    editor.Start();
    desktop.Type(u"one two");
    desktop.Press("Alt+x");
    desktop.Press("Alt+w");
    desktop.Press("Ctrl+Shift+Left");
    desktop.Press("Shift+Delete");
    EXPECT_EQ(Saved(), Bytes("one "));
    desktop.Press("Shift+Insert");
    EXPECT_EQ(Saved(), Bytes("one two"));
    desktop.Press("Alt+BackSpace");
    EXPECT_EQ(Saved(), Bytes("one "));
    desktop.Press("Ctrl+Shift+z");
    EXPECT_EQ(Saved(), Bytes("one two"));
}

TEST_F(Editing, ChangesCaseByTheMenuAndOffersTheEditMenuAtTheMouse) {
    editor.Start();
    desktop.Type(u"ёж and hare");
    editor.Settle();
    editor.Choose("MENU:FORMAT:ALLTEXTCASE:CASEU");
    EXPECT_EQ(Saved(), Bytes("ЁЖ AND HARE"));
    desktop.Press("Ctrl+Shift+Right"); // the caret stands at the start
    editor.Settle();
    editor.Choose("MENU:FORMAT:SELTEXTCASE:CASEL");
    EXPECT_EQ(Saved(), Bytes("ёж AND HARE"));
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
