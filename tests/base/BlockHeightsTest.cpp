#include "base/BlockHeights.h"

#include "support/RandomText.h"

#include <gtest/gtest.h>

namespace quillshift {
namespace {

// Against a plain row, through enough edits to part leaves and to empty them.
TEST(BlockHeightsTest, IsARowOfBlocksThatKnowsItsSums) {
    RandomText random(7);
    BlockHeights heights;
    std::vector<BlockHeights::Block> row;
    const auto some = [&](std::size_t count) {
        std::vector<BlockHeights::Block> blocks(count);
        for (BlockHeights::Block& block : blocks)
            block = {static_cast<std::int32_t>(1 + random.Below(9)),
                     static_cast<std::int32_t>(random.Below(3))};
        return blocks;
    };
    const auto replace = [&](std::size_t first, std::size_t count,
                             const std::vector<BlockHeights::Block>& by) {
        heights.Replace(first, count, by);
        const auto at = row.erase(row.begin() + static_cast<std::ptrdiff_t>(first),
                                  row.begin() + static_cast<std::ptrdiff_t>(first + count));
        row.insert(at, by.begin(), by.end());
    };
    for (const std::size_t most : {3U, 700U, 3000U})
        for (int step = 0; step < 60; ++step) {
            const std::size_t first = random.Below(row.size() + 1);
            const std::size_t count = random.Below(std::min<std::size_t>(row.size() - first, most) + 1);
            replace(first, count, some(1 + random.Below(most)));
            const std::size_t set = random.Below(row.size());
            heights.Set(set, row[set] = some(1).front());
            std::int64_t above = 0;
            ASSERT_EQ(heights.Count(), row.size());
            for (std::size_t i = 0; i < row.size(); above += row[i++].height)
                if (i < 2 || i + 2 > row.size() || random.Below(50) == 0) {
                    ASSERT_EQ(heights.At(i), row[i]) << i;
                    ASSERT_EQ(heights.Above(i), above) << i;
                    ASSERT_EQ(heights.BlockAt(above), i);
                    ASSERT_EQ(heights.BlockAt(above + row[i].height - 1), i);
                }
            ASSERT_EQ(heights.Height(), above);
            ASSERT_EQ(heights.Above(row.size()), above);
            ASSERT_EQ(heights.BlockAt(-1), 0U);
            ASSERT_EQ(heights.BlockAt(above), row.size() - 1);
        }
    replace(0, row.size(), {});
    EXPECT_EQ(heights.Count(), 0U);
    EXPECT_EQ(heights.Height(), 0);
    replace(0, 0, some(2));
    EXPECT_EQ(heights.At(1), row[1]);
}

} // namespace
} // namespace quillshift
