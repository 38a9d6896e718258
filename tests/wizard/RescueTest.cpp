#include "wizard/rescue/Rescue.h"
#include "base/Utf8.h"
#include "support/FakePlatform.h"
#include "wizard/Letters.h"
#include "wizard/rescue/DiskFiles.h"
#include "wizard/rescue/Proposals.h"
#include "wizard/rescue/RescueWords.h"

#include <gmock/gmock.h>
#include <thread>

namespace quillshift::wizard {

namespace {

namespace fs = std::filesystem;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::StartsWith;

/// The disk, with what fails on it.
class FailingFiles final : public RescueFiles {
public:
    Walked FilesIn(const std::vector<std::string>& names, const std::function<bool()>& goesOn) override {
        return disk.FilesIn(names, goesOn);
    }
    Finding LookAt(const std::string& path) override { return disk.LookAt(path); }
    std::string BeginRepairs(Target target) override { return noReport ? "" : disk.BeginRepairs(target); }
    Outcome Repair(const Finding& finding) override {
        if (slow)
            std::this_thread::sleep_for(std::chrono::milliseconds(5));
        return fails.contains(finding.path) ? Outcome::Failed : disk.Repair(finding);
    }
    std::string LastReport() override { return disk.LastReport(); }
    std::vector<RepairEntry> BeginReturn(const std::string& report) override {
        return disk.BeginReturn(report);
    }
    Returned BringBack(const RepairEntry& entry) override {
        return fails.contains(entry.path) ? Returned::Failed : disk.BringBack(entry);
    }
    void Retire(const std::string& report) override { disk.Retire(report); }

    DiskFiles disk;
    bool noReport = false, slow = false;
    std::set<std::string> fails;
};

class RescueTest : public testing::Test, public FakePlatform, protected Letters {
protected:
    std::string Make(const std::string& name, const std::string& bytes) {
        made_[folder_ / name] = bytes;
        return Letters::Make(name, bytes);
    }
    void Remove(const std::string& path) {
        made_.erase(path);
        fs::remove(path);
        fs::remove(path + ".bak");
    }
    void Finish() {
        while (rescue_.WhatIsDone() != Doing::Nothing) {
            rescue_.Poll();
            std::this_thread::sleep_for(std::chrono::milliseconds(1));
        }
        rescue_.Poll();
    }
    void List() {
        rescue_.Add({folder_});
        Finish();
    }
    void Repair() {
        rescue_.RepairAll();
        Finish();
    }
    void Return() {
        rescue_.ReturnAll();
        Finish();
    }
    std::size_t Row(const std::string& name) const {
        for (std::size_t i = 0; i < rescue_.Rows().size(); ++i)
            if (rescue_.Rows()[i].finding.path.ends_with(name))
                return i;
        throw std::runtime_error(name);
    }
    std::string Sure(const std::string& name) const {
        return HowSure(rescue_.Rows()[Row(name)], rescue_.WritesIn());
    }
    /// The list, a row a line.
    std::vector<std::string> Shown() const {
        std::vector<std::string> lines;
        for (const RescueRow& row : rescue_.Rows())
            lines.push_back(fs::path(NameOf(row)).filename().string() + ": " + WhatItIs(row) + ": " +
                            HowSure(row, rescue_.WritesIn()));
        return lines;
    }
    /// Whether all that was made is there as it was, and nothing else.
    bool IsAsMade() const {
        std::map<std::string, std::string> all;
        for (const auto& entry : fs::recursive_directory_iterator(folder_))
            if (entry.is_regular_file())
                all[entry.path()] = Contents(entry.path());
        return all == made_;
    }

