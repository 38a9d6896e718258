#include "wizard/command/Run.h"
#include "harness/Iconv.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <sstream>

namespace quillshift::wizard {

namespace {

struct Outcome {
    int status;
    std::string out, err;
};

Outcome RunOn(const std::string& input, const std::vector<std::string>& arguments = {}) {
    std::istringstream in(input);
    std::ostringstream out, err;
    const int status = Run(arguments, in, out, err, Language::English);
    return {status, out.str(), err.str()};
}

const std::string text = "Старая мельница стоит у самой воды, ещё и мелет.\r\n";
const std::string koi = Iconv(text, "UTF-8", "KOI8-R");

} // namespace

TEST(Run, RepairsWhatComesIn) {
    EXPECT_EQ(RunOn(koi).out, text);
    EXPECT_EQ(RunOn(koi).status, 0);
    EXPECT_EQ(RunOn(text).out, text);
    EXPECT_EQ(RunOn(koi, {"--to", "1251"}).out, Iconv(text, "UTF-8", "CP1251"));
    EXPECT_EQ(RunOn(koi, {"--to=keep"}).out, koi);
    const std::string page = "<html><meta charset=\"koi8-r\"><p>";
    EXPECT_EQ(RunOn(page + koi).out, "<html><meta charset=\"utf-8\"><p>" + text);
}

TEST(Run, UndoesTheChainItIsTold) {
    EXPECT_EQ(RunOn(Iconv(koi, "CP866", "UTF-8"), {"--from", "koi8-r>866"}).out, text);
    const Outcome lossy = RunOn("Привет", {"--from", "utf-8>437"});
    EXPECT_EQ(lossy.status, 1);
    EXPECT_FALSE(lossy.err.empty());
    const Outcome unfit = RunOn("日本", {"--from", "utf-8", "--to", "1251"});
    EXPECT_EQ(unfit.status, 2);
    EXPECT_EQ(unfit.out, "日本");
}

TEST(Run, PassesOnWhatIsUnsure) {
    const std::string few = "\xF7\xCF\xD4";
    const Outcome outcome = RunOn(few);
    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(outcome.out, few);
    EXPECT_EQ(outcome.err, "quillshift-wizard: left as unsure\n");
}

TEST(Run, TellsOfALineThatWentAnotherWay) {
    std::string many;
    for (int i = 0; i < 40; ++i)
        many += koi;
    const Outcome outcome = RunOn(many + Iconv(text, "UTF-8", "CP866"));
    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(outcome.err, "quillshift-wizard: some lines went another way than the rest\n");
    EXPECT_EQ(outcome.out.size(), 41 * text.size());
}

TEST(Run, StreamsWhatIsLongerThanItsBeginning) {
    std::string many, oneLine;
    while (many.size() < 1500000)
        many += text;
    while (oneLine.size() < 1500000)
        oneLine += "Старая\u00A0мельница\u00A0стоит\u00A0";
    const std::string manyKoi = Iconv(many, "UTF-8", "KOI8-R"), late = Iconv(text, "UTF-8", "CP866");
    const std::string manyLong = Iconv(manyKoi, "CP866", "UTF-8");
    const std::string wide = Iconv(many, "UTF-8", "UTF-16LE");
    const std::string ascii = std::string(70, 'a') + '\n', cut = "\xD0";
    std::string manyAscii;
    while (manyAscii.size() < 1100000)
        manyAscii += ascii;
    const struct {
        std::string in, out;
        int status;
    } cases[] = {
        {manyKoi, many, 0},
        {manyKoi + late, many + text, 1},
        {manyKoi + "日本語\n" + koi, many + "日本語\n" + text, 1},
        {manyLong, many, 0},
        {many, many, 0},
        {many + cut, many + cut, 1},
        {manyAscii + koi, manyAscii + text, 0},
        {manyAscii + manyKoi, manyAscii + many, 0},
        {Iconv(oneLine, "UTF-8", "KOI8-R"), oneLine, 0},
        {oneLine, oneLine, 0},
        {wide, many, 0},
        {wide + "\x10\xD8", many + "\xEF\xBF\xBD", 1},
        {std::string(3000000, '\0') + koi, std::string(3000000, '\0') + koi, 0},
    };
    for (const auto& [in, out, status] : cases) {
        const Outcome outcome = RunOn(in);
        EXPECT_TRUE(outcome.out == out) << in.substr(0, 20);
        EXPECT_EQ(outcome.status, status) << in.substr(0, 20) << outcome.err;
    }
    // The first that is declared is the text's own; others are pages in it.
    const std::string page = "<meta charset='koi8-r'>\n";
    std::string pages;
    while (pages.size() < 2500000)
        pages += page + text;
    for (const auto& [to, name, set] :
         {std::tuple{"utf-8", "utf-8", "UTF-8"}, {"1251", "windows-1251", "CP1251"}})
        EXPECT_TRUE(RunOn(Iconv(pages, "UTF-8", "KOI8-R"), {"--to", to}).out ==
                    std::string("<meta charset='") + name + "'>\n" +
                        Iconv(pages.substr(page.size()), "UTF-8", set));
}

TEST(Run, TellsWhatItFound) {
    EXPECT_EQ(RunOn(koi, {"--detect"}).out, "-: sure, koi8-r\n");
    EXPECT_EQ(RunOn("plain", {"--detect"}).out, "-: clean\n");
    EXPECT_EQ(std::ranges::count(RunOn(koi, {"--list", "1"}).out, '\n'), 2) << "heading and reading";
    const std::string listing = RunOn(koi, {"--list", "3"}).out;
    EXPECT_EQ(std::count(listing.begin(), listing.end(), '\n'), 4);
    EXPECT_NE(listing.find("\tkoi8-r\tСтарая мельница"), std::string::npos);
    EXPECT_EQ(
        RunOn(koi, {"--json"})
            .out.rfind(
                R"({"name":"-","answer":"sure","readings":[{"chain":"koi8-r","leaveAlone":false,"language":"ru",)",
                0),
        0U);
}

TEST(Run, SaysWhatItCannotDo) {
    for (const std::vector<std::string>& arguments :
         std::vector<std::vector<std::string>>{{"--what"},
                                               {"--from", "koi9"},
                                               {"--from"},
                                               {"--to", "866"},
                                               {"--depth", "9"},
                                               {"--list", "0"},
                                               {"--exclude", "1251,x"},
                                               {"/no/such/file"},
                                               {"--undo", "/no/such"},
                                               {"--files-from", "/no/such"}}) {
        const Outcome outcome = RunOn("", arguments);
        EXPECT_EQ(outcome.status, 2) << arguments[0];
        EXPECT_FALSE(outcome.err.empty()) << arguments[0];
    }
    EXPECT_EQ(RunOn("/no/a\n/no/b\n", {"--files-from", "-"}).err,
              "quillshift-wizard: /no/a: cannot be read\nquillshift-wizard: /no/b: cannot be read\n");
    // A name is one line, and no orders to the terminal.
    EXPECT_EQ(RunOn("", {"/no/a\n\x1B\xC2\x9B\\я"}).err,
              "quillshift-wizard: /no/a\\n\\x1b\\xc2\\x9b\\\\я: cannot be read\n");
}

} // namespace quillshift::wizard
