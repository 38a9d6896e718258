#include "harness/Iconv.h"
#include "wizard/detect/Hypotheses.h"
#include "wizard/detect/LineRepair.h"

#include <gtest/gtest.h>
#include <random>

namespace quillshift::wizard {

namespace {

const std::string russian =
    "Поздно вечером, когда погасли огни, старый смотритель ещё раз обошёл «причал» — №5.\n";

} // namespace

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
    }
    TableUndo broken{Chain{}};
    EXPECT_FALSE(broken.Undo("При\xD0", undone));
    EXPECT_FALSE(TableUndo(*ChainFrom("utf-16le")).Undo("ab", undone));
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
