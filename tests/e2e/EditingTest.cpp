#include "e2e/BarsTest.h"

namespace quillshift::e2e {
namespace {

class Editing : public BarsTest {
protected:
    Editing() { editor.Set(Setting::SaveChange, u"0"); }
};

TEST_F(Editing, IsDoneByShortcutsOldChordsAndTheMenuAtTheMouse) {
    editor.Start();
    desktop.Type(u"Ёж 2");
    desktop.Press("Alt+x"); // no mnemonic, and no letter for the text
    using Case = std::pair<const char*, const char*>;
    for (const auto& [keys, text] :
         {Case{"Ctrl+z Ctrl+z", "Ёж"}, Case{"F4", "Ёж "}, Case{"Ctrl+a Ctrl+c Ctrl+v", "Ёж Ёж "},
          Case{"Alt+BackSpace", "Ёж "}, Case{"Ctrl+Shift+z", "Ёж Ёж "}, Case{"Ctrl+a Ctrl+x", ""},
          Case{"Shift+Insert", "Ёж Ёж "}, Case{"Ctrl+a Shift+Delete", ""}, Case{"Ctrl+v", "Ёж Ёж "},
          Case{"Ctrl+k", ""}}) {
        desktop.Press(keys);
        EXPECT_EQ(Saved(), Bytes(text)) << keys;
    }
    desktop.Type(u"x");
    const Rect window = desktop.Place(editor.Window());
    desktop.Click({window.left + 300, window.top + 300}, 3);
    WaitForMenu(1);
    desktop.Press("Up Return"); // the last entry clears
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
    editor.Press("Home Ctrl+Shift+Right");
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
    editor.Press("Ctrl+a");
    desktop.Click({window.left + 300, window.top + 300}, 2);
    editor.Settle();
    EXPECT_EQ(Saved(), Bytes("abc defabc def")) << "what a command selects, the middle button puts in";
    editor.Press("Ctrl+z Ctrl+k");
    desktop.Press("Ctrl+z");
    EXPECT_EQ(Saved(), Bytes("abc def"));
}

using Searching = Editing;

TEST_F(Searching, IsDoneByTheKeyboardAlone) {
    editor.Start();
    desktop.Type(u"Ель да ель, а не ельник");
    editor.Press("Ctrl+f", u"Найти");
    desktop.Type(u"ЕЛЬ");
    editor.Press("Return"); // the window has the keyboard again
    editor.Press("F3");
    desktop.Type(u"дуб");
    editor.Settle();
    EXPECT_EQ(Saved(), Bytes("Ель да дуб, а не ельник"));
    editor.Press("Ctrl+h", u"Найти и заменить");
    desktop.Type(u"ель");
    desktop.Press("Tab");
    desktop.Type(u"вяз");
    desktop.Press("Tab space Return"); // a whole word
    editor.Settle();
    editor.Press("Ctrl+h", u"Найти и заменить");
    desktop.Press("Tab Tab space Tab Tab Tab Tab space"); // any word, everywhere
    editor.AnswerBox(BoxAnswer::Yes);
    editor.AnswerBox(BoxAnswer::Ok).SettleIn(u"Найти и заменить");
    editor.Press("Escape");
    EXPECT_EQ(Saved(), Bytes("вяз да дуб, а не вязник"));
    desktop.Press("Ctrl+z");
    EXPECT_EQ(Saved(), Bytes("вяз да дуб, а не ельник")) << "each is a step of its own";

    editor.Press("Home Return Ctrl+g", u"Перейти...");
    editor.Press("1 Return");
    desktop.Type(u"x");
    EXPECT_EQ(Saved(), Bytes("x\r\nвяз да дуб, а не ельник"));
}

TEST_F(Searching, ADialogStepsAsideAndGoesWithItsWindow) {
    editor.Start();
    desktop.Type(u"one two one");
    editor.Press("Ctrl+f", u"Найти");
    desktop.Type(u"two");
    const Rect window = desktop.Place(editor.Window());
    desktop.Move(desktop.Find(u"Найти"), {window.left + 5, window.top + 60});
    editor.SettleIn(u"Найти");
    desktop.Press("Return");
    const Rect words = RectAt(window.left + 5, window.top + 80, 60, 20);
    desktop.WaitUntil("the words are seen", [&] {
        const Rect dialog = desktop.Place(desktop.Find(u"Найти"));
        return dialog.top >= words.bottom || dialog.bottom <= words.top || dialog.left >= words.right;
    });
    editor.Settle();
    EXPECT_NE(desktop.Find(u"Найти"), 0U);
    EXPECT_EQ(editor.Close(), 0);
}

} // namespace
} // namespace quillshift::e2e
