#include "shell/Commands.h"

#include "base/Utf8.h"
#include "platform/Keys.h"
#include "shell/Catalogue.h"
#include "support/TestProgram.h"

#include <gtest/gtest.h>

#include <string>
#include <tuple>

namespace quillshift {
namespace {

const std::u16string kBefore = u"\u040F\u0430 Bb!"; // Пр as DOS letters are read, and Bb, which is selected

// A program with a document, something to undo and to redo, to bring back and to open again.
struct Situation : TestProgram {
    Situation() {
        Set(Setting::DefaultCode, u"0");
        Start();
        OpenFile(u"/d/opened.txt", "from the disk");
        window.document.SetText(kBefore + u"1");
        window.document.SetSelStart(kBefore.size());
        window.document.SetSelLength(1);
        window.document.SetSelText(u"");
        window.document.SetSelText(u"3");
        program.Run("MENU:EDIT:UNDO");
        program.Parts().recoding.SavedText = u"saved";
        window.document.SetSelStart(3);
        window.document.SetSelLength(2);
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
    TextSurface& text = window.document;
    const auto enabled = [&] {
        test.timers.Tick();
        std::string letters;
        for (const auto& [letter, key] :
             std::initializer_list<std::pair<char, const char*>>{{'S', "TOOLBAR:CUT"},
                                                                 {'T', "TOOLBAR:CLEAR"},
                                                                 {'U', "TOOLBAR:UNDO"},
                                                                 {'R', "TOOLBAR:REDO"},
                                                                 {'C', "TOOLBAR:PASTE"},
                                                                 {'D', "TOOLBAR2:UNDO"},
                                                                 {'O', "TOOLBAR:REOPEN"},
                                                                 {'V', "MENU:FILE:SAVE"}})
            if (test.Button(key).Enabled())
                letters += letter;
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
    text.SetSelStart(0);
    text.SetSelLength(2);
    test.system.input->KeyboardFilter({.key = 'X', .modifiers = modifier::kCtrl});
    EXPECT_EQ(text.Text(), u"") << "a shortcut in the same turn finds the states as they are";
}

} // namespace
} // namespace quillshift
