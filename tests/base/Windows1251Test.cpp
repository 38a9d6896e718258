#include "base/Windows1251.h"
#include "base/Utf8.h"
#include "harness/Iconv.h"

#include <gtest/gtest.h>

namespace quillshift {
namespace {

TEST(Windows1251, ReadsEveryByteAsThePublishedSetDoesAndBack) {
    for (int i = 0; i < 256; ++i) {
        const auto byte = static_cast<std::uint8_t>(i);
        const char16_t character = windows1251::FromByte(byte);
        const char16_t published = Published("CP1251", byte);
        EXPECT_EQ(character, published == u'\uFFFD' ? u'\u0098' : published) << "byte " << i;
        EXPECT_EQ(windows1251::ToByte(character), byte) << "byte " << i;
    }
}

TEST(Windows1251, CountsWhatWouldBeLost) {
    const auto none = windows1251::FindUnencodable(u"Ёлка № 5, €\u00A0\u0098");
    EXPECT_EQ(none.count, 0U);
    const auto some = windows1251::FindUnencodable(u"a\U0001F600b\u4E2Dc\xD800");
    EXPECT_EQ(some.count, 3U);
    EXPECT_EQ(some.example, u"\U0001F600");
    EXPECT_EQ(windows1251::Encode(u"a\u4E2Db\u0152"), "a?b?");
}

TEST(Utf8, GoesThereAndBackAndMarksWhatIsBroken) {
    const std::u16string text = u"aЖ€\U0001F600";
    EXPECT_EQ(ToUtf8(text), "a\xD0\x96\xE2\x82\xAC\xF0\x9F\x98\x80");
    EXPECT_EQ(FromUtf8(ToUtf8(text)), text);
    EXPECT_EQ(FromUtf8("a\xFFz\xC3"), u"a\uFFFDz\uFFFD");
    EXPECT_EQ(FromUtf8("\xC0\x80\xED\xA0\x80"), u"\uFFFD\uFFFD\uFFFD\uFFFD\uFFFD");
    EXPECT_EQ(ToUtf8(u"\xDC00x"), "\xEF\xBF\xBDx");
}

} // namespace
} // namespace quillshift
