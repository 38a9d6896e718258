#include "shell/Catalogue.h"

#include <gtest/gtest.h>

#include <set>

namespace quillshift {
namespace {

TEST(Catalogue, HasNoEntryTwiceNoShortcutTwiceAndNoneWithoutItsMenu) {
    std::set<std::string_view> keys{"MENU", "TOOLBAR", "TOOLBAR2"};
    std::set<std::pair<int, int>> shortcuts;
    for (const CatalogueEntry& entry : Catalogue()) {
        EXPECT_TRUE(keys.contains(entry.Key.substr(0, entry.Key.rfind(':')))) << entry.Key;
        EXPECT_TRUE(keys.insert(entry.Key).second) << entry.Key;
        if (entry.ShortcutKey != 0) {
            EXPECT_TRUE(shortcuts.emplace(entry.ShortcutKey, entry.ShortcutModifiers).second) << entry.Key;
        }
    }
    EXPECT_EQ(keys.size(), 153U);
}

TEST(Catalogue, TakesEachPictureFromTheListOfItsBar) {
    const auto menu = IconsOf(CatalogueIcons::Menu).icons;
    const auto toolbar = IconsOf(CatalogueIcons::ToolbarLarge).icons;
    const auto decode = IconsOf(CatalogueIcons::DecodeSmall).icons;
    EXPECT_EQ(menu.size(), 33U);
    EXPECT_EQ(toolbar.size(), 28U);
    std::size_t pictured = 0;
    for (const CatalogueEntry& entry : Catalogue()) {
        if (entry.IconIndex < 0)
            continue;
        ++pictured;
        const auto& list = entry.Key.starts_with("MENU:")      ? menu
                           : entry.Key.starts_with("TOOLBAR:") ? toolbar
                                                               : decode;
        ASSERT_LT(static_cast<std::size_t>(entry.IconIndex), list.size()) << entry.Key;
        if (entry.Key.starts_with("TOOLBAR:")) { // where the names are those of the pictures
            EXPECT_EQ(SplitKey(entry.Key)[1], list[static_cast<std::size_t>(entry.IconIndex)].key);
        }
    }
    EXPECT_EQ(pictured, 33U + 28U + 3U) << "each picture is used once";
}

} // namespace
} // namespace quillshift
