#include "harness/Iconv.h"
#include "wizard/detect/Chain.h"

#include <gtest/gtest.h>

namespace quillshift::wizard {

TEST(CharacterSets, AreThePublishedOnes) {
    const std::pair<Set, const char*> published[] = {
        {Set::Dos866, "CP866"}, {Set::Windows1251, "CP1251"}, {Set::Koi8R, "KOI8-R"},
        {Set::Koi8U, "KOI8-U"}, {Set::Iso5, "ISO-8859-5"},    {Set::Mac, "MAC-CYRILLIC"},
        {Set::Latin, "CP1252"}, {Set::Dos437, "CP437"},       {Set::Greek, "CP1253"},
    };
    for (const auto& [set, name] : published)
        for (int byte = 0x80; byte < 0x100; ++byte) {
            const char16_t character = Published(name, static_cast<std::uint8_t>(byte));
            const char16_t ours = CharacterOf(set, static_cast<std::uint8_t>(byte));
            if (set == Set::Mac && byte == 0xFF) // the euro took the place of the currency sign
                EXPECT_EQ(ours, u'€');
            else
                EXPECT_EQ(ours, character == lostMark ? byte : character) << name << ' ' << byte;
            EXPECT_EQ(ByteOf(set, ours), byte) << name << ' ' << byte;
        }
}

// What each character says by itself is the oracle: wherever in a text something is wrong, and at its ends.
TEST(CharacterSets, TellUtf8AtAnyPlace) {
    const std::string pieces[] = {"\x7F",
                                  "\xC2\x80",
                                  "\xDF\xBF",
                                  "\xE0\xA0\x80",
                                  "\xED\x9F\xBF",
                                  "\xEF\xBF\xBF",
                                  "\xF0\x90\x80\x80",
                                  "\xF4\x8F\xBF\xBF",
                                  "\x80",
                                  "\xC1\xBF",
                                  "\xE0\x9F\xBF",
                                  "\xED\xA0\x80",
                                  "\xE2\x82",
                                  "\xF0\x8F\xBF\xBF",
                                  "\xF4\x90\x80\x80",
                                  "\xF5\x80\x80\x80",
                                  "\xF0\x9F\x98",
                                  "\xC3",
                                  "\xFF",
                                  "\xC3\x80\x80"};
    constexpr std::size_t well = 8;
    const std::string letters = [] {
        std::string pairs;
        for (int i = 0; i < 70; ++i)
            pairs += "\xD0\xB9";
        return pairs;
    }();
    for (std::size_t i = 0; i < std::size(pieces); ++i)
        for (std::size_t before = 0; before < 140; ++before)
            for (const std::size_t behind : {0U, 1U, 70U}) {
                const std::string bytes = std::string(before % 2, 'x') + letters.substr(0, before / 2 * 2) +
                                          pieces[i] + std::string(behind, 'x');
                EXPECT_EQ(IsUtf8(bytes), i < well) << i << " behind " << before;
            }
}

TEST(Chain, IsReadBackAsItWasPrinted) {
    for (const char* text :
         {"koi8-r", "utf-8", "utf-8>1251", "koi8-r>866,utf-8>1251", "866>mac@1251", "utf-8>1252+base64"}) {
        const auto chain = ChainFrom(text);
        ASSERT_TRUE(chain) << text;
        EXPECT_EQ(ToString(*chain), text);
    }
    for (const char* text : {"", "koi9", "utf-8>", "1251>1251", "1251>utf-8", "866>1251,", "866@1251", "866+",
                             "866>1251@utf-8", "866>1251,866>1251,866>1251,866>1251"})
        EXPECT_FALSE(ChainFrom(text)) << text;
}

TEST(Chain, UndoesWhatTheSystemsOwnTablesGarble) {
    const std::string text = "Съешь ещё этих мягких французских булок, Ёж!";
    const std::string once = Iconv(Iconv(text, "UTF-8", "KOI8-R"), "CP866", "UTF-8");
    const std::string twice = Iconv(once, "CP437", "UTF-8");
    const Chain chain = *ChainFrom("koi8-r>866,utf-8>437");
    const Undone undone = Undo(chain, twice);
    EXPECT_EQ(undone.text, text);
    EXPECT_EQ(undone.lost, 0U);
    EXPECT_TRUE(Proves(chain, undone.text, twice));
    EXPECT_FALSE(Proves(chain, undone.text, once));
    EXPECT_EQ(Garble(chain, text), twice);
    // ISO 8859-1 has control characters where Windows-1252 has letters.
    const std::string iso = Iconv(text, "ISO-8859-1", "UTF-8");
    EXPECT_EQ(Undo(*ChainFrom("utf-8>1252"), iso).text, text);
    EXPECT_TRUE(Proves(*ChainFrom("utf-8>1252"), text, iso));
}

TEST(Chain, CountsWhatIsLost) {
    const std::string garbled = Iconv("Привет", "CP1251", "UTF-8");
    EXPECT_EQ(Undo(*ChainFrom("utf-8>1251"), garbled + "\xE2\x98\xBA").lost, 1U);
    // Half of a character is one lost, whichever half it is.
    for (const std::size_t place : {4U, 6U}) {
        std::string lossy = garbled;
        lossy.replace(place, 2, "?");
        const Undone undone = Undo(*ChainFrom("utf-8>1251"), lossy);
        EXPECT_EQ(undone.text, "П\xEF\xBF\xBDивет");
        EXPECT_EQ(undone.lost, 1U);
    }
    // Written too long, and half of a pair.
    EXPECT_EQ(Undo(Chain{}, "a\xC0\x80\xED\xA0\x80z").lost, 3U);
    for (const char* half : {"\x1F\x04\x01\xD8", "\x1F\x04\x01\xDC"})
        EXPECT_EQ(Undo(Chain{Set::Utf16Le, {}}, half).text, "П\xEF\xBF\xBD");
}

} // namespace quillshift::wizard
