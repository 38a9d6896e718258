#include "recoding/modDecode.h"

#include "base/Windows1251.h"
#include "harness/Iconv.h"
#include "support/FailureOf.h"

#include <gtest/gtest.h>

namespace quillshift {
namespace {

constexpr const char* kPublishedNames[kCharsets] = {"CP866", "CP1251", "KOI8-R", "ISO-8859-5",
                                                    "MAC-CYRILLIC"};

bool IsLetter(char16_t character) {
    return character >= u'А' && character <= u'я';
}

std::uint8_t ByteOfLetter(int set, char16_t letter) {
    for (int byte = 0x80; byte < 0x100; ++byte)
        if (Published(kPublishedNames[set], static_cast<std::uint8_t>(byte)) == letter)
            return static_cast<std::uint8_t>(byte);
    ADD_FAILURE() << "no byte for a letter in " << kPublishedNames[set];
    return 0;
}

TEST(RecodeText, MovesTheLettersOfEveryDirectionAndNothingElse) {
    for (int number = 0; number < kDirections; ++number) {
        const Direction direction = DirectionOf(number);
        for (int i = 0; i < 256; ++i) {
            const auto byte = static_cast<std::uint8_t>(i);
            const char16_t letter = Published(kPublishedNames[direction.source - 1], byte);
            const std::uint8_t expected =
                IsLetter(letter) ? ByteOfLetter(direction.target - 1, letter) : byte;
            const std::u16string recoded = RecodeText(std::u16string(1, windows1251::FromByte(byte)),
                                                      direction.source, direction.target);
            EXPECT_EQ(windows1251::Encode(recoded), std::string(1, static_cast<char>(expected)))
                << "direction " << number << ", byte " << i;
        }
    }
}

TEST(RecodeText, LeavesCharactersOutsideThePageAndUnknownSetsAlone) {
    const std::u16string text = u"\u4E2D\U0001F600Привет\r\n";
    EXPECT_EQ(RecodeText(text, 1, 1), text);
    EXPECT_EQ(RecodeText(text, 0, 2), text);
    EXPECT_EQ(RecodeText(text, 2, 6), text);
    EXPECT_EQ(RecodeText(text, 2, 3).substr(0, 3), text.substr(0, 3));
    EXPECT_EQ(TranslateText(u"aba", u"xyz", u"aba"), u"xyx"); // the first place of a repeated letter counts
}

TEST(RecodeText, TakesAsMuchAsItsLimitAndOverflowsBeyond) {
    EXPECT_EQ(RecodeText(std::u16string(32766, u'А'), 2, 5), std::u16string(32766, u'\u0402'));
    const Error error = FailureOf([] { RecodeText(std::u16string(32767, u'А'), 2, 5); });
    EXPECT_EQ(error.Number(), 6);
    EXPECT_NE(error.Description().find(u"32766"), std::u16string::npos) << "it tells the limit";
}

TEST(Direction, NumbersRunBySourceThenByTarget) {
    EXPECT_EQ(DirectionName(DirectionOf(0)), u"DOS 866 -> Windows 1251");
    EXPECT_EQ(DirectionName(DirectionOf(9)), u"UNIX KOI-8 -> Windows 1251");
    EXPECT_EQ(DirectionName(DirectionOf(19)), u"MAC Apple -> ISO 8859-5");
}

} // namespace
} // namespace quillshift
