#include "shell/Catalogue.h"

#include "base/Utf8.h"
#include "platform/Keys.h"
#include "support/TestProgram.h"
#include "support/TestsFolder.h"

#include <gtest/gtest.h>

#include <array>
#include <fstream>
#include <sstream>

namespace quillshift {
namespace {

// The stored list: key, kind, caption, picture, tip, shortcut, what the command needs, how it is
// called among the items to choose; a tab between them.
using Line = std::array<std::string, 8>;

std::vector<Line> StoredList() {
    std::ifstream file(TestsFolder() / "shell/stored/catalogue.txt");
    std::vector<Line> lines;
    for (std::string text; std::getline(file, text);) {
        std::istringstream fields(text);
        for (std::string& field : lines.emplace_back())
            std::getline(fields, field, '\t');
    }
    return lines;
}

std::string Kind(const cButton& button, ButtonStyle style) {
    switch (style) {
    case ButtonStyle::Separator:
        return "separator";
    case ButtonStyle::Check:
        return "check";
    case ButtonStyle::Panel:
        return "panel " + std::to_string(button.PanelWidth());
    default:
        return button.ShowCaptionInToolbar() ? "caption shown" : "normal";
    }
}

std::string ShortcutOf(const cButton& button) {
    constexpr int kF1 = 0x70;
    const int key = button.ShortcutKey();
    if (key == 0)
        return "";
    const std::string name = key >= kF1 ? "F" + std::to_string(key - kF1 + 1) : std::string(1, char(key));
    return std::string((button.ShortcutModifiers() & modifier::kCtrl) != 0 ? "Ctrl+" : "") +
           ((button.ShortcutModifiers() & modifier::kShift) != 0 ? "Shift+" : "") + name;
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
        EXPECT_EQ(Kind(button, test.toolkit.Model().FindButton(key)->Style), kind) << key;
        EXPECT_EQ(ToUtf8(button.Caption()), caption) << key;
        EXPECT_EQ(ToUtf8(button.ToolTip()), tip) << key;
        EXPECT_EQ(ShortcutOf(button), shortcut) << key;
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
    const std::pair<std::string, CommandInputs> cases[] = {{"", {}},
                                                           {"", {.undoSteps = 1}},
                                                           {"selection", {.selection = true}},
                                                           {"text", {.text = true}},
                                                           {"clipboard", {.clipboardText = true}},
                                                           {"undo", {.undoSteps = 2}},
                                                           {"redo", {.redoSteps = 1}},
                                                           {"recoding", {.recodeUndo = true}},
                                                           {"reopen", {.reopen = true}},
                                                           {"save", {.save = true}}};
    for (const Line& line : StoredList()) {
        const Command command = FindEntry(line[0])->action.command;
        const std::string& need = line[6];
        for (const auto& [given, inputs] : cases)
            EXPECT_EQ(IsEnabled(command, inputs), need.empty() || need == given) << line[0] << " " << given;
    }
}

} // namespace
} // namespace quillshift
