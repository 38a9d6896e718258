#include "commandbar/Tracking.h"
#include "support/TestBar.h"

#include <gmock/gmock.h>

namespace quillshift {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::Optional;

// A toolbar of items of 30 pixels: plain, disabled, separator, split, plain.
class Tracking : public testing::Test {
protected:
    Tracking() {
        bar.Icon();
        bar.Icon().Enabled = false;
        bar.Separator();
        bar.Icon().Style = ButtonStyle::Split;
        bar.Icon();
        for (int i = 0; i < 5; ++i)
            items.push_back({.Left = 30 * i, .Top = 0, .Right = 30 * i + 30, .Bottom = 24});
        tracked.buttons = bar.Buttons();
    }
    static Point Over(int index, int x = 10) { return {30 * index + x, 12}; }
    // The flags of an item: over, down, and the same for the arrow.
    std::string Flags(std::size_t index) const {
        std::string flags;
        flags += items[index].MouseOver ? "o" : "";
        flags += items[index].MouseDown ? "d" : "";
        flags += items[index].MouseOverSplit ? "O" : "";
        flags += items[index].MouseDownSplit ? "D" : "";
        return flags;
    }

    TestBar bar;
    std::vector<cDisplayButtonInfo> items;
    TrackedBar tracked;
};

TEST_F(Tracking, BothEndsBelongToAnItemAndTheFirstHitWins) {
    EXPECT_THAT(HitTest(items, {0, 0}), Optional(0U));
    EXPECT_THAT(HitTest(items, {30, 24}), Optional(0U));
    EXPECT_THAT(HitTest(items, {31, 24}), Optional(1U));
    EXPECT_THAT(HitTest(items, {150, 24}), Optional(4U));
    EXPECT_EQ(HitTest(items, {151, 0}), std::nullopt);
    EXPECT_EQ(HitTest(items, {0, 25}), std::nullopt);
    EXPECT_EQ(HitTest(std::vector{kUnplacedItem}, {0, 0}), std::nullopt);
}

TEST_F(Tracking, TheArrowIsTheLastPartOfASplitItem) {
    const auto over = [&](std::size_t index, int x, bool rightToLeft) {
        return IsOverArrow(bar[index], items[index], items[index].Left + x, rightToLeft);
    };
    EXPECT_FALSE(over(3, 19, false));
    EXPECT_TRUE(over(3, 20, false));
    EXPECT_TRUE(over(3, 10, true));
    EXPECT_FALSE(over(3, 11, true));
    EXPECT_FALSE(over(0, 29, false));
}

TEST_F(Tracking, OnlyASelectableItemBecomesHotAndOnlyChangesRepaint) {
    Tracked step = TrackMove(items, tracked, Over(0));
    EXPECT_THAT(step.changed, ElementsAre(0U));
    EXPECT_TRUE(step.isNew);
    step = TrackMove(items, tracked, Over(0, 11));
    EXPECT_THAT(step.changed, IsEmpty());
    EXPECT_FALSE(step.isNew);
    step = TrackMove(items, tracked, Over(3));
    EXPECT_THAT(step.changed, ElementsAre(0U, 3U));
    EXPECT_TRUE(step.isNew);
    step = TrackMove(items, tracked, Over(3, 25));
    EXPECT_EQ(Flags(3), "O");
    EXPECT_FALSE(step.isNew) << "the arrow is part of the same item";
    step = TrackMove(items, tracked, Over(1));
    EXPECT_THAT(step.changed, ElementsAre(3U));
    EXPECT_THAT(step.hit, Optional(1U));
    EXPECT_EQ(step.hot, std::nullopt);
}

TEST_F(Tracking, AnItemThatItsOwnPressDisablesIsNotClicked) {
    TrackPress(items, tracked, Over(0));
    bar[0].Enabled = false;
    EXPECT_EQ(TrackRelease(items, tracked, Over(0)).clicked, std::nullopt);
    EXPECT_EQ(Flags(0), "");
    TrackPress(items, tracked, Over(3, 25));
    EXPECT_EQ(Flags(3), "OD");
    EXPECT_EQ(TrackRelease(items, tracked, Over(3, 25)).clicked, std::nullopt);
}

} // namespace
} // namespace quillshift
