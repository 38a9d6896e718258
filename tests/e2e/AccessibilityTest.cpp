#include "e2e/EditorTest.h"
#include "e2e/ScreenReader.h"

#include "base/Utf8.h"
#include "harness/Iconv.h"
#include "shell/Catalogue.h"
#include "shell/Commands.h"

namespace quillshift::e2e {
namespace {

namespace fs = std::filesystem;

/// A command that a screen reader presses, and what comes of it: "window" with its title and the button that
/// closes it, "text" with that of the document, "tick" for another one, or nothing that could be seen.
struct Press {
    std::string_view key;
    std::string_view outcome;
    std::string_view wanted = {};
    std::string_view button = "Отмена";
};

class Accessibility : public EditorTest {
protected:
    void SetUp() override {
        editor.environment = reader_.Needs();
        editor.Set(Setting::SaveChange, u"0").Start();
    }

    std::string Ask(const std::string& what) const { return reader_.Ask(what); }
    Point Middle() const {
        const Rect window = desktop.Place(editor.Window());
        return {(window.left + window.right) / 2, (window.top + window.bottom) / 2};
    }

    void PressAll(const std::vector<Press>& presses) {
        std::string lines;
        for (const Press& press : presses)
            lines += Way(press.key) + "\t" + std::string(press.outcome) + "\t" + std::string(press.wanted) +
                     "\t" + std::string(press.button) + "\n";
        Put(Path("presses"), lines);
        Ask("press " + Path("presses").string());
    }

    // The names from the menu bar down to a command.
    static std::string Way(std::string_view key) {
        const CatalogueEntry* const entry = FindEntry(key);
        const std::string_view parent = ParentKey(key);
        return (ParentKey(parent).empty() ? "" : Way(parent) + " > ") + ToUtf8(entry->Caption);
    }

