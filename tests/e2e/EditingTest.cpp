#include "e2e/BarsTest.h"

#include "harness/Iconv.h"

namespace quillshift::e2e {
namespace {

class Editing : public BarsTest {
protected:
    Editing() { editor.Set(Setting::SaveChange, u"0"); }
    void Press(std::initializer_list<const char*> keys) {
        for (const char* const key : keys)
            desktop.Press(key);
    }
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

using Searching = Editing;

TEST_F(Searching, IsDoneByTheKeyboardAlone) {
    editor.Start();
    desktop.Type(u"Ель да ель, а не ельник");
    Press({"Ctrl+f"});
    editor.SettleIn(u"Найти");
    desktop.Type(u"ЕЛЬ");
    Press({"Return"});
    editor.Settle(); // the window has the keyboard again
    Press({"F3"});
    editor.Settle();
    desktop.Type(u"дуб");
    editor.Settle();
    EXPECT_EQ(Saved(), Bytes("Ель да дуб, а не ельник"));
    Press({"Ctrl+h"});
    editor.SettleIn(u"Найти и заменить");
    desktop.Type(u"ель");
    Press({"Tab"});
    desktop.Type(u"вяз");
    Press({"Tab", "space", "Return"}); // a whole word
    editor.Settle();
    Press({"Ctrl+h"});
    editor.SettleIn(u"Найти и заменить");
    Press({"Tab", "Tab", "space", "Tab", "Tab", "Tab", "Tab", "space"}); // any word, everywhere
    editor.AnswerBox(BoxAnswer::Yes);
    editor.AnswerBox(BoxAnswer::Ok);
    editor.SettleIn(u"Найти и заменить");
    Press({"Escape"});
    editor.Settle();
    EXPECT_EQ(Saved(), Bytes("вяз да дуб, а не вязник"));
    Press({"Ctrl+z"});
    EXPECT_EQ(Saved(), Bytes("вяз да дуб, а не ельник")) << "each is a step of its own";

    Press({"Home", "Return", "Ctrl+g"});
    editor.SettleIn(u"Перейти...");
    Press({"1", "Return"});
    editor.Settle();
    desktop.Type(u"x");
    EXPECT_EQ(Saved(), Bytes("x\r\nвяз да дуб, а не ельник"));
}

TEST_F(Searching, ADialogStepsAsideAndGoesWithItsWindow) {
    editor.Start();
    desktop.Type(u"one two one");
    Press({"Ctrl+f"});
    editor.SettleIn(u"Найти");
    desktop.Type(u"two");
    const Rect window = desktop.Place(editor.Window());
    desktop.Move(desktop.Find(u"Найти"), {window.left + 5, window.top + 60});
    editor.SettleIn(u"Найти");
    Press({"Return"});
    const Rect words = RectAt(window.left + 5, window.top + 80, 60, 20);
    desktop.WaitUntil("the words are seen", [&] {
        const Rect dialog = desktop.Place(desktop.Find(u"Найти"));
        return dialog.top >= words.bottom || dialog.bottom <= words.top || dialog.left >= words.right;
    });
    editor.Settle();
    EXPECT_NE(desktop.Find(u"Найти"), 0U);
    desktop.AskToClose(editor.Window());
    EXPECT_EQ(editor.WaitForEnd(), 0);
}

} // namespace
} // namespace quillshift::e2e
