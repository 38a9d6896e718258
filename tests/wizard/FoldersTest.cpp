#include "harness/Calls.h"
#include "harness/Iconv.h"
#include "harness/TemporaryFolder.h"
#include "wizard/command/Run.h"
#include "wizard/files/Repairs.h"
#include "wizard/files/Walk.h"

#include <gmock/gmock.h>

#include <map>
#include <sstream>
#include <sys/stat.h>
#include <utility>

namespace quillshift::wizard {

namespace {

namespace fs = std::filesystem;
using testing::ElementsAre;
using testing::HasSubstr;

const std::string text = "Старая мельница стоит у самой воды, ещё и мелет.\r\n";
const std::string koi = Iconv(text, "UTF-8", "KOI8-R");
const std::string twice = Iconv(koi, "CP866", "UTF-8");

class Folders : public testing::Test {
protected:
    Folders() {
        fs::create_directory(folder_);
        setenv("XDG_STATE_HOME", (root_ / "state").c_str(), 1);
    }
    ~Folders() override { unsetenv("XDG_STATE_HOME"); }

    std::string Make(const std::string& name, const std::string& bytes) const {
        fs::create_directories((folder_ / name).parent_path());
        Put(folder_ / name, bytes);
        return folder_ / name;
    }
    int Call(const std::vector<std::string>& arguments) {
        std::istringstream in;
        std::ostringstream out, err;
        const int status = wizard::Run(arguments, in, out, err, Language::English);
        out_ = out.str();
        err_ = err.str();
        return status;
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

    TemporaryFolder root_;
    fs::path folder_ = root_ / "letters";
    std::string report_ = root_ / "re\nport";
    std::string out_, err_;
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
    EXPECT_EQ(Call({folder_}), 0) << err_;
    EXPECT_EQ(Everything(), before) << "told to look only";
    EXPECT_THAT(out_, HasSubstr("in/shy.txt: sure, koi8-r, as its neighbours\n"));
    EXPECT_THAT(out_, HasSubstr("in/other.txt: sure, koi8-r, has other names, which change with it\n"));
    EXPECT_EQ(Call({"--json", folder_}), 0);
    EXPECT_THAT(out_, HasSubstr("in/shy.txt\",\"answer\":\"sure\",\"borrowed\":\"koi8-r\""));

    EXPECT_EQ(Write(), 0) << err_;
    EXPECT_THAT(out_,
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
    EXPECT_EQ(Call({"--undo", report_}), 0) << err_;
    EXPECT_EQ(Everything(), before);
    EXPECT_EQ(Undo(), 0) << "once more does no harm";
    EXPECT_EQ(Everything(), before);
}

TEST_F(Folders, WhatHasChangedSinceStays) {
    const std::string changed = Make("changed.txt", koi);
    const std::string robbed = Make("robbed.txt", koi);
    const std::string fine = Make("fine.txt", koi);
    EXPECT_EQ(Write(), 0) << err_;
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
    EXPECT_EQ(Undo(), 0) << err_;
    EXPECT_EQ(Everything(), before);
    Make("few.txt", "\xF7\xCF\xD4 \xF7");
    fs::remove(folder_ / "koi.txt");
    EXPECT_EQ(Write(), 1);
    EXPECT_EQ(Contents(folder_ / "few.txt"), "\xF7\xCF\xD4 \xF7");
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