    ScreenReader reader_{desktop, editor.home.Path()};
};

// Each with its role, what it can do over an empty document, and its keys.
TEST_F(Accessibility, EveryCommandIsFoundInItsMenu) {
    std::vector<std::string> expected;
    for (const CatalogueEntry& entry : Catalogue()) {
        if (RootOf(entry.Key) != "MENU" || entry.Key == "MENU" || entry.Style == ButtonStyle::Separator)
            continue;
        ButtonRecord keys;
        keys.ShortcutKey = entry.ShortcutKey;
        keys.ShortcutModifiers = entry.ShortcutModifiers;
        const bool enabled = IsEnabled(entry.action.command, {});
        const bool checked = entry.action.command == Command::ShowBar;
        expected.push_back(Way(entry.Key) + "\tmenu item\t" + (enabled ? "enabled" : "") +
                           (checked ? " checked\t" : "\t") + ToUtf8(keys.ShortcutText()));
    }
    std::istringstream lines(Ask("list"));
    std::vector<std::string> found;
    for (std::string line; std::getline(lines, line);)
        found.push_back(line);
    std::ranges::sort(expected);
    std::ranges::sort(found);
    EXPECT_EQ(found, expected);
}

TEST_F(Accessibility, TheKeyboardIsFollowedThroughTheMenus) {
    const auto listener = reader_.Begin("heed " + Path("heard").string());
    std::string heard;
    const auto expectHeard = [&](const std::string& what) {
        heard += what;
        desktop.WaitUntil(what + " is heard", [&] { return Contents(Path("heard")) == heard; });
    };
    const auto item = [](const std::string& name) {
        return "focused\t" + name + "\nselected\t" + name + "\n";
    };
    expectHeard("ready\n");
    desktop.Press("Alt");
    expectHeard(item("Файл"));
    desktop.Press("Down");
    expectHeard(item("Создать"));
    desktop.Press("Up"); // to the last one
    expectHeard(item("Выход"));
    desktop.Press("Escape");
    expectHeard(item("Файл"));
    desktop.Press("Left");
    expectHeard(item("Справка"));
    desktop.Press("Escape");
    expectHeard("focused\tТекст\n");
}

// By its window, whose parts stand in it as they are seen.
TEST_F(Accessibility, TheWindowIsReadFromTopToBottom) {
    const std::string names = Ask("names");
    std::size_t place = 0;
    for (const char* part : {"frame\tMorvane Quillshift 3.0", "menu bar\tМеню", "tool bar\tСтандартная",
                             "tool bar\tПерекодирование", "combo box\tDOS 866 -> Windows 1251",
                             "push button\tПерекодировать", "push button\tОстановить", "text\tТекст"}) {
        place = names.find(part, place);
        ASSERT_NE(place, std::string::npos) << part << " is not where it should be in\n" << names;
    }
    EXPECT_EQ(names.find("frame\t"), names.rfind("frame\t"));
    desktop.Click(Middle(), 3);
    desktop.WaitUntil("the menu has its name", [&] {
        return Ask("names").find("popup menu\tПравка\nmenu item\tОтменить") < names.size();
    });
}

TEST_F(Accessibility, EveryCommandIsPressed) {
    Put(Path("text.txt"), Iconv("мир", "UTF-8", "CP1251"));
    editor.Open(Path("text.txt"));
    editor.SaveAs(Path("text.txt")); // from then on it can be saved without a dialog
    constexpr std::string_view kBox = "Morvane Quillshift 3.0 Preview";
    constexpr std::string_view kSettings = "Параметры программы";
    PressAll({{"MENU:FILE:OPEN", "window", "Открытие документа"},
              {"MENU:FILE:SAVEAS", "window", "Сохранение документа"},
              {"MENU:FILE:PRINTSETTINGS", "window", kSettings},
              {"MENU:FILE:IMPORT:RTF", "window", "Импорт текста из *.rtf файла"},
              {"MENU:FILE:PRINT", "window", "Печать документа", "Закрыть"},
              {"MENU:FILE:PROPERTIES", "window", "Свойства документа", "Закрыть"},
              {"MENU:FORMAT:ALLTEXTCASE:CASEU", "text", "МИР"},
              {"MENU:FORMAT:ALLTEXTCASE:CASEL", "text", "мир"},
              {"MENU:EDIT:SELECTALL", ""},
              {"MENU:FORMAT:SELTEXTCASE:CASEU", "text", "МИР"},
              {"MENU:FILE:SAVE", ""},
              {"MENU:EDIT:CLEAR", "text", ""},
              {"MENU:FILE:REOPEN", "text", "МИР"},
              {"MENU:EDIT:SELECTALL", ""},
              {"MENU:FORMAT:SELTEXTCASE:CASEL", "text", "мир"},
              {"MENU:EDIT:SELECTALL", ""},
              {"MENU:EDIT:CUT", "text", ""},
              {"MENU:EDIT:PASTE", "text", "мир"},
              {"MENU:EDIT:SELECTALL", ""},
              {"MENU:EDIT:COPY", ""},
              {"MENU:EDIT:DELETE", "text", ""},
              {"MENU:EDIT:UNDO", "text", "мир"},
              {"MENU:EDIT:REDO", "text", ""},
              {"MENU:EDIT:PASTE", "text", "мир"},
              {"MENU:EDIT:CLEAR", "text", ""},
              {"MENU:EDIT:UNDO", "text", "мир"},
              {"MENU:FIND:FIND", "window", "Найти"},
              {"MENU:FIND:FINDNEXT", "window", kBox, "ОК"},
              {"MENU:FIND:REPLACE", "window", "Найти и заменить"},
              {"MENU:FIND:GOTO", "window", "Перейти...", "Escape"},
              {"MENU:VIEW:ONTOP", "tick"},
              {"MENU:VIEW:TOOLBARS:TBSTANDART", "tick"},
              {"MENU:VIEW:TOOLBARS:TBDECODE", "tick"},
              {"MENU:VIEW:TOOLBARS:TBCUSTOMIZE", "window", "Настройка панелей инструментов...", "OK"},
              {"MENU:VIEW:CUSTOMIZE", "window", kSettings},
              {"MENU:INSERT:TIMEANDDATE", "window", "Время и дата", "Закрыть"},
              {"MENU:INSERT:TEXTFILE", "window", "Выберите файл для вставки..."},
              {"MENU:FORMAT:FONT", "window", kSettings},
              {"MENU:FORMAT:INDENT", ""},
              {"MENU:FORMAT:OUTDENT", ""},
              {"MENU:SERVICE:SETTINGS", "window", kSettings},
              {"MENU:SERVICE:LOCKED", "window", kBox, "ОК"},
              {"MENU:DECODE:DECODE", "window", "Перекодирование"},
              {"MENU:HELP:LICENSE", "window", "Лицензионное соглашение", "OK"},
              {"MENU:HELP:AUTHORMAIL", "window", kBox, "ОК"},
              {"MENU:HELP:VISITHOMEPAGE", "window", kBox, "ОК"},
              {"MENU:HELP:ABOUT", "window", "О программе", "Ok"},
              {"MENU:VIEW:FULLSCREEN", "window", "     Полноэкранный режим", "Вернуть обычный режим"},
              {"MENU:FILE:NEW", "text", ""}});
    EXPECT_EQ(Contents(Path("text.txt")), Iconv("МИР\r\n", "UTF-8", "CP1251"));
    PressAll({{"MENU:FILE:EXIT", ""}});
    EXPECT_EQ(editor.WaitForEnd(), 0);
}

TEST_F(Accessibility, NothingButTheLockIsFoundWhileItIsThere) {
    editor.Set(Setting::Password, u"tajna");
    desktop.Type(u"secret");
    editor.Settle();
    PressAll({{"MENU:FIND:FIND", ""}, Press{"MENU:SERVICE:LOCKED", ""}});
    editor.SettleIn(u"Morvane Quillshift 3.0");
    const std::string names = Ask("names");
    EXPECT_NE(names.find("dialog\tMorvane Quillshift 3.0\n"), std::string::npos) << names;
    EXPECT_NE(names.find("push button\tВойти\n"), std::string::npos);
    for (const char* hidden : {"frame\t", "menu", "tool bar", "Найти", "secret", "Текст"})
        EXPECT_EQ(names.find(hidden), std::string::npos) << hidden << " is in\n" << names;
}

// What is told of a text that comes and goes is small, and what is typed is told whole.
TEST_F(Accessibility, ALongTextIsNotSentOverTheBus) {
    const fs::path traffic = Path("traffic");
    const auto listener = reader_.Begin("weigh " + traffic.string());
    desktop.WaitUntil("somebody listens", [&] { return fs::exists(traffic) && fs::file_size(traffic) != 0; });
    Put(Path("long.txt"), std::string(2 << 20, 'q'));
    editor.Open(Path("long.txt"));
    editor.Press("Ctrl+A BackSpace");
    desktop.Type(u"z");
    desktop.WaitUntil("the letter is told",
                      [&] { return Contents(traffic).find("insert") != std::string::npos; });
    EXPECT_LT(fs::file_size(traffic), 128 << 10);
}

// By positions of the text, also where the document has a long line in parts.
TEST_F(Accessibility, WhatIsTypedIsToldWhereItIs) {
    std::string text = "a\r\n" + std::string(45'000, 'q') + "\r\nb";
    Put(Path("long.txt"), text);
    editor.Open(Path("long.txt"));
    const auto listener = reader_.Begin("follow " + Path("told").string());
    const auto expectTold = [&](std::size_t caret) {
        const std::string wanted = text + "|" + std::to_string(caret);
        desktop.WaitUntil("all is told", [&] { return Contents(Path("told")) == wanted; });
    };
    expectTold(0);
    desktop.Press("Ctrl+End Up End");
    desktop.Type(u"x");
    text.insert(text.size() - 3, "x");
    expectTold(text.size() - 3);
    desktop.Press("Return Shift+Left");
    text.insert(text.size() - 3, "\r\n");
    expectTold(text.size() - 5);
    desktop.Type(u"yz");
    text.replace(text.size() - 5, 2, "yz");
    expectTold(text.size() - 3);
    desktop.Press("Ctrl+Z");
    text.erase(text.size() - 4, 1);
    expectTold(text.size() - 3);
}

} // namespace
} // namespace quillshift::e2e