    std::map<std::string, std::string> made_;
    FailingFiles files_;
    Rescue rescue_{files_, clipboard};
};

TEST_F(RescueTest, ListsWhatEachFileIsRepairsTheSureOnesAndBringsThemBack) {
    Make("1.txt", koi);
    Make("2.txt", text);
    Make("3.txt", Iconv(text, "UTF-8", "CP1251"));
    Make("4.txt", "");
    Make("5.bin", std::string(200, '\1') + koi);
    Make("6.txt", Iconv(text, "CP1251", "UTF-8"));
    Make("in/7.txt", few);
    Make("near/8.txt", koi);
    Make("near/9.txt", koi);
    Make("near/a.txt", few);
    rescue_.Add({folder_, folder_ / "none"});
    Finish();
    const std::vector<std::string> listed{"none: : не читается",
                                          "1.txt: KOI8-R: надёжно",
                                          "2.txt: русский текст: в порядке",
                                          "3.txt: Windows-1251: надёжно",
                                          "4.txt: пустой файл: в порядке",
                                          "5.bin: не текст: в порядке",
                                          "6.txt: UTF-8 как Windows-1251: надёжно",
                                          "7.txt: возможно, KOI8-R: сомнительно",
                                          "8.txt: KOI8-R: надёжно",
                                          "9.txt: KOI8-R: надёжно",
                                          "a.txt: KOI8-R: надёжно: как соседние"};
    EXPECT_EQ(Shown(), listed);
    EXPECT_THAT(NoteOn(rescue_.Rows()[0], false), StartsWith("Прочитать"));
    EXPECT_EQ(StateOf(rescue_), "В списке: 11, можно исправить: 6, сомнительных: 1.");
    rescue_.WriteIn(Target::Windows1251);
    EXPECT_EQ(Shown()[3], "3.txt: Windows-1251: в порядке");
    Repair();
    EXPECT_EQ(Contents(folder_ / "1.txt"), made_[folder_ / "3.txt"]);
    Return();
    EXPECT_TRUE(IsAsMade());
    rescue_.WriteIn(Target::Utf8);
    Repair();
    for (const char* name : {"1.txt", "3.txt", "6.txt"}) {
        EXPECT_EQ(Contents(folder_ / name), text) << name;
        EXPECT_EQ(Sure(name), "исправлен");
    }
    EXPECT_THAT(StateOf(rescue_), StartsWith("Исправлено: 6 файлов. Отчёт: " + (root_ / "state").string()));
    EXPECT_EQ(rescue_.Repairable(), 0U);
    List(); // what was repaired is clean when it is looked at anew
    EXPECT_EQ(rescue_.Rows().size(), listed.size());
    EXPECT_EQ(Shown()[1], "1.txt: русский текст: в порядке");
    Return();
    EXPECT_TRUE(IsAsMade());
    EXPECT_EQ(StateOf(rescue_), "Возвращено: 6 файлов.");
    EXPECT_EQ(Shown().back(), "a.txt: KOI8-R: возвращён") << "borrowed anew";
    EXPECT_FALSE(rescue_.CanReturn());
}

TEST_F(RescueTest, AChoiceByHandServesTheOtherUnsureFilesOfItsFolderOnly) {
    for (const char* name : {"a/1.txt", "a/2.txt", "a/3.txt", "b/4.txt"})
        Make(name, few);
    Make("a/clean.txt", text);
    Make("a/odd.txt", few + " \xAB"); // nothing in KOI8-R
    List();
    const std::size_t first = Row("1.txt");
    EXPECT_FALSE(rescue_.HasLikeIt(first)) << "nothing is chosen yet";
    rescue_.Choose(Row("3.txt"), std::nullopt);
    rescue_.Choose(first, ChainFrom("mac>koi8-r@1251"));
    ASSERT_TRUE(rescue_.HasLikeIt(first));
    EXPECT_EQ(rescue_.ChooseForLikeIt(first), 1U) << "without the one that was chosen, and the odd one";
    EXPECT_FALSE(rescue_.HasLikeIt(first));
    EXPECT_EQ(Sure("2.txt"), "выбрано вручную");
    EXPECT_EQ(ProposalsOf(rescue_.Rows()[first].finding, Chain{Set::Dos437, {}}).size(), 5U);
    rescue_.Choose(Row("odd.txt"), ChainFrom("mac>koi8-r@1251"));
    Repair();
    EXPECT_EQ(Sure("odd.txt"), "оставлен: что-то потерялось бы");
    const std::string chosen = Iconv(Iconv(few, "CP1251", "KOI8-R"), "MAC-CYRILLIC", "UTF-8");
    using File = std::pair<const char*, std::string>;
    for (const auto& [name, bytes] : {File{"a/1.txt", chosen}, File{"a/2.txt", chosen}, File{"a/3.txt", few},
                                      File{"b/4.txt", few}, File{"a/clean.txt", text}})
        EXPECT_EQ(Contents(folder_ / name), bytes) << name;
    rescue_.Choose(first, std::nullopt); // what is written already is no matter of choice
    EXPECT_EQ(Sure("1.txt"), "исправлен");
}

TEST_F(RescueTest, WhatFailsLosesNothingAndCanBeTriedAgain) {
    const std::string changed = Make("changed.txt", koi), full = Make("full.txt", koi),
                      fine = Make("fine.txt", twice), gone = Make("gone.txt", koi),
                      removed = Make("removed.txt", koi);
    fs::create_hard_link(fine, root_ / "other");
    List();
    EXPECT_THAT(NoteOn(rescue_.Rows()[Row("fine.txt")], true), HasSubstr("другие имена"));
    EXPECT_EQ(NoteOn(rescue_.Rows()[Row("full.txt")], true), "");
    files_.noReport = true;
    Repair();
    EXPECT_THAT(StateOf(rescue_), StartsWith("Отчёт об исправлениях не записывается"));
    EXPECT_TRUE(IsAsMade());
    files_.noReport = false;
    files_.fails = {full};
    Make("changed.txt", koi + koi);
    Remove(gone);
    Repair();
    EXPECT_EQ(Sure("gone.txt"), "больше не читается");
    EXPECT_EQ(Sure("changed.txt"), "оставлен: изменился тем временем");
    EXPECT_EQ(Sure("full.txt"), "не записывается");
    EXPECT_THAT(StateOf(rescue_), StartsWith("Исправлено: 2 файла, осталось как есть: 3. Отчёт: "));
    EXPECT_EQ(Contents(changed), koi + koi);
    EXPECT_EQ(rescue_.Repairable(), 2U);
    files_.fails = {fine};
    Remove(removed);
    Return();
    EXPECT_EQ(Sure("removed.txt"), "не возвращён: его удалили");
    EXPECT_EQ(Sure("fine.txt"), "не возвращён: не записывается");
    EXPECT_TRUE(rescue_.CanReturn());
    files_.fails.clear();
    Return();
    EXPECT_TRUE(IsAsMade());
    EXPECT_FALSE(rescue_.CanReturn()) << "what was removed is no reason to keep the report";
}

TEST_F(RescueTest, AStopInTheMiddleLeavesEachFileAsItWasOrRepaired) {
    for (int i = 0; i < 60; ++i)
        Make(std::to_string(i) + ".txt", koi);
    List();
    rescue_.AddText(FromUtf8(few));
    rescue_.AddText(FromUtf8(twice)); // waits
    EXPECT_THAT(StateOf(rescue_), HasSubstr("В очереди: 1"));
    Finish();
    EXPECT_THAT(Shown().back(), "Вставленный текст: KOI8-R как DOS 866: надёжно");
    files_.slow = true;
    rescue_.RepairAll();
    rescue_.Add({folder_}); // waits, and is stopped with the rest
    while (rescue_.Done() < 5)
        std::this_thread::yield();
    rescue_.Stop();
    Finish();
    std::size_t repaired = 0;
    for (const auto& [path, bytes] : made_) {
        const bool isRepaired = Contents(path) == text;
        EXPECT_TRUE(isRepaired || Contents(path) == koi);
        EXPECT_EQ(isRepaired, Sure(path) == "исправлен");
        repaired += isRepaired;
    }
    EXPECT_GT(repaired, 0U);
    EXPECT_LT(repaired, made_.size());
    EXPECT_THAT(StateOf(rescue_), StartsWith("Остановлено. Исправлено: "));
    const auto first = std::ranges::find(rescue_.Rows(), Outcome::Repaired, &RescueRow::outcome);
    Put(first->finding.path, koi); // which is as before, and not brought back
    Return();
    EXPECT_TRUE(IsAsMade());
    EXPECT_EQ(StateOf(rescue_), "Возвращено: " + Counted(repaired - 1, "файл", "файла", "файлов") + '.');
}

TEST_F(RescueTest, ATextGoesBackToTheClipboardUnlessANewerOneIsThere) {
    const std::u16string garbled = FromUtf8(twice), right = FromUtf8(text);
    EXPECT_FALSE(rescue_.AddText(u""));
    clipboard.SetText(garbled);
    ASSERT_TRUE(rescue_.AddText(garbled));
    Finish();
    EXPECT_THAT(Shown(), ElementsAre("Вставленный текст: KOI8-R как DOS 866: надёжно"));
    clipboard.SetText(u"newer");
    Repair();
    EXPECT_EQ(clipboard.text, u"newer");
    EXPECT_THAT(StateOf(rescue_), HasSubstr("другой текст"));
    clipboard.SetText(garbled);
    rescue_.RepairAll();
    clipboard.SetText(u"newer"); // while it is being repaired
    Finish();
    EXPECT_EQ(clipboard.text, u"newer");
    clipboard.SetText(garbled);
    Repair();
    EXPECT_EQ(clipboard.text, right);
    EXPECT_TRUE(clipboard.isRepaired);
    EXPECT_THAT(Shown().front(), HasSubstr(": в буфере обмена"));
    rescue_.Choose(0, std::nullopt);
    rescue_.CopyText(0);
    Finish();
    EXPECT_EQ(clipboard.text, garbled);
    EXPECT_FALSE(clipboard.isRepaired);
    ASSERT_TRUE(rescue_.AddText(FromUtf8(few)));
    Finish();
    EXPECT_EQ(rescue_.Rows().size(), 1U) << "there is one text at most";
}

TEST(Proposals, MarkTheWordsThatDiffer) {
    constexpr const char* kCases[][4] = {
        // before, after, and both with brackets around what differs
        {"a b c", "a b c", "a b c", "a b c"},
        {"see ÿ and ö", "see я and б", "see [ÿ] and [ö]", "see [я] and [б]"},
        {"ÿ ö end", "яб end", "[ÿ ö] end", "[яб] end"},
        {"", "a", "", "[a]"},
        {" a\r\n\tb\1 ", "a b", "a b", "a b"},
        {"1 2 3 4 5 6 7 8 9 10 11 12 13 14 15", "1", "1 [2 3 4 5 6 7 8 9 10 11 12 13 14]", "1"}};
    const auto shown = [](const std::vector<Piece>& pieces) {
        std::string all;
        for (const Piece& piece : pieces) {
            all += piece.differs ? '[' + piece.text + ']' : piece.text;
        }
        return all;
    };
    for (const auto& [before, after, one, other] : kCases) {
        Proposal proposal;
        Compare(before, after, proposal);
        EXPECT_EQ(shown(proposal.before), one);
        EXPECT_EQ(shown(proposal.after), other);
    }
    EXPECT_EQ(AsShown("\xAC\xA8\xE0"), "¬Ёа");
    EXPECT_EQ(AsShown("воды\xD0"), "воды");
}

TEST(RescueWords, CountAsTheLanguageDoes) {
    for (const std::string words : {"0 файлов", "1 файл", "3 файла", "5 файлов", "11 файлов", "14 файлов",
                                    "21 файл", "102 файла", "112 файлов"})
        EXPECT_EQ(Counted(std::stoul(words), "файл", "файла", "файлов"), words);
}

} // namespace
} // namespace quillshift::wizard
