#include "shell/CommandStates.h"

#include "shell/Catalogue.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <set>
#include <string>

namespace quillshift {
namespace {

using testing::AllOf;
using testing::Contains;
using testing::IsEmpty;
using testing::Not;
using testing::SizeIs;

std::set<std::string> EnabledWith(const CommandInputs& inputs) {
    std::set<std::string> enabled;
    ForEachCommandState(inputs, [&](std::string_view key, bool on) {
        if (on)
            enabled.emplace(key);
    });
    return enabled;
}

TEST(CommandStates, NameCommandsOfTheCatalogueEachOnce) {
    std::set<std::string_view> keys;
    ForEachCommandState({}, [&](std::string_view key, bool) {
        EXPECT_TRUE(keys.insert(key).second) << key;
        EXPECT_TRUE(std::ranges::any_of(Catalogue(), [&](const auto& entry) { return entry.Key == key; }))
            << key;
    });
    EXPECT_EQ(keys.size(), 36U);
}

TEST(CommandStates, FollowTheirInputs) {
    EXPECT_THAT(EnabledWith({}), IsEmpty());
    EXPECT_THAT(EnabledWith({.selection = true}), AllOf(SizeIs(8), Contains("TOOLBAR:CUT")));
    EXPECT_THAT(EnabledWith({.text = true}),
                AllOf(SizeIs(17), Contains("TOOLBAR2:DECODE"), Not(Contains("MENU:EDIT:UNDO"))));
    EXPECT_THAT(EnabledWith({.text = true, .undoSteps = 1}), Not(Contains("MENU:EDIT:UNDO")))
        << "the first entry is the present state";
    EXPECT_THAT(EnabledWith({.text = true, .undoSteps = 2}), Contains("TOOLBAR:UNDO"));
    EXPECT_THAT(EnabledWith({.text = true, .redoSteps = 1}), Contains("MENU:EDIT:REDO"));
    EXPECT_THAT(EnabledWith({.undoSteps = 2, .redoSteps = 1}), IsEmpty())
        << "without a text nothing is undone";
    EXPECT_THAT(EnabledWith({.clipboardText = true}), SizeIs(2));
    EXPECT_THAT(EnabledWith({.recodeUndo = true}), SizeIs(2));
    EXPECT_THAT(EnabledWith({.reopen = true}), SizeIs(2));
    EXPECT_THAT(EnabledWith({.save = true}), testing::ElementsAre("MENU:FILE:SAVE"));
}

} // namespace
} // namespace quillshift
