#include "wizard/files/Findings.h"

#include "platform/posix/PosixFiles.h"

#include <algorithm>
#include <atomic>
#include <filesystem>
#include <map>
#include <mutex>
#include <string_view>
#include <thread>

namespace quillshift::wizard {

namespace {

namespace fs = std::filesystem;

constexpr std::size_t kShort = 40;      ///< letters below which a file may borrow
constexpr std::size_t kBeginning = 800; ///< bytes

/// The chain that all sure files of a folder went through; none where they differ or there is but one.
std::optional<Chain> SharedChain(const std::vector<const Finding*>& sure) {
    if (sure.size() < 2)
        return std::nullopt;
    const bool agree =
        std::ranges::all_of(sure, [&](const Finding* one) { return one->chain == sure.front()->chain; });
    return agree ? sure.front()->chain : std::nullopt;
}

void Borrow(Finding& finding, const Chain& chain) {
    const auto found = std::ranges::find(finding.verdict.candidates, chain, &Candidate::chain);
    if (finding.verdict.answer != Answer::Unsure || found == finding.verdict.candidates.end() ||
        found->letters >= kShort || found->lost > 0 || found->leaveAlone)
        return;
    finding.chain = chain;
    finding.isBorrowed = true;
}

} // namespace

std::string_view FolderOf(const Finding& finding) {
    return std::string_view(finding.path).substr(0, finding.path.rfind('/') + 1);
}

std::string BeginningOf(const std::string& text, std::size_t most) {
    const std::size_t blank = text.size() > most ? text.find_last_of(" \n", most) : text.npos;
    return text.substr(0, blank == text.npos ? most : blank);
}

Finding Look(const std::string& path, const DetectOptions& options) {
    Finding finding{.path = path, .verdict = {}};
    const FileContents contents = PosixFiles::ReadNative(path);
    finding.mark = contents.mark;
    finding.isReadable = !contents.failure;
    if (!finding.isReadable)
        return finding;
    std::error_code error;
    finding.hasOtherNames = fs::hard_link_count(path, error) > 1 && !error;
    finding.verdict = Detect(contents.bytes, options);
    if (finding.verdict.candidates.empty())
        return finding;
    const Candidate& best = finding.verdict.candidates.front();
    const bool isWritten = best.chain.debris.has_value() || best.chain.stored == Set::Utf16Le ||
                           best.chain.stored == Set::Utf16Be; // in another way than by lines of high bytes
    finding.beginning = BeginningOf(isWritten ? contents.bytes : Sample(contents.bytes), kBeginning);
    finding.isBinary = best.language == "binary";
    if (finding.verdict.answer == Answer::Sure && !best.leaveAlone)
        finding.chain = best.chain;
    return finding;
}

void BorrowFromNeighbours(const std::vector<Finding*>& findings) {
    std::map<std::string_view, std::vector<const Finding*>> sure;
    for (const Finding* one : findings)
        if (one->chain && !one->isBorrowed)
            sure[FolderOf(*one)].push_back(one);
    std::map<std::string_view, std::optional<Chain>> shared;
    for (const auto& [folder, ones] : sure)
        shared[folder] = SharedChain(ones);
    for (Finding* one : findings)
        if (const auto chain = shared.find(FolderOf(*one)); chain != shared.end() && chain->second)
            Borrow(*one, *chain->second);
}

void InTwoThreads(std::size_t count, const std::function<void(std::size_t)>& work, const OnDone& onDone) {
    std::atomic<std::size_t> next = 0;
    std::atomic<bool> goesOn = true;
    std::size_t done = 0;
    std::mutex telling;
    const auto run = [&] {
        for (std::size_t i = next++; i < count && goesOn; i = next++) {
            work(i);
            const std::lock_guard lock(telling);
            if (!onDone(++done))
                goesOn = false;
        }
    };
    const std::jthread other(run);
    run();
}

std::vector<Finding> LookAt(const std::vector<std::string>& files, const DetectOptions& options,
                            const OnDone& onDone) {
    std::vector<Finding> findings(files.size());
    InTwoThreads(
        files.size(), [&](std::size_t i) { findings[i] = Look(files[i], options); }, onDone);
    std::erase_if(findings, [](const Finding& one) { return one.path.empty(); }); // stopped before them
    std::vector<Finding*> all;
    all.reserve(findings.size());
    for (Finding& one : findings)
        all.push_back(&one);
    BorrowFromNeighbours(all);
    return findings;
}

} // namespace quillshift::wizard
