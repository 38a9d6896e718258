#include "base/GapText.h"

#include "support/RandomText.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>

namespace quillshift {
namespace {

TEST(GapTextTest, IsATextWhereverItsRoomIs) {
    RandomText random(11);
    for (const std::size_t room : {0U, 3U, 900U}) {
        std::u16string plain(100'000, u'x');
        GapText text = room > 3 ? GapText(std::string(plain.size(), 'x'))
                                : GapText(std::u16string(room, u'?') + plain, room);
        for (int step = 0; step < 3000; ++step) {
            const std::size_t from = std::array{std::size_t(0), random.Below(plain.size() + 1),
                                                plain.size() - random.Below(9)}[random.Below(3)];
            const std::size_t length = random.Below(
                std::min<std::size_t>(plain.size() - from, random.Below(90) == 0 ? 9999 : 5) + 1);
            const std::u16string by =
                random.Below(50) == 0 ? std::u16string(random.Below(20'000), u'y') : random.Piece();
            plain.replace(from, length, by);
            text.Replace(from, length, by);
            ASSERT_EQ(text.Length(), plain.size()) << step;
            const std::size_t at = std::min(from - std::min<std::size_t>(from, 3), plain.size() - 9);
            ASSERT_EQ(text.Part(at, 40), plain.substr(at, 40)) << step;
            if (step % 3 == 0) {
                ASSERT_EQ(text.View(at, 40), plain.substr(at, 40)) << step;
            }
            if (step % 20 == 0) {
                ASSERT_TRUE(text.All() == plain) << step;
            }
        }
    }
}

TEST(GapTextTest, ReadsItsBytesWhoeverAsksFirst) {
    EXPECT_EQ(GapText(std::string("\xE0\xE1")).Part(1, 1), u"б");
    EXPECT_EQ(GapText(std::string("\xE0\xE1")).All(), u"аб");
}

} // namespace
} // namespace quillshift
