#include "wizard/command/Run.h"
#include "harness/Calls.h"
#include "wizard/Letters.h"
#include "wizard/files/Repairs.h"
#include "wizard/files/Walk.h"

#include <gmock/gmock.h>
#include <sys/stat.h>

namespace quillshift::wizard {
namespace {

namespace fs = std::filesystem;
using testing::ElementsAre;
using testing::HasSubstr;

struct Told {
    int status;
    std::string out, err;
};

Told RunOn(const std::string& input, const std::vector<std::string>& arguments = {}) {
    std::istringstream in(input);
    std::ostringstream out, err;
    const int status = Run(arguments, in, out, err, Language::English);
    return {status, out.str(), err.str()};
}

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
    const Told lossy = RunOn("Привет", {"--from", "utf-8>437"});
    EXPECT_EQ(lossy.status, 1);
    EXPECT_FALSE(lossy.err.empty());
    const Told unfit = RunOn("日本", {"--from", "utf-8", "--to", "1251"});
    EXPECT_EQ(unfit.status, 2);
    EXPECT_EQ(unfit.out, "日本");
}

TEST(Run, PassesOnWhatIsUnsure) {
    const Told told = RunOn(few);
    EXPECT_EQ(told.status, 1);
    EXPECT_EQ(told.out, few);
    EXPECT_EQ(told.err, "quillshift-wizard: left as unsure\n");
}

TEST(Run, TellsOfALineThatWentAnotherWay) {
    std::string many;
    for (int i = 0; i < 40; ++i)
        many += koi;
    const Told told = RunOn(many + Iconv(text, "UTF-8", "CP866"));
    EXPECT_EQ(told.status, 1);
    EXPECT_EQ(told.err, "quillshift-wizard: some lines went another way than the rest\n");
    EXPECT_EQ(told.out.size(), 41 * text.size());
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
    const std::tuple<std::string, std::string, int> cases[] = {
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
        const Told told = RunOn(in);
        EXPECT_TRUE(told.out == out) << in.substr(0, 20);
        EXPECT_EQ(told.status, status) << in.substr(0, 20) << told.err;
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
    using Arguments = std::vector<std::string>;
    for (const Arguments& arguments :
         {Arguments{"--what"}, Arguments{"--from", "koi9"}, Arguments{"--from"}, Arguments{"--to", "866"},
          Arguments{"--depth", "9"}, Arguments{"--list", "0"}, Arguments{"--exclude", "1251,x"},
          Arguments{"/no/such/file"}, Arguments{"--undo", "/no/such"},
          Arguments{"--files-from", "/no/such"}}) {
        const Told told = RunOn("", arguments);
        EXPECT_EQ(told.status, 2) << arguments[0];
        EXPECT_FALSE(told.err.empty()) << arguments[0];
    }
    EXPECT_EQ(RunOn("/no/a\n/no/b\n", {"--files-from", "-"}).err,
              "quillshift-wizard: /no/a: cannot be read\nquillshift-wizard: /no/b: cannot be read\n");
    // A name is one line, and no orders to the terminal.
    EXPECT_EQ(RunOn("", {"/no/a\n\x1B\xC2\x9B\\я"}).err,
              "quillshift-wizard: /no/a\\n\\x1b\\xc2\\x9b\\\\я: cannot be read\n");
}

class Folders : public testing::Test, protected Letters {
protected:
    int Call(const std::vector<std::string>& arguments) {
        told_ = RunOn("", arguments);
        return told_.status;
    }
    int Write() {
        fs::remove(report_);
        return Call({"--write", "--report", report_, folder_});
    }
    int Undo() { return Call({"--undo", report_}); }
    // Names, rights and contents of all there is, and when the folders were changed.
    std::map<std::string, std::string> Everything() const {
        std::map<std::string, std::string> all;
        for (const auto& entry : fs::recursive_directory_iterator(folder_)) {
            struct stat info {};
            lstat(entry.path().c_str(), &info);
            all[entry.path()] = std::to_string(info.st_mode) + " " + std::to_string(info.st_mtim.tv_nsec) +
                                (entry.is_regular_file() ? Contents(entry.path()) : "");
        }
        return all;
    }

    std::string report_ = root_ / "re\nport";
    Told told_;
};

TEST_F(Folders, AreWalkedPastWhatIsNobodysText) {
    for (const char* name :
         {"b.txt", "a.txt", "a.txt.bak", "alone.bak", ".hidden", ".git/x", "CVS/x", "in/c.txt"})
        Make(name, koi);
    fs::create_symlink("a.txt", folder_ / "link");
    fs::create_hard_link(folder_ / "a.txt", folder_ / "in" / "z.txt");
    mkfifo((folder_ / "pipe").c_str(), 0600);
    const Walked walked = Walk({folder_, folder_ / "a.txt", folder_ / "none"});
    EXPECT_THAT(walked.files, ElementsAre(folder_ / "a.txt", folder_ / "alone.bak", folder_ / "b.txt",
                                          folder_ / "in" / "c.txt"));
    EXPECT_THAT(walked.unreadable, ElementsAre(folder_ / "none"));
}

TEST_F(Folders, ARepairComesBackToTheLastByte) {
    const std::string letter = Make("letter.txt", koi);
    Make("letter.txt.bak", "mine");
    Make("twice.txt", twice);
    Make("in/\xF0\xF1.txt", koi); // a name that is no UTF-8
    Make("in/shared.txt", koi);
    fs::create_hard_link(folder_ / "in/shared.txt", folder_ / "in/other.txt");
    const std::string shy = Make("in/shy.txt", "\xF7\xCF\xD4"); // too short by itself
    Make("clean.txt", text);
    chmod(letter.c_str(), 0600);
    const auto before = Everything();
    EXPECT_EQ(Call({folder_}), 0) << told_.err;
    EXPECT_EQ(Everything(), before) << "told to look only";
    EXPECT_THAT(told_.out, HasSubstr("in/shy.txt: sure, koi8-r, as its neighbours\n"));
    EXPECT_THAT(told_.out, HasSubstr("in/other.txt: sure, koi8-r, has other names, which change with it\n"));
    EXPECT_EQ(Call({"--json", folder_}), 0);
    EXPECT_THAT(told_.out, HasSubstr("in/shy.txt\",\"answer\":\"sure\",\"borrowed\":\"koi8-r\""));

    EXPECT_EQ(Write(), 0) << told_.err;
    EXPECT_THAT(told_.out,
                HasSubstr("to undo this: quillshift-wizard --undo " + (root_ / "re\\nport\n").string()));
    for (const char* name : {"letter.txt", "twice.txt", "in/\xF0\xF1.txt", "in/shared.txt"})
        EXPECT_EQ(Contents(folder_ / name), text) << name;
    EXPECT_EQ(Contents(shy), "Вот");
    EXPECT_EQ(Contents(letter + ".bak"), "mine");
    EXPECT_EQ(Contents(letter + ".bak.bak"), koi);
    struct stat info {};
    stat((letter + ".bak.bak").c_str(), &info);
    EXPECT_EQ(info.st_mode & 0777U, 0600U);
    EXPECT_EQ(Everything().at(folder_ / "in"), before.at(folder_ / "in")) << "the folder keeps its time";
    EXPECT_EQ(Call({"--undo", report_}), 0) << told_.err;
    EXPECT_EQ(Everything(), before);
    EXPECT_EQ(Undo(), 0) << "once more does no harm";
    EXPECT_EQ(Everything(), before);
}

TEST_F(Folders, WhatHasChangedSinceStays) {
    const std::string changed = Make("changed.txt", koi);
    const std::string robbed = Make("robbed.txt", koi);
    const std::string fine = Make("fine.txt", koi);
    EXPECT_EQ(Write(), 0) << told_.err;
    Put(changed, "new work");
    Put(robbed + ".bak", "something else");
    EXPECT_EQ(Undo(), 2);
    EXPECT_EQ(Contents(changed), "new work");
    EXPECT_EQ(Contents(changed + ".bak"), koi);
    EXPECT_EQ(Contents(robbed), text);
    EXPECT_EQ(Contents(robbed + ".bak"), "something else");
    EXPECT_EQ(Contents(fine), koi);
    EXPECT_EQ(Call({"--undo", changed}), 2); // no report
    EXPECT_EQ(Call({"--undo", root_ / "none"}), 2);
    EXPECT_EQ(Call({"--write", "--report", report_, folder_}), 2) << "the report is there already";
    EXPECT_EQ(Contents(fine), koi);
}

TEST_F(Folders, TakesTheBackupThatAKillHasLeft) {
    const std::string letter = Make("letter.txt", koi);
    Make("letter.txt.bak", koi);
    const auto before = Everything();
    EXPECT_EQ(Write(), 0);
    EXPECT_EQ(Contents(letter), text);
    EXPECT_FALSE(fs::exists(letter + ".bak.bak"));
    EXPECT_EQ(Undo(), 0);
    EXPECT_EQ(Everything(), before);
    // Another name of the letter is no copy of it.
    fs::remove(letter + ".bak");
    fs::create_hard_link(letter, letter + ".bak");
    fs::remove(report_);
    EXPECT_EQ(Write(), 0);
    EXPECT_EQ(Contents(letter + ".bak.bak"), koi);
}

TEST_F(Folders, WhatChangesBetweenTheLookAndTheRepairStays) {
    const std::string letter = Make("letter.txt", koi);
    const auto findings = LookAt({letter}, {}, [](std::size_t /*done*/) { return true; });
    Put(letter, koi + koi);
    RepairReport report(report_);
    EXPECT_EQ(Repairs(report, Target::Utf8, {}).Repair(findings.front()), Outcome::ChangedMeanwhile);
    EXPECT_EQ(Contents(letter), koi + koi);
    EXPECT_EQ(Everything().size(), 1U);
}

TEST_F(Folders, WhatDoesNotFitOrIsUnsureStays) {
    Make("greek.txt", Iconv("Ελληνικά γράμματα, και πάλι.\r\n" + text + text, "UTF-8", "UTF-16LE"));
    Make("koi.txt", koi);
    const auto before = Everything();
    fs::remove(report_);
    Call({"--write", "--to", "1251", "--report", report_, folder_});
    EXPECT_EQ(Contents(folder_ / "koi.txt"), Iconv(text, "UTF-8", "CP1251"));
    EXPECT_EQ(Everything().at(folder_ / "greek.txt"), before.at(folder_ / "greek.txt"));
    EXPECT_EQ(Undo(), 0) << told_.err;
    EXPECT_EQ(Everything(), before);
    Make("few.txt", few);
    fs::remove(folder_ / "koi.txt");
    EXPECT_EQ(Write(), 1);
    EXPECT_EQ(Contents(folder_ / "few.txt"), few);
    Make("clean.txt", text);
    Call({"--write", "--from", "koi8-r", folder_});
    EXPECT_EQ(Contents(folder_ / "few.txt"), "Вот В");
    EXPECT_EQ(Contents(folder_ / "clean.txt"), text);
}

// The oracle of the hash is the system's own program.
TEST_F(Folders, TheReportCanBeCheckedAndMayEndAnywhere) {
    Make("a\tb\nc.txt", koi);
    EXPECT_EQ(Write(), 0);
    const std::string bytes = Contents(report_);
    const auto entries = EntriesOf(bytes);
    ASSERT_TRUE(entries && entries->size() == 1);
    Put(root_ / "sums", entries->front().before + "  " + std::string(root_ / "koi") + "\n" +
                            entries->front().after + "  " + std::string(root_ / "text") + "\n");
    Put(root_ / "koi", koi);
    Put(root_ / "text", text);
    EXPECT_EQ(std::system(("sha256sum --quiet -c " + std::string(root_ / "sums")).c_str()), 0);
    EXPECT_EQ(entries->front().path, folder_ / "a\tb\nc.txt");
    EXPECT_TRUE(EntriesOf(bytes.substr(0, bytes.size() - 1))->empty());
    EXPECT_FALSE(EntriesOf(bytes + "half\n"));
}

TEST_F(Folders, AKillAtAnyMomentLosesNothing) {
    int kills = 0;
    bool reached = true; // the call at which it is killed
    for (int at = 0; std::exchange(reached, false); at += 2)
        for (const bool whileUndoing : {false, true}) {
            fs::remove_all(folder_);
            fs::create_directory(folder_);
            Make("one.txt", koi);
            Make("two.txt", twice);
            Make("two.txt.bak", "mine");
            const auto before = Everything();
            if (whileUndoing)
                Write();
            else
                fs::remove(report_);
            const Ended ended = RunWithFault([] {}, [&] { return whileUndoing ? Undo() : Write(); },
                                             {.kind = Fault::Kind::Kill, .at = at});
            reached = reached || ended.killed;
            kills += ended.killed ? 1 : 0;
            if (EntriesOf(Contents(report_)))
                Undo();
            auto after = Everything(); // but for what a killed save leaves, which the next one clears
            std::erase_if(after, [](const auto& one) { return one.first.ends_with(".quillshift"); });
            ASSERT_EQ(after.size(), before.size()) << at;
            for (const char* name : {"one.txt", "two.txt", "two.txt.bak"})
                ASSERT_TRUE(before.at(folder_ / name).ends_with(Contents(folder_ / name))) << at << name;
        }
    EXPECT_GT(kills, 50);
}

} // namespace
} // namespace quillshift::wizard
