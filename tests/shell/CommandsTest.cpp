#include "shell/Commands.h"
#include "base/Utf8.h"
#include "harness/TemporaryFolder.h"
#include "platform/Keys.h"
#include "shell/Catalogue.h"
#include "support/TestProgram.h"
#include "support/TestsFolder.h"

namespace quillshift {
namespace {

// The stored list: key, kind, caption, picture, tip, shortcut, what the command needs, how it is
// called among the items to choose; a tab between them.
using Line = std::array<std::string, 8>;

std::vector<Line> StoredList() {
    std::istringstream file(Contents(TestsFolder() / "shell/stored/catalogue.txt"));
    std::vector<Line> lines;
    for (std::string text; std::getline(file, text);) {
        std::istringstream fields(text);
        for (std::string& field : lines.emplace_back())
            std::getline(fields, field, '\t');
    }
    return lines;
}

std::string Kind(const cButton& button, ButtonStyle style) {
    return style == ButtonStyle::Separator ? "separator"
           : style == ButtonStyle::Check   ? "check"
           : style == ButtonStyle::Panel   ? "panel " + std::to_string(button.PanelWidth())
           : button.ShowCaptionInToolbar() ? "caption shown"
                                           : "normal";
}

// The files that the load read for a bar's small pictures, in order.
std::vector<std::string> PicturesIn(const FakeFiles& files, std::string_view key) {
    const std::u16string folder =
        key.starts_with("MENU") ? u"/Data/icons/menu/" : u"/Data/icons/toolbars/small/";
    std::vector<std::string> pictures;
    for (const std::u16string& path : files.read)
        if (const auto at = path.find(folder); at != std::u16string::npos)
            pictures.push_back(ToUtf8(path.substr(at + folder.size())));
    // Both toolbars take theirs from one folder, the recoding toolbar behind the other.
    if (key.starts_with("TOOLBAR2"))
        pictures.erase(pictures.begin(), pictures.begin() + 28);
    return pictures;
}

TEST(Catalogue, StandsOnTheBarsAsTheStoredListTells) {
    TestProgram test;
    test.Start();
    const auto lines = StoredList();
    ASSERT_EQ(lines.size(), Catalogue().size());
    std::map<std::string, std::vector<std::string>> bars;
    for (const auto& [key, kind, caption, picture, tip, shortcut, need, item] : lines) {
        const cButton button = test.Button(key);
        const cButtonInt& record = *test.toolkit.Model().FindButton(key);
        EXPECT_EQ(Kind(button, record.Style), kind) << key;
        EXPECT_EQ(ToUtf8(button.Caption()), caption) << key;
        EXPECT_EQ(ToUtf8(button.ToolTip()), tip) << key;
        EXPECT_EQ(ToUtf8(record.ShortcutText()), shortcut) << key;
        const auto pictures = PicturesIn(test.files, key);
        EXPECT_EQ(button.IconIndex() < 0 ? "" : pictures.at(std::size_t(button.IconIndex())), picture) << key;
        bars[key.substr(0, key.rfind(':'))].push_back(key);
    }
    for (const ItemBar bar : {ItemBar::Standart, ItemBar::Decode}) {
        auto line = std::ranges::find(lines, bar == ItemBar::Standart ? "TOOLBAR:SEP1" : "TOOLBAR2:SEP1",
                                      [](const Line& each) { return each[0]; });
        const auto items = test.program.Parts().toolBars.Items(bar);
        ASSERT_EQ(items.size(), bar == ItemBar::Standart ? 40u : 8u);
        for (const ToolBarItem& item : items)
            EXPECT_EQ(ToUtf8(item.text), (*line++)[7]);
    }
    // Each key with others below it has a bar of its own, with these in the order of the list.
    const cCommandBars shown = test.program.Parts().bars.Bar(0).CommandBars();
    for (const auto& [key, items] : bars) {
        const auto buttons = shown.Item(key).Buttons();
        ASSERT_EQ(std::size_t(buttons.count()), items.size()) << key;
        for (std::size_t i = 0; i < items.size(); ++i)
            EXPECT_EQ(buttons.Item(int(i) + 1).Key(), items[i]);
        if (key.find(':') != std::string::npos) {
            EXPECT_EQ(test.Button(key).Bar()->Key(), key);
        }
    }
}

TEST(Catalogue, EnablesEachCommandByWhatTheStoredListSaysItNeeds) {
    using Case = std::pair<std::string, CommandInputs>;
    for (const Line& line : StoredList()) {
        const Command command = FindEntry(line[0])->action.command;
        const std::string& need = line[6];
        for (const auto& [given, inputs] :
             {Case{"", {}}, Case{"", {.undoSteps = 1}}, Case{"selection", {.selection = true}},
              Case{"text", {.text = true}}, Case{"clipboard", {.clipboardText = true}},
              Case{"undo", {.undoSteps = 2}}, Case{"redo", {.redoSteps = 1}},
              Case{"recoding", {.recodeUndo = true}}, Case{"reopen", {.reopen = true}},
              Case{"save", {.save = true}}})
            EXPECT_EQ(IsEnabled(command, inputs), need.empty() || need == given) << line[0] << " " << given;
    }
}

const std::u16string kBefore = u"\u040F\u0430 Bb!"; // Пр as DOS letters are read, and Bb, which is selected

// A program with a document, something to undo and to redo, to bring back and to open again.
struct Situation : TestProgram {
    Situation() {
        Set(Setting::DefaultCode, u"0");
        Start();
        OpenFile(u"/d/opened.txt", "from the disk");
        window.document.SetText(kBefore + u"1");
        window.document.Select(kBefore.size(), 1);
        window.document.SetSelText(u"");
        window.document.SetSelText(u"3");
        program.Run("MENU:EDIT:UNDO");
        program.Parts().recoding.SavedText = u"saved";
        window.document.Select(3, 2);
        clipboard.SetText(u"copied");
        fileDialog.chosen = {u"/d/next.txt"};
        files.files[u"/d/next.txt"] = "next";
        messageBox.answers = {BoxAnswer::No};
        timers.Tick();
        messageBox.shown.clear();
        shell.opened.clear();
    }

