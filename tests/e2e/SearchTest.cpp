#include "e2e/EditorTest.h"

#include "harness/Iconv.h"

namespace quillshift::e2e {
namespace {

class Searching : public EditorTest {
protected:
    Searching() { editor.Set(Setting::SaveChange, u"0"); }
    void Press(std::initializer_list<const char*> keys) {
        for (const char* const key : keys)
            desktop.Press(key);
    }
    std::string Bytes(const std::string& text) { return Iconv(text + "\r\n", "UTF-8", "CP1251"); }
};

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
    Press({"Ctrl+f"});
    editor.SettleIn(u"Найти");
    desktop.Type(u"ива"); // over the text that the command selects anew
    Press({"Return"});
    editor.AnswerBox(BoxAnswer::Ok);
    editor.SettleIn(u"Найти");
    Press({"Escape"});
    editor.Settle();

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
