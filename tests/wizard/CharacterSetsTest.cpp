#include "harness/Iconv.h"
#include "wizard/detect/Chain.h"
#include "wizard/detect/ClearRussian.h"
#include "wizard/detect/Hypotheses.h"
#include "wizard/detect/LineRepair.h"
#include "wizard/detect/Pieces.h"

#include <gtest/gtest.h>
#include <random>

namespace quillshift::wizard {

namespace {

using namespace std::string_literals;

const std::string russian =
    "Поздно вечером, когда погасли огни, старый смотритель ещё раз обошёл «причал» — №5.\n";

} // namespace

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
    const std::pair<bool, std::vector<std::string>> groups[] = {
        {true,
         {"\x7F", "\xC2\x80", "\xDF\xBF", "\xE0\xA0\x80", "\xED\x9F\xBF", "\xEF\xBF\xBF", "\xF0\x90\x80\x80",
          "\xF4\x8F\xBF\xBF"}},
        {false, {"\x80", "\xC1\xBF", "\xE0\x9F\xBF", "\xED\xA0\x80", "\xE2\x82", "\xF0\x8F\xBF\xBF"}},
        {false, {"\xF4\x90\x80\x80", "\xF5\x80\x80\x80", "\xF0\x9F\x98", "\xC3", "\xFF", "\xC3\x80\x80"}}};
    std::string letters;
    for (int i = 0; i < 70; ++i)
        letters += "\xD0\xB9";
    for (const auto& [well, pieces] : groups)
        for (const std::string& piece : pieces)
            for (std::size_t before = 0; before < 140; ++before)
                for (const std::size_t behind : {0U, 1U, 70U}) {
                    const std::string front =
                        std::string(before % 2, 'x') + letters.substr(0, before / 2 * 2);
                    const std::string bytes = front + piece + std::string(behind, 'x');
                    EXPECT_EQ(IsUtf8(bytes), well) << bytes;
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

// The slow way with its proof is the judge, for whatever bytes come in.
TEST(TableUndo, GivesWhatIsProvedOrNothing) {
    std::mt19937 random(1);
    for (const char* name :
         {"utf-8", "866", "1251", "koi8-r", "koi8-u", "iso-8859-5", "mac", "1252", "437", "1253",
          "koi8-r>1251", "utf-8>1251", "utf-8>1252", "utf-8>437", "866>1252", "1251>mac@koi8-r",
          "koi8-r>866,utf-8>1251", "utf-8>1252,utf-8>1251", "1251>koi8-r,866>mac,utf-8>866"}) {
        const Chain chain = *ChainFrom(name);
        TableUndo tables(chain);
        const std::string garbled = Garble(chain, russian).value_or("");
        int known = 0;
        for (int i = 0; i < 3000; ++i) {
            std::string bytes = garbled.substr(random() % (garbled.size() + 1), random() % 60);
            for (std::size_t spoilt = random() % 3; spoilt > 0 && !bytes.empty(); --spoilt)
                bytes[random() % bytes.size()] = static_cast<char>(i + static_cast<int>(spoilt));
            if (i % 4 == 0)
                bytes += static_cast<char>(i / 4);
            std::string_view undone;
            if (!tables.Undo(bytes, undone))
                continue;
            ++known;
            ASSERT_EQ(Lossless(chain, bytes), undone) << name << ' ' << i;
        }
        EXPECT_GT(known, 50) << name;
    }
}

TEST(TableUndo, KnowsRussian) {
    for (const char* name :
         {"utf-8", "866", "1251", "koi8-r", "mac", "koi8-r>1251", "utf-8>1252", "866>mac,utf-8>866"}) {
        // Not all sets have all of the signs, and 1251 leaves a byte open.
        const std::string text = "Старый смотритель обошёл причал; КАКАЯ НОЧЬ! Было 5 часов, at last.";
        TableUndo tables(*ChainFrom(name));
        std::string_view undone;
        const std::string garbled = *Garble(*ChainFrom(name), text);
        ASSERT_TRUE(tables.Undo(garbled, undone)) << name;
        EXPECT_EQ(undone, text);
        EXPECT_GE(tables.Glance(), 0) << name;
    }
    // What one set looks like in another, a related language, and signs that stand for letters.
    TableUndo tables{Chain{}};
    std::string_view undone;
    for (const std::string& bytes :
         {Iconv(Iconv("Привет, мой старый друг", "UTF-8", "KOI8-R"), "CP1251", "UTF-8"),
          Iconv(Iconv("Привет, мой старый друг", "UTF-8", "CP1251"), "MAC-CYRILLIC", "UTF-8"),
          std::string("Ми зібралися біля річки, щоб побачити"), std::string("«» «» — — „“ №№ за"),
          std::string("аб вг")}) {
        ASSERT_TRUE(tables.Undo(bytes, undone));
        EXPECT_LT(tables.Glance(), 0) << bytes;
        EXPECT_FALSE(tables.IsClear()) << bytes;
    }
    const std::string clear = "Поздно вечером, когда погасли огни, старый смотритель обошёл причал — №5.\n";
    EXPECT_TRUE(IsClearlyRussian(clear));
    for (const std::string& also :
         {"\x1B"s, "\x7F"s, "ї"s, "ѡ"s, "нИн"s, "\xD0"s, "\xE2\x80"s, "•"s, "\xC0\x80"s}) {
        EXPECT_FALSE(IsClearlyRussian(clear + also)) << also;
        EXPECT_FALSE(IsClearlyRussian(also + clear)) << also;
    }
    const char* const sets[] = {"CP866", "CP1251", "KOI8-R", "ISO-8859-5", "MAC-CYRILLIC"};
    for (const char* one : sets)
        for (const char* other : sets)
            EXPECT_EQ(IsClearlyRussian(Iconv(Iconv("привет, мой самый старый друг из города", "UTF-8", one),
                                             other, "UTF-8")),
                      one == other || (one == sets[1] && other == sets[4]) ||
                          (one == sets[4] && other == sets[1]))
                << one << ' ' << other;
    EXPECT_FALSE(IsClearlyRussian("сон") || IsClearlyRussian("«»«»«»«» погасли огни, старый"));
    EXPECT_FALSE(TableUndo(*ChainFrom("koi8-r>1251")).Undo("\xC0\xA0 and more", undone));
    TableUndo broken{Chain{}};
    for (const char* nothing :
         {"\xD0", "\xC1\x81", "\xE0\x81\x81", "\xED\xA0\x80", "\xF0\x9F\x98", "\xF8\x80\x80"})
        for (const std::size_t before : {std::size_t{0}, std::size_t{8}, std::size_t{14}})
            EXPECT_FALSE(
                broken.Undo(std::string(before, '-') + nothing + "- смотритель погасил огни", undone));
    EXPECT_FALSE(TableUndo(*ChainFrom("utf-16le")).Undo("ab", undone));
}

// Wide registers and single characters must say and write the same.
TEST(TableUndo, IsAsPlainAsItIsQuick) {
    std::mt19937 random(3);
    int clear = 0, unclear = 0;
    for (const Set set : {Set::Dos866, Set::Windows1251, Set::Koi8R, Set::Iso5, Set::Mac, Set::Latin}) {
        const SetToUtf8 table(set);
        const std::string bytes = Garble({set, {}, {}}, russian + "ЁЛКА, ель\tёлочка\r\n").value_or(russian);
        for (int i = 0; i < 4000; ++i) {
            std::string some = bytes.substr(random() % 20);
            some.resize(random() % (some.size() + 1));
            some += some.substr(0, random() % 40);
            for (std::size_t spoilt = random() % 3; spoilt > 0 && !some.empty(); --spoilt)
                some[random() % some.size()] = static_cast<char>(random());
            std::string quick(3 * some.size() + SetToUtf8::slack, '\0'), plain = quick;
            bool isClear = false, isPlainlyClear = true;
            const char* end = table.Convert(some, quick.data(), isClear);
            const char* plainEnd = table.ConvertPlainly(some, plain.data(), isPlainlyClear);
            ASSERT_EQ(end == nullptr, plainEnd == nullptr);
            ASSERT_EQ(isClear, isPlainlyClear) << some;
            if (end == nullptr)
                continue;
            quick.resize(static_cast<std::size_t>(end - quick.data()));
            plain.resize(static_cast<std::size_t>(plainEnd - plain.data()));
            ASSERT_EQ(quick, plain);
            ++(isClear ? clear : unclear);
            for (std::size_t cut = 0; cut < 3 && cut <= quick.size(); ++cut) {
                const std::string_view part =
                    std::string_view(quick).substr(cut, quick.size() - random() % 3);
                ASSERT_EQ(IsClearlyRussian(part), IsClearlyRussianPlainly(part)) << part;
            }
        }
    }
    EXPECT_GT(clear, 1000);
    EXPECT_GT(unclear, 1000);
}

// Lines that are undone together must go as each by itself.
TEST(TableUndo, TakesLinesTogetherAsItTakesEach) {
    std::mt19937 random(5);
    int clear = 0, unclear = 0;
    for (const char* name : {"utf-8", "koi8-r", "mac", "utf-8>1251", "866>1252,utf-8>1251"}) {
        const Chain chain = *ChainFrom(name);
        const std::string garbled = Garble(chain, "Поздно вечером, когда погасли огни, смотритель ещё раз "
                                                  "обошёл причал.\n")
                                        .value();
        TableUndo together(chain), alone(chain);
        for (int i = 0; i < 1000; ++i) {
            std::string lines;
            std::vector<std::string> each;
            for (std::size_t count = 1 + random() % 6; count > 0; --count) {
                std::string line =
                    random() % 4 == 0 ? "no Russian" : garbled.substr(0, random() % garbled.size());
                if (random() % 3 == 0 && !line.empty())
                    line[random() % line.size()] = static_cast<char>(random());
                std::replace(line.begin(), line.end(), '\n', ' ');
                lines += each.emplace_back(line + '\n');
            }
            LookedLines looks;
            std::string_view text, undone;
            if (!together.UndoLines(lines, text, looks))
                continue;
            ASSERT_EQ(looks.Count(), each.size());
            const bool isWhole = IsUtf8(text);
            for (std::size_t line = 0; line < each.size(); ++line) {
                const std::string_view its = text.substr(0, BytesOfLines(text, 1));
                text.remove_prefix(its.size());
                // A sign that is cut off may spoil the line behind it, too.
                const bool isClear = alone.Undo(each[line], undone) && alone.IsClear();
                const LineLook look = LookOf(IsAscii(each[line]), isClear);
                ASSERT_TRUE(looks[line] == look || (looks[line] == LineLook::Unclear && !isWhole)) << its;
                if (isClear) {
                    ASSERT_EQ(its, undone) << name;
                }
                ++(isClear ? clear : unclear);
            }
            EXPECT_TRUE(text.empty());
        }
    }
    EXPECT_GT(clear, 2000);
    EXPECT_GT(unclear, 2000);
}

// A glance must not say more than a look.
TEST(TableUndo, SeesNothingThatALookDoesNot) {
    std::mt19937 random(2);
    TableUndo tables{Chain{}};
    const std::u16string letters = u"оеаинтсрвлкмдпуяыьгзбчйхжшюцщэфъё ,.ОЕАИНТ—«»";
    int clear = 0, rash = 0;
    for (int i = 0; i < 20000; ++i) {
        std::string line;
        for (std::size_t left = 3 + random() % 30; left > 0; --left)
            AppendUtf8(line, letters[std::min(random(), random()) % letters.size()]);
        for (std::size_t words = random() % 4; words > 0; --words)
            line += " старый смотритель";
        std::string_view undone;
        ASSERT_TRUE(tables.Undo(line, undone));
        clear += tables.Glance() >= 0;
        rash += tables.Glance() >= 0 && !RussianFit(line).plausible;
    }
    EXPECT_GT(clear, 100);
    EXPECT_LT(rash * 50, clear);
}

} // namespace quillshift::wizard