    // What is different from before, in words.
    std::string After(std::string_view key) {
        program.Run(key);
        std::string what;
        if (window.document.Text() != kBefore)
            what += "text " + ToUtf8(window.document.Text()) + "; ";
        if (window.document.SelLength() != 2 && window.document.Text() == kBefore)
            what += "selected " + std::to_string(window.document.SelLength()) + "; ";
        if (*clipboard.text != u"copied")
            what += "clipboard " + ToUtf8(*clipboard.text) + "; ";
        if (files.files[u"/d/next.txt"] != "next")
            what += "written; ";
        for (const auto& box : messageBox.shown)
            what += "box " + ToUtf8(box.text) + "; ";
        for (const auto& [kind, argument] : dialogs->shown)
            what += kind == DialogKind::Decoding ? "progress; " : "dialog; ";
        if (!window.document.printed.empty())
            what += "prints; ";
        for (const std::u16string& link : shell.opened)
            what += "opens " + ToUtf8(link).substr(0, 8) + "; ";
        if (window.document.SelIndent() != Twips{})
            what += "indent; ";
        if (window.closeRequests > 0)
            what += "close; ";
        if (program.Parts().recoding.StopRequested)
            what += "stop; ";
        return what;
    }
};

TEST(Commands, EachPlaceDoesWhatItSays) {
    const std::tuple<const char*, const char*, const char*> cases[] = {
        {"MENU:FILE:NEW", "TOOLBAR:NEW", "text ; "},
        {"MENU:FILE:OPEN", "TOOLBAR:OPEN", "text next; "},
        {"MENU:FILE:REOPEN", "TOOLBAR:REOPEN", "text from the disk; "},
        {"MENU:FILE:SAVEAS", "TOOLBAR:SAVE", "written; "},
        {"MENU:FILE:IMPORT:RTF", "", "text Џа nextBb!; clipboard next; "},
        {"MENU:FILE:EXIT", "", "close; "},
        {"MENU:EDIT:UNDO", "TOOLBAR:UNDO", "text Џа Bb!1; "},
        {"MENU:EDIT:REDO", "TOOLBAR:REDO", "text Џа Bb!3; "},
        {"MENU:EDIT:CUT", "TOOLBAR:CUT", "text Џа !; clipboard Bb; "},
        {"MENU:EDIT:COPY", "TOOLBAR:COPY", "clipboard Bb; "},
        {"MENU:EDIT:PASTE", "TOOLBAR:PASTE", "text Џа copiedBb!; "},
        {"MENU:EDIT:DELETE", "TOOLBAR:DELETE", "text Џа !; "},
        {"MENU:EDIT:SELECTALL", "", "selected 6; "},
        {"MENU:EDIT:CLEAR", "TOOLBAR:CLEAR", "text ; "},
        {"MENU:FILE:PRINT", "TOOLBAR:PRINT", "prints; "},
        {"MENU:FILE:PROPERTIES", "TOOLBAR:PROPERTIES", "dialog; "},
        {"MENU:INSERT:TIMEANDDATE", "TOOLBAR:TIMEANDDATE", "dialog; "},
        {"MENU:INSERT:TEXTFILE", "TOOLBAR:TEXTFILE", "text Џа next!; clipboard next; "},
        {"MENU:FORMAT:ALLTEXTCASE:CASEU", "", "text ЏА BB!; "},
        {"MENU:FORMAT:ALLTEXTCASE:CASEL", "", "text џа bb!; "},
        {"MENU:FORMAT:SELTEXTCASE:CASEU", "", "text Џа BB!; "},
        {"MENU:FORMAT:SELTEXTCASE:CASEL", "", "text Џа bb!; "},
        {"MENU:FORMAT:INDENT", "TOOLBAR:INDENT", "indent; "},
        {"MENU:FORMAT:OUTDENT", "TOOLBAR:OUTDENT", ""},
        {"MENU:DECODE:UNDO", "TOOLBAR2:UNDO", "text saved; "},
        {"MENU:DECODE:DECODE", "", "dialog; "},
        {"MENU:DECODE:WIZARD", "TOOLBAR:WIZARD", "box Мастер перекодирования не найден в папке программы.; "},
        {"MENU:DECODE:DOS:DW", "TOOLBAR2:START", "text Пр Bb!; progress; "},
        {"TOOLBAR2:STOP", "", "stop; "},
        {"MENU:HELP:AUTHORMAIL", "", "opens mailto:a; "},
        {"MENU:HELP:VISITHOMEPAGE", "", "opens https://; "},
        {"MENU:FILE", "MENU:NOWHERE", ""},
    };
    for (const auto& [menu, toolbar, after] : cases)
        for (const std::string_view key : {menu, toolbar})
            if (!key.empty()) {
                EXPECT_EQ(Situation().After(key), after) << key;
            }
}

// Each direction's own pair, told by the caption of its entry.
TEST(Commands, EachDirectionRecodesAsItsCaptionSays) {
    int directions = 0;
    for (const CatalogueEntry& entry : Catalogue()) {
        if (entry.Caption.find(u" -> ") == std::u16string_view::npos)
            continue;
        ++directions;
        Situation situation;
        situation.program.Run(entry.Key);
        EXPECT_EQ(situation.dialogs->decoding->code, entry.Caption) << entry.Key;
    }
    EXPECT_EQ(directions, 20);
}

TEST(Commands, AMenusTickIsStoredAndActedOn) {
    for (const bool on : {true, false}) {
        Situation situation;
        const std::tuple<const char*, Setting, bool> ticks[] = {
            {"MENU:VIEW:ONTOP", Setting::TopMost, on},
            {"MENU:VIEW:TOOLBARS:TBSTANDART", Setting::ToolBarStandart, on},
            {"MENU:VIEW:TOOLBARS:TBDECODE", Setting::ToolBarDecode, !on}};
        for (const auto& [key, setting, ticked] : ticks) {
            situation.Button(key).SetChecked(ticked);
            situation.program.Run(key);
            EXPECT_EQ(situation.settings.Text(setting), ticked ? u"1" : u"0") << key;
        }
        EXPECT_EQ(situation.window.topMost, on);
        EXPECT_EQ(situation.window.barVisible.at(1), on);
        EXPECT_EQ(situation.window.barVisible.at(2), !on);
        const std::size_t before = situation.window.layouts.size();
        situation.timers.Tick();
        EXPECT_GT(situation.window.layouts.size(), before) << "the layout follows";
    }
}

TEST(Commands, AnEmptyDocumentOpensNoRecodingDialog) {
    TestProgram test;
    test.Start();
    test.program.Run("MENU:DECODE:DECODE");
    EXPECT_EQ(test.LastBox(), u"Документ не содержит текста!");
    EXPECT_TRUE(test.dialogs->shown.empty());
}

// The states as they are seen on the bars, in each situation after each command.
TEST(Commands, TheStatesFollowWhatHappens) {
    TestProgram test;
    FakeMainView& window = test.Start();
    FakeSurface& text = window.document;
    const auto enabled = [&] {
        test.timers.Tick();
        std::string letters;
        constexpr const char* kKeys[] = {"TOOLBAR:CUT",    "TOOLBAR:CLEAR", "TOOLBAR:UNDO",
                                         "TOOLBAR:REDO",   "TOOLBAR:PASTE", "TOOLBAR2:UNDO",
                                         "TOOLBAR:REOPEN", "MENU:FILE:SAVE"};
        for (std::size_t i = 0; i < std::size(kKeys); ++i)
            if (test.Button(kKeys[i]).Enabled())
                letters += "STURCDOV"[i];
        EXPECT_EQ(window.directionsEnabled, letters.find('T') != std::string::npos);
        return letters;
    };
    EXPECT_EQ(enabled(), "");
    text.SetSelText(u"Џ");
    EXPECT_EQ(enabled(), "T") << "the first edit can't be undone";
    text.SetSelText(u"а");
    EXPECT_EQ(enabled(), "TU");
    test.program.Run("MENU:EDIT:SELECTALL");
    EXPECT_EQ(enabled(), "STU");
    test.clipboard.SetText(u"by another program");
    EXPECT_EQ(enabled(), "STUC");
    test.program.Run("MENU:EDIT:DELETE");
    EXPECT_EQ(enabled(), "UC") << "what was cleared stays in reach";
    test.program.Run("MENU:EDIT:UNDO");
    EXPECT_EQ(enabled(), "STURC");
    test.program.Run("MENU:EDIT:REDO");
    EXPECT_EQ(enabled(), "UC");
    test.clipboard.SetText(u"");
    text.SetSelText(u"Џа");
    test.program.Run("MENU:DECODE:DOS:DW");
    EXPECT_EQ(text.Text(), u"Пр");
    text.SetSelLength(0);
    EXPECT_EQ(enabled(), "TUD");
    test.fileDialog.chosen.emplace_back(u"/a.txt");
    test.program.Run("MENU:FILE:SAVEAS");
    EXPECT_EQ(enabled(), "TUDV");
    test.OpenFile(u"/b.txt", "b");
    EXPECT_EQ(enabled(), "TUDOV");
    test.program.Run("MENU:EDIT:CLEAR");
    EXPECT_EQ(enabled(), "UDOV");
    text.SetSelText(u"zz");
    text.Select(0, 2);
    test.system.input->KeyboardFilter({.key = 'X', .modifiers = modifier::kCtrl});
    EXPECT_EQ(text.Text(), u"") << "a shortcut in the same turn finds the states as they are";
}

} // namespace
} // namespace quillshift
