#include "shell/CommandStates.h"

#include "shell/Catalogue.h"
#include "support/TestProgram.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <set>
#include <string>

namespace quillshift {
namespace {

TEST(CommandStates, NameCommandsOfTheCatalogueEachOnce) {
    std::set<std::string_view> keys;
    ForEachCommandState({}, [&](std::string_view key, bool) {
        EXPECT_TRUE(keys.insert(key).second) << key;
        EXPECT_TRUE(std::ranges::any_of(Catalogue(), [&](const auto& entry) { return entry.Key == key; }))
            << key;
    });
    EXPECT_EQ(keys.size(), 36U);
}

// The keys by what they depend on: a selection, a text, steps to undo and to redo, text on the clipboard, a
// recoding, a file to open again, and the plain save.
TEST(CommandStates, AreRightInEachSituationAfterEachCommand) {
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
            if (window.enabled.at(key))
                letters += letter;
        return letters;
    };
    EXPECT_EQ(enabled(), "");
    text.SetSelText(u"Џ");
    EXPECT_EQ(enabled(), "T") << "the first edit can't be undone";
    text.SetSelText(u"а");
    EXPECT_EQ(enabled(), "TU");
    test.program.Dispatch("MENU:EDIT:SELECTALL");
    EXPECT_EQ(enabled(), "STU");
    test.clipboard.SetText(u"by another program");
    EXPECT_EQ(enabled(), "STUC");
    test.program.Dispatch("MENU:EDIT:DELETE");
    EXPECT_EQ(enabled(), "UC") << "what was deleted is still in reach";
    test.program.Dispatch("MENU:EDIT:UNDO");
    EXPECT_EQ(enabled(), "STURC");
    test.program.Dispatch("MENU:EDIT:REDO");
    EXPECT_EQ(enabled(), "UC");
    test.clipboard.SetText(u"");
    text.SetSelText(u"Џа");
    test.program.Dispatch("MENU:DECODE:DOS:DW");
    EXPECT_EQ(text.Text(), u"Пр");
    EXPECT_EQ(enabled(), "TUD");
    test.fileDialog.chosen.emplace_back(u"/a.txt");
    test.program.Dispatch("MENU:FILE:SAVEAS");
    EXPECT_EQ(enabled(), "TUDV");
    test.OpenFile(u"/b.txt", "b");
    EXPECT_EQ(enabled(), "TUDOV");
    test.program.Dispatch("MENU:EDIT:CLEAR");
    EXPECT_EQ(enabled(), "UDOV");
}

} // namespace
} // namespace quillshift
