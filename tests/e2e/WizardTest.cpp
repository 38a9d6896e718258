#include "e2e/EditorTest.h"
#include "e2e/ScreenReader.h"

#include "base/Texts.h"

namespace quillshift::e2e {
namespace {

constexpr const char16_t* kWizard = u"Мастер перекодирования";
constexpr const char* kText = "Старая мельница стоит у самой воды, ещё и мелет.";

// As one that was written in KOI8-R and read in another set.
std::string Garbled(const std::string& text, const char* readAs) {
    return Iconv(Iconv(text, "UTF-8", "KOI8-R"), readAs, "UTF-8");
}

// The editor watches the clipboard and re-codes what comes there.
struct WizardBesideTheEditor : EditorTest {
    WizardBesideTheEditor() {
        editor.Set(Setting::SaveChange, u"0")
            .Set(Setting::ClipboardDetect, u"1")
            .Set(Setting::DecodeClipboard, u"1")
            .Start();
    }
    void Copy(const std::string& text) {
        StartCopying(text, {"-silent", "-t", "UTF8_STRING"}).WaitForEnd();
        WaitUntilSeen(text);
    }
};

TEST_F(WizardBesideTheEditor, ARepairedTextIsNotReCodedOnceMore) {
    Copy(Garbled(kText, "CP1251"));
    desktop.Press("Ctrl+w");
    desktop.WaitForWindow(kWizard);
    desktop.Press("Ctrl+v Return");
    WaitUntilSeen(kText);
    desktop.Press("Escape");
    desktop.WaitUntilGone(kWizard);
    editor.Settle();
    EXPECT_EQ(Saved(), Bytes(kText));
    Copy(kText + std::string("!"));
    EXPECT_NE(Saved(), Iconv(kText, "UTF-8", "CP1251") + "!\r\n");
}

// The window by itself, by the keyboard alone, heard by a screen reader.
struct Wizard : testing::Test {
    Desktop desktop;
    TemporaryFolder home;
    ScreenReader reader{desktop, home.Path()};
    std::filesystem::path letters = home / "letters";
    std::unique_ptr<Process> program;

    void SetUp() override {
        std::filesystem::create_directory(letters);
        Environment all = reader.Needs();
        all.merge(desktop.ProgramEnvironment(home.Path()));
        program = std::make_unique<Process>(
            std::filesystem::path(QUILLSHIFT_PROGRAM).replace_filename("Wizard.exe"),
            std::vector<std::string>{}, all);
        desktop.UseLayout(1);
        Settle();
    }
    void Settle() {
        desktop.WaitForWindow(kWizard);
        desktop.WaitUntilQuiet(*program);
    }
    void Press(const std::vector<const char*>& chords) {
        for (const char* chord : chords) {
            desktop.Press(chord);
            desktop.WaitUntilQuiet(*program);
        }
    }
    void WaitUntilItSays(const std::string& words) {
        desktop.WaitUntil("it says " + words, [&] { return Names().find(words) != std::string::npos; });
    }
    std::string Names() const { return reader.Ask("names quillshift-rescue"); }
};

TEST_F(Wizard, RescuesAFolderAndBringsItBack) {
    const std::map<std::string, std::string> garbled = {{"a.txt", Iconv(kText, "UTF-8", "KOI8-R")},
                                                        {"b.txt", Garbled(kText, "CP866")},
                                                        {"c.txt", kText},
                                                        {"d.txt", Iconv("мир", "UTF-8", "CP866")},
                                                        {"e.txt", Iconv("лес", "UTF-8", "CP866")}};
    for (const auto& [name, bytes] : garbled)
        Put(letters / name, bytes);
    Press({"Alt+g"});
    desktop.WaitForWindow(u"Папка для исправления");
    desktop.WaitUntilQuiet(*program);
    desktop.Type(u"letters");
    desktop.UseLayout(1);
    Press({"Return"});
    WaitUntilItSays("В списке: 5, можно исправить: 2, сомнительных: 2.");
    const std::string names = Names();
    for (const char* control :
         {"push button\tФайлы...\n", "push button\tПапка...\n", "push button\tВставить текст\n",
          "push button\tОчистить список\n", "push button\tИсправить все надёжные\n",
          "push button\tВернуть как было\n", "push button\tЗакрыть\n", "radio button\tKOI8-R\n",
          "radio button\tОставить как есть\n", "tree\tФайлы\n", "label\tЗаписывать файлы в набор:\n"})
        EXPECT_NE(names.find(control), std::string::npos) << control << " is not in\n" << names;
    EXPECT_EQ(reader.Ask("nameless quillshift-rescue"), "");

    Press({"Return"});
    WaitUntilItSays("Исправлено: 2 файла. Отчёт: ");
    for (const auto& [name, bytes] : garbled)
        EXPECT_EQ(Contents(letters / name), name < "c" ? kText : bytes) << name;
    Settle();
    Press({"Down", "Down", "Down", "Tab", "space", "Alt+n"});
    WaitUntilItSays("e.txt\ntable cell\tDOS 866\ntable cell\tвыбрано вручную\n");
    Press({"Return"});
    WaitUntilItSays("Исправлено: 2 файла. Отчёт: ");
    EXPECT_EQ(Contents(letters / "d.txt"), "мир");
    EXPECT_EQ(Contents(letters / "e.txt"), "лес");

    for (const char* last : {"e.txt", "b.txt"}) { // of the two runs, the later one first
        Settle();
        Press({"Alt+comma"});
        desktop.WaitForWindow(kProgramTitle);
        Press({"Return"});
        WaitUntilItSays("Возвращено: 2 файла.");
        desktop.WaitUntil("the file is back", [&] { return Contents(letters / last) == garbled.at(last); });
    }
    for (const auto& [name, bytes] : garbled)
        EXPECT_EQ(Contents(letters / name), bytes) << name;
    desktop.Press("Escape");
    desktop.WaitUntil("the program ends", [this] { return program->ExitCode().has_value(); });
    EXPECT_EQ(program->ExitCode(), 0);
}

} // namespace
} // namespace quillshift::e2e
