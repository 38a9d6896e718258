#include "harness/Iconv.h"
#include "wizard/detect/Repair.h"

#include <gtest/gtest.h>

namespace quillshift::wizard {

namespace {

const std::string text = "Поздно вечером, когда погасли огни, старый смотритель ещё раз обошёл причал.\n";

std::string Found(const std::string& bytes) {
    const Verdict verdict = Detect(bytes);
    return verdict.candidates.empty() ? "" : ToString(verdict.candidates.front().chain);
}

} // namespace

TEST(Detector, NamesASet) {
    const std::pair<const char*, const char*> sets[] = {{"CP866", "866"},        {"CP1251", "1251"},
                                                        {"KOI8-R", "koi8-r"},    {"ISO-8859-5", "iso-8859-5"},
                                                        {"MAC-CYRILLIC", "mac"}, {"UTF-16LE", "utf-16le"}};
    for (const auto& [published, name] : sets) {
        const std::string bytes = Iconv(text, "UTF-8", published);
        const Verdict verdict = Detect(bytes);
        EXPECT_EQ(verdict.answer, Answer::Sure) << name;
        EXPECT_EQ(ToString(verdict.candidates.at(0).chain), name);
        EXPECT_EQ(Repair(bytes, verdict).text, text) << name;
    }
}

TEST(Detector, UndoesWrongReadings) {
    // Written in the first set, read as the second, saved as UTF-8; and so on.
    using Way = std::vector<const char*>;
    for (const auto& way :
         {Way{"UTF-8", "CP1251"}, Way{"KOI8-R", "CP1251"}, Way{"CP1251", "CP866"}, Way{"UTF-8", "ISO-8859-1"},
          Way{"CP866", "MAC-CYRILLIC"}, Way{"KOI8-R", "CP866", "UTF-8", "CP437"},
          Way{"UTF-8", "ISO-8859-1", "UTF-8", "ISO-8859-1"},
          Way{"CP1251", "KOI8-R", "UTF-8", "CP866", "UTF-8", "CP437"}}) {
        // A letter that Windows-1251 leaves open in UTF-8 can't be garbled by the system's table.
        std::string written = way[1] == std::string("CP1251") && way[0] == std::string("UTF-8")
                                  ? "Поздно вечером, когда погасло всё, старый смотритель обошёл причал."
                                  : text;
        std::string bytes = written;
        for (std::size_t i = 0; i < way.size(); i += 2)
            bytes = Iconv(Iconv(bytes, "UTF-8", way[i]), way[i + 1], "UTF-8");
        const Verdict verdict = Detect(bytes);
        EXPECT_EQ(verdict.answer, Answer::Sure) << Found(bytes);
        EXPECT_EQ(Repair(bytes, verdict).text, written) << Found(bytes);
    }
}

TEST(Detector, LeavesAloneWhatIsWell) {
    const std::string noise = [] {
        std::string bytes;
        for (unsigned i = 0, state = 1; i < 400; ++i, state = state * 1103515245 + 12345)
            bytes += static_cast<char>(state >> 16);
        return bytes;
    }();
    const std::string clean[] = {"",
                                 "plain ASCII, 100%",
                                 text,
                                 "КРИК ЗАГЛАВНЫМИ БУКВАМИ",
                                 "доброго вечера.\n -- Р. Дэйнджер",
                                 "(напр., „devel“, „admin“), то это уже немного другая",
                                 "Ми зібралися біля річки, щоб побачити схід сонця.",
                                 "Größe, Übung und schöne Wörter",
                                 "Η θάλασσα ήταν ήρεμη εκείνο το πρωί.",
                                 "日本語の文章です。",
                                 noise};
    for (const std::string& bytes : clean) {
        const Verdict verdict = Detect(bytes);
        EXPECT_EQ(verdict.answer, Answer::Clean) << bytes;
        EXPECT_EQ(Repair(bytes, verdict).text, bytes);
    }
    EXPECT_EQ(Detect(Iconv(clean[6], "UTF-8", "CP1251")).answer, Answer::Clean);
    EXPECT_EQ(Detect(Iconv(clean[7], "UTF-8", "CP1252")).answer, Answer::Clean);
}

TEST(Detector, ReadsDebrisBack) {
    const std::pair<std::string, std::string> debris[] = {
        {"=CF=F0=E8=E2=E5=F2, =EC=EE=\n=E9 =F1=F2=E0=F0=FB=E9 =E4=F0=F3=E3", "Привет, мой старый друг"},
        {"z/Do4uXyLCDs7ukg8fLg8PvpIOTw8+M=\n", "Привет, мой старый друг"},
        {"Subject: =?koi8-r?B?8NLJ18XU?= =?koi8-r?Q?,_=CD=CF=CA?= end", "Subject: Привет, мой end"},
        {"=?koi8-r?Q?=F0=D2=C9=D7=C5=D4?_=CD=CF=CA?= =?cp1251?B?5PDz4w==?=", "Привет? мой друг"},
        {"<b>&#1055;&#1088;&#x438;&#1074;&#1077;&#1090;</b> &amp; &#60;", "<b>Привет</b> &amp; &#60;"},
        {"{\"a\": \"\\u041f\\u0440\\u0438\\u0432\\u0435\\u0442\\n\"}", "{\"a\": \"Привет\\n\"}"},
        {"/wiki/%D0%9F%D1%80%D0%B8%D0%B2%D0%B5%D1%82%20100%", "/wiki/Привет%20100%"},
    };
    for (const auto& [bytes, plain] : debris)
        EXPECT_EQ(Repair(bytes, Detect(bytes)).text, plain) << bytes;
    for (const char* bytes :
         {"QUJDREVGR0hJSktMTU5PUFFSU1RVVldYWVo=", "a=3D1&b=%20%41", "caf\\u00e9 na\\u00efve",
          "\\\\u041f\\\\u0440\\\\u0438\\\\u0432\\\\u0435\\\\u0442", "Ilras\nJoran\nJul",
          "z/Do4uXyLCDs7ukg==8fLg8PvpIOTw8+M="})
        EXPECT_EQ(Detect(bytes).answer, Answer::Clean) << bytes;
    // Ukrainian in a set of eight bits is as good a guess as any.
    EXPECT_EQ(Detect("7ckg2qbC0sHMydPRIMKmzNEg0qbey8ksIN3PwiDQz8LB3snUySDTyKbEINPPzsPRLg==").answer,
              Answer::Unsure);
}

TEST(Detector, FindsLettersThatComeLate) {
    const std::string ascii(300000, 'x');
    const std::string bytes = ascii + "\n" + Iconv(text, "UTF-8", "KOI8-R");
    const Verdict verdict = Detect(bytes);
    EXPECT_EQ(verdict.answer, Answer::Sure);
    EXPECT_EQ(Repair(bytes, verdict).text, ascii + "\n" + text);
}

TEST(Detector, KeepsToWhatItIsAllowed) {
    const std::string bytes = Iconv(Iconv(text, "UTF-8", "KOI8-R"), "CP1251", "UTF-8");
    EXPECT_EQ(Found(bytes), "koi8-r>1251");
    DetectOptions options;
    options.exclude = {Set::Koi8R};
    for (const Candidate& candidate : Detect(bytes, options).candidates)
        EXPECT_EQ(ToString(candidate.chain).find("koi8-r"), std::string::npos);
    EXPECT_EQ(Detect(bytes, {0, 5, {}}).answer, Answer::Clean);
    options.exclude = {Set::Koi8R, Set::Koi8U};
    EXPECT_EQ(Detect(Iconv(text, "UTF-8", "KOI8-R"), options).answer, Answer::Unsure);
    EXPECT_EQ(Detect(Iconv("Größe, Übung und schöne Wörter", "UTF-8", "CP1252"), options).answer,
              Answer::Clean);
}

TEST(Detector, IsUnsureBetweenReadingsOfOneKind) {
    // One capital tells Mac from 1251.
    const std::string bytes = Iconv(Iconv("пословица\nС деньгами", "UTF-8", "KOI8-R"), "CP437", "UTF-8");
    EXPECT_EQ(Detect(bytes).answer, Answer::Unsure);
    // Another set on the way turns capitals into small letters.
    const std::string once =
        Iconv(Iconv("СПРОСИЛ ОДИН МОЙ ЗНАКОМЫЙ", "UTF-8", "CP1251"), "ISO-8859-5", "UTF-8");
    const std::string thrice =
        Iconv(Iconv(Iconv(once, "UTF-8", "CP1251"), "MAC-CYRILLIC", "UTF-8"), "CP866", "UTF-8");
    EXPECT_EQ(Detect(thrice).answer, Answer::Unsure);
    // By the text alone a word in capitals is about as likely.
    EXPECT_EQ(Detect(Iconv(Iconv("вечером Чайки улетели", "UTF-8", "CP866"), "CP1251", "UTF-8")).answer,
              Answer::Unsure);
    // Names are the same in Bulgarian.
    EXPECT_EQ(Detect(Iconv("Гвинея-Бисау, Гренландия", "UTF-8", "CP1251")).answer, Answer::Unsure);
}

TEST(Detector, IsNeverSureOfALoss) {
    std::string bytes =
        Iconv("Поздно вечером, когда погасло всё, смотритель обошёл причал.", "CP1251", "UTF-8");
    EXPECT_EQ(Detect(bytes).answer, Answer::Sure);
    const std::size_t half = bytes.find("\xC2\xB5"); // of an е
    ASSERT_NE(half, bytes.npos);
    bytes.replace(half, 2, "?");
    EXPECT_EQ(Detect(bytes).answer, Answer::Unsure);
}

TEST(Detector, IsSureAgainstALongerChain) {
    const std::string capitals = "ИЗ ПЛОТНО ПРИМЫКАЮЩИХ К НЕМУ ПОЛЕЙ ДОЛЖНО БЫТЬ ТРИ";
    const std::string bytes = Iconv(Iconv(capitals, "UTF-8", "CP866"), "CP1251", "UTF-8");
    EXPECT_EQ(Detect(bytes).answer, Answer::Sure);
    EXPECT_EQ(Found(bytes), "866>1251");
    // Nobody opens a quotation that is not closed.
    EXPECT_EQ(Detect(Iconv("дома Чудесные были", "UTF-8", "KOI8-R")).answer, Answer::Sure);
    EXPECT_EQ(Detect(Iconv("города умирают, надрываясь в попытке содержать", "UTF-8", "ISO-8859-5")).answer,
              Answer::Sure);
}

TEST(Detector, LooksAtSignsAndSentences) {
    // Mac and 1251 differ in capitals and signs only.
    for (const char* good :
         {"и прочие хитрые приборы. Только хорошо", "Вот и страница, с чем?\nС продолжением",
          "открыть этот сайт. Сайты открыты", "Не знаю. Если спросят, скажу: да — и всё."}) {
        EXPECT_EQ(Detect(Iconv(good, "UTF-8", "CP1251")).candidates.at(0).preview, good);
        EXPECT_EQ(Detect(Iconv(good, "UTF-8", "MAC-CYRILLIC")).candidates.at(0).preview, good);
    }
}

TEST(Detector, LooksAtWholeCharactersOfALongLine) {
    // The second has not even a blank to cut it at.
    for (const std::string piece :
         {"старый смотритель ещё раз обошёл причал ", "старый—смотритель—обошёл—причал—"}) {
        std::string bytes;
        for (int i = 0; i < 40; ++i)
            bytes += piece;
        for (int i = 0; i < 3; ++i)
            bytes = Iconv(bytes, "ISO-8859-1", "UTF-8");
        const Verdict verdict = Detect(bytes);
        EXPECT_EQ(verdict.answer, Answer::Sure) << piece;
        EXPECT_EQ(verdict.candidates.at(0).lost, 0U) << piece;
    }
}

TEST(Detector, LooksAtNothingTwice) {
    std::ostringstream percent;
    for (int number = 10; number < 70; ++number)
        for (const char c : std::to_string(number) + Iconv(") смотритель обошёл причал\n", "UTF-8", "KOI8-R"))
            if (static_cast<signed char>(c) < 0)
                percent << '%' << std::hex << static_cast<int>(static_cast<unsigned char>(c)) << std::dec;
            else
                percent << c;
    const std::string sample = Detect(percent.str()).candidates.at(0).preview;
    for (int number = 10; number < 70; ++number) {
        const std::string line = std::to_string(number) + ')';
        EXPECT_EQ(sample.find(line), sample.rfind(line)) << number;
    }
}

TEST(Repair, LeavesALineThatWouldLoseSomething) {
    const std::string garbled = Iconv(Iconv(text, "UTF-8", "KOI8-R"), "CP866", "UTF-8");
    const std::string bytes = garbled + "\xE2\x98\xBA\n" + garbled;
    EXPECT_EQ(Repair(bytes, Detect(garbled)).text, text + "\xE2\x98\xBA\n" + text);
}

TEST(Repair, TellsLinesApart) {
    const std::string garbled = Iconv(Iconv(text, "UTF-8", "CP866"), "CP437", "UTF-8");
    const std::string raw = Iconv(text, "UTF-8", "KOI8-R");
    const std::string bytes = garbled + "ASCII\r\n" + garbled + garbled + raw + text;
    const Repaired repaired = Repair(bytes, Detect(bytes));
    EXPECT_EQ(repaired.text, text + "ASCII\r\n" + text + text + text + text);
    EXPECT_EQ(repaired.unsure, 0U);
}

// More ways than are kept in mind: a line comes out as it was before, or stays as it is.
TEST(Repair, GetsManyWaysRight) {
    const char* const ways[][2] = {{"CP866", "CP437"},  {"KOI8-R", "CP1251"},    {"CP1251", "CP866"},
                                   {"KOI8-R", "CP866"}, {"CP866", "ISO-8859-1"}, {"CP1251", "KOI8-R"},
                                   {"KOI8-R", "CP437"}, {"CP866", "KOI8-R"},     {"CP1251", "MAC-CYRILLIC"}};
    std::string bytes;
    for (int turn = 0; turn < 3; ++turn)
        for (const auto& [written, read] : ways)
            bytes += Iconv(Iconv(text, "UTF-8", written), read, "UTF-8");
    const Repaired repaired = Repair(bytes, Detect(bytes));
    std::istringstream lines(repaired.text), before(bytes);
    std::size_t right = 0, left = 0;
    for (std::string line, was; std::getline(lines, line) && std::getline(before, was);) {
        right += line + '\n' == text;
        left += line == was;
    }
    EXPECT_EQ(right + left, 27U) << repaired.text;
    EXPECT_GT(right, 15U);
}

TEST(Repair, HoldsEveryLineAgainstTheVerdict) {
    const std::string garbled = Iconv(Iconv(text, "UTF-8", "KOI8-R"), "CP437", "UTF-8");
    const std::string clean = text + text + text + text;
    Repaired repaired = Repair(clean + garbled + text, Detect(clean));
    EXPECT_EQ(repaired.text, clean + text + text);
    EXPECT_EQ(repaired.apart, 1U);
    std::string koi;
    for (int i = 0; i < 60; ++i)
        koi += Iconv(text, "UTF-8", "KOI8-R");
    const std::string late = koi + Iconv(text, "UTF-8", "CP866") + koi;
    repaired = Repair(late, Detect(late));
    EXPECT_EQ(repaired.apart, 1U);
    EXPECT_EQ(repaired.text.size(), 121 * text.size());
    // "Most" is of those that went a way: ASCII goes none.
    std::string mixed = koi.substr(0, 3 * text.size() / 2);
    mixed.resize(mixed.rfind('\n') + 1);
    const Verdict onKoi = Detect(mixed);
    for (int i = 0; i < 100; ++i)
        mixed += i < 90 ? "no Russian\n" : Iconv(text, "UTF-8", "CP866");
    EXPECT_LT(Repair(mixed, onKoi).apart, 4U);
    // A word that says nothing goes the way of the whole, and another language is left alone line by line.
    const std::string odd = koi + Iconv("ЙЦУКЕН ъъы\n", "UTF-8", "KOI8-R");
    EXPECT_TRUE(Repair(odd, Detect(odd)).text.ends_with("ЙЦУКЕН ъъы\n"));
    const std::string foreign =
        Iconv("Ми зібралися біля річки, щоб побачити схід.\nЄвропа\nЛісабон\nРим\nНаполі\n"
              "Їхня хата стоїть край села, і вітер гуде.\n",
              "UTF-8", "CP1251");
    EXPECT_EQ(Repair(foreign, Detect(foreign)).text, foreign);
}

} // namespace quillshift::wizard
