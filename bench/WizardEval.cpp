// Prints how many of the cases that bench/wizard_corpus.py made the wizard gets right. Arguments: the file of
// cases, and a group whose wrong ones are to be shown. "case": right, or right but for the case of letters.
#include "wizard/detect/Debris.h"
#include "wizard/detect/Detector.h"
#include "wizard/detect/Repair.h"

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <fstream>
#include <map>
#include <numeric>
#include <sstream>

using namespace quillshift::wizard;

namespace {

struct Tally {
    int cases = 0, right = 0, butForCase = 0, firstThree = 0, sure = 0, sureWrong = 0, sureRight = 0;
    double slowest = 0;
};

struct Case {
    std::string group, chain, bytes, text;
    int letters = 0;
};

/// The text as lossy readings can be compared: without what was lost, and without what stands for it.
bool NearlyTheSame(std::string_view one, std::string_view other) {
    const auto distance = [](std::string_view a, std::string_view b) {
        std::vector<std::size_t> row(b.size() + 1);
        std::iota(row.begin(), row.end(), std::size_t{0});
        for (const char letter : a) {
            std::size_t corner = row[0]++;
            for (std::size_t j = 0; j < b.size(); ++j) {
                const std::size_t best = std::min({row[j] + 1, row[j + 1] + 1, corner + (letter != b[j])});
                corner = row[j + 1];
                row[j + 1] = best;
            }
        }
        return row[b.size()];
    };
    return distance(one, other) * 5 < other.size();
}

/// Without capitals.
std::string Small(std::string_view text) {
    std::string small;
    for (std::size_t at = 0; at < text.size();) {
        const auto c = static_cast<std::uint32_t>(std::max(NextUtf8(text, at), 0));
        const bool isLarge = (c >= U'A' && c <= U'Z') || (c >= U'А' && c <= U'Я');
        AppendUtf8(small, c + (isLarge ? 0x20 : c == U'Ё' ? 0x50 : 0));
    }
    return small;
}

/// Some chains turn all small letters into capitals, or the other way; nothing in such a text tells which it
/// was.
bool IsRightButForCase(const Case& test, const Candidate& candidate) {
    return !test.group.starts_with("other") &&
           Small(Undo(candidate.chain, test.bytes).text) == Small(test.text);
}

bool IsRight(const Case& test, const Candidate& candidate) {
    if (test.group == "clean" || test.group == "binary" || test.group.starts_with("other"))
        return candidate.leaveAlone;
    // Where two sets agree on all of its letters, a text can come through unharmed.
    if (candidate.leaveAlone)
        return test.bytes == test.text && candidate.chain.stored == Set::Utf8 &&
               candidate.language != "binary";
    if (test.group == "lossy")
        return NearlyTheSame(candidate.preview, test.text);
    const std::string whole = Undo(candidate.chain, test.bytes).text; // of long bytes the preview is a sample
    std::string_view preview = whole;
    if (preview.starts_with("\xEF\xBB\xBF"))
        preview.remove_prefix(3);
    return preview == test.text;
}

/// How many lines of a text come out as they were before they went different ways.
void AddLines(Tally& tally, const Case& test, bool show) {
    std::istringstream good(test.text), repaired(Repair(test.bytes, Detect(test.bytes)).text);
    std::istringstream before(test.bytes);
    std::string expected, line, was;
    while (std::getline(good, expected)) {
        std::getline(before, was);
        if (!std::getline(repaired, line))
            line.clear();
        ++tally.cases;
        tally.right += line == expected;
        tally.butForCase += line == expected;
        tally.firstThree += line == expected;
        tally.sureWrong += line != expected && line != was;
        if (show && line != expected)
            std::printf("%s %s\n   %s\n", line == was ? "" : "SURE", expected.c_str(), line.c_str());
    }
}

Tally& Add(Tally& tally, const Case& test, bool show, bool showSure) {
    if (test.group == "lines") {
        AddLines(tally, test, show);
        return tally;
    }
    const auto start = std::chrono::steady_clock::now();
    const Verdict verdict = Detect(test.bytes);
    tally.slowest = std::max(tally.slowest,
                             std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count());
    const auto& found = verdict.candidates;
    const bool aloneIsRight =
        test.group == "clean" || test.group == "binary" || test.group.starts_with("other");
    // Another language's text is left alone also when it is told as unsure.
    const bool right = test.group.starts_with("other") && verdict.answer == Answer::Unsure ? true
                       : found.empty()                                                     ? aloneIsRight
                                       : IsRight(test, found[0]);
    const bool amongThree =
        right ||
        std::any_of(found.begin(),
                    found.begin() + static_cast<std::ptrdiff_t>(std::min<std::size_t>(3, found.size())),
                    [&](const Candidate& c) { return IsRight(test, c); });
    const bool sure = verdict.answer == Answer::Sure;
    ++tally.cases;
    tally.right += right;
    tally.butForCase += right || (!found.empty() && IsRightButForCase(test, found[0]));
    tally.firstThree += amongThree;
    tally.sure += sure;
    tally.sureRight += sure && right;
    tally.sureWrong += sure && !right;
    if ((show && !right) || (showSure && sure && !right)) {
        std::printf("%s %s %s\n", test.chain.c_str(), sure ? "SURE" : "", test.text.c_str());
        for (std::size_t i = 0; i < std::min<std::size_t>(found.size(), 3); ++i)
            std::printf("   %-30s %s %7.1f %s\n", ToString(found[i].chain).c_str(),
                        std::string(found[i].language).c_str(), found[i].bits, found[i].preview.c_str());
    }
    return tally;
}

} // namespace

int main(int argc, char** argv) {
    if (argc < 2) {
        std::fputs("usage: wizard_eval CASES [GROUP]\n", stderr);
        return 2;
    }
    Detect("\xCF\xF0\xE8"); // the tables are made at first use
    std::ifstream file(argv[1]);
    std::map<std::string, std::map<int, Tally>> tallies;
    for (std::string line; std::getline(file, line);) {
        std::istringstream fields(line);
        Case test;
        std::string letters, bytes, text;
        std::getline(fields, test.group, '\t');
        std::getline(fields, letters, '\t');
        std::getline(fields, test.chain, '\t');
        std::getline(fields, bytes, '\t');
        std::getline(fields, text, '\t');
        test.letters = std::stoi(letters);
        test.bytes = UndoDebris(Debris::Base64, bytes);
        test.text = UndoDebris(Debris::Base64, text);
        Add(tallies[test.group][test.letters], test, argc > 2 && test.group == argv[2],
            argc > 2 && std::string_view(argv[2]) == "sure");
    }
    std::printf("%-18s %-8s %6s %7s %7s %7s %7s %6s %8s\n", "what", "letters", "cases", "right", "case",
                "in 3", "sure", "wrong", "slowest");
    int all = 0, sureWrong = 0;
    for (const auto& [group, byLetters] : tallies)
        for (const auto& [letters, tally] : byLetters) {
            all += tally.cases;
            sureWrong += tally.sureWrong;
            const auto percent = [all = tally.cases](int part) { return 100.0 * part / all; };
            std::printf("%-18s %-8d %6d %6.1f%% %6.1f%% %6.1f%% %6.1f%% %6d %6.2fms\n", group.c_str(),
                        letters, tally.cases, percent(tally.right), percent(tally.butForCase),
                        percent(tally.firstThree), tally.right ? 100.0 * tally.sureRight / tally.right : 0,
                        tally.sureWrong, 1000 * tally.slowest);
        }
    std::printf("%d cases, %d called sure and wrong\n", all, sureWrong);
}
