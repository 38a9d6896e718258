#include "base/GapText.h"
#include "base/TextChange.h"

#include "support/RandomText.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>

namespace quillshift {
namespace {

TEST(GapTextTest, IsATextWhereverItsRoomIs) {
    RandomText random(11);
    for (const std::size_t room : {0U, 3U, 900U, 901U}) {
        std::string bytes;
        while (bytes.size() < 100'000)
            bytes += static_cast<char>('a' + random.Below(26));
        std::u16string plain(bytes.begin(), bytes.end());
        GapText text = room > 3 ? GapText(PlainBytes(bytes), room % 2)
                                : GapText(std::u16string(room, u'?') + plain, room);
        for (int step = 0; step < 3000; ++step) {
            // Not at once behind all of it: what is behind is made of the bytes then.
            const std::size_t end = std::min<std::size_t>(plain.size(), static_cast<std::size_t>(step) * 60);
            const std::size_t from = std::array{std::size_t(0), random.Below(end + 1),
                                                end - std::min(end, random.Below(9))}[random.Below(3)];
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
            const std::size_t far = plain.size() - random.Below(50'000);
            ASSERT_EQ(text.Part(far, 40), plain.substr(far, 40)) << step;
            if (step % 20 == 0 && step > 1000) {
                ASSERT_TRUE(text.All() == plain) << step;
            }
        }
    }
}

TEST(GapTextTest, ReadsItsBytesWhoeverAsksFirst) {
    EXPECT_EQ(GapText(PlainBytes("\xE0\xE1")).Part(1, 1), u"б");
    EXPECT_EQ(GapText(PlainBytes("\xE0\xE1")).All(), u"аб");
}

TEST(GapTextTest, DiffersFromAnotherBetweenWhatTheyShare) {
    RandomText random(12);
    constexpr std::size_t kLengths[] = {0, 1, 511, 512, 513, 1700};
    for (const std::size_t front : kLengths)
        for (const std::size_t back : kLengths) {
            std::u16string shared;
            while (shared.size() < front + back)
                shared += static_cast<char16_t>(u'a' + random.Below(20));
            const std::u16string one = std::u16string(shared).insert(front, u"x");
            const std::u16string other = std::u16string(shared).insert(front, u"yz");
            const TextChange wanted{.place = front, .removed = 1, .added = 2};
            EXPECT_EQ(ChangeBetween(one, other, 0), wanted) << front << ' ' << back;
            EXPECT_EQ(ChangeBetween(GapText(one), GapText(other)), wanted) << front << ' ' << back;
        }
}

} // namespace
} // namespace quillshift
