#include "wizard/rescue/Rescue.h"

#include "base/Utf8.h"
#include "wizard/detect/Repair.h"
#include "wizard/rescue/RescueWords.h"

#include <algorithm>
#include <filesystem>
#include <utility>

namespace quillshift::wizard {

namespace {

namespace fs = std::filesystem;

constexpr std::size_t kPreview = 1600; ///< bytes of each proposal that are kept

Finding Trimmed(Finding finding) {
    for (Candidate& one : finding.verdict.candidates)
        one.preview = BeginningOf(one.preview, kPreview);
    return finding;
}

Finding Unreadable(const std::string& path) {
    Finding finding{.path = path, .verdict = {}};
    finding.isReadable = false;
    return finding;
}

/// Passes findings on in the order of their numbers, whichever comes first.
class InOrder {
public:
    InOrder(std::size_t count, std::function<void(Finding)> pass) : waiting_(count), pass_(std::move(pass)) {}

    void Put(std::size_t number, Finding finding) {
        const std::lock_guard lock(putting_);
        waiting_[number] = std::move(finding);
        for (; next_ < waiting_.size() && waiting_[next_]; ++next_)
            pass_(*std::exchange(waiting_[next_], std::nullopt));
    }

private:
    std::mutex putting_;
    std::vector<std::optional<Finding>> waiting_;
    std::function<void(Finding)> pass_;
    std::size_t next_ = 0;
};

} // namespace

// --- The list

void Rescue::Add(std::vector<std::string> names) {
    std::error_code none; // a name that can't be made absolute is told as unreadable
    for (std::string& name : names)
        name = fs::absolute(name, none).lexically_normal();
    waiting_.push_back(std::move(names));
    if (doing_ == Doing::Nothing)
        ListNext();
}

bool Rescue::AddText(std::u16string_view text) {
    if (text.empty())
        return false;
    std::string bytes = ToUtf8(text);
    Finding finding{.path = {}, .verdict = Detect(bytes)};
    finding.beginning = BeginningOf(Sample(bytes), kPreview);
    if (finding.verdict.answer == Answer::Sure && !finding.verdict.candidates.front().leaveAlone)
        finding.chain = finding.verdict.candidates.front().chain;
    Take(Trimmed(std::move(finding)));
    rows_[byPath_[{}]].text = std::move(bytes);
    return true;
}

void Rescue::Clear() {
    rows_.clear();
    byPath_.clear();
    summary_.clear();
}

// What is listed already is looked at anew.
void Rescue::Take(Finding finding) {
    const auto [place, isNew] = byPath_.try_emplace(finding.path, rows_.size());
    if (isNew)
        rows_.emplace_back();
    rows_[place->second] = {.finding = std::move(finding)};
    NoteChange(place->second);
}

void Rescue::NoteChange(std::size_t row) {
    const bool isFirst = news_.first == news_.last;
    news_.first = isFirst ? row : std::min(news_.first, row);
    news_.last = isFirst ? row + 1 : std::max(news_.last, row + 1);
}

void Rescue::ListNext() {
    if (waiting_.empty())
        return;
    List(std::move(waiting_.front()));
    waiting_.pop_front();
}

void Rescue::List(std::vector<std::string> names) {
    Begin(Doing::Listing, [this, names = std::move(names)](RescueJob& job) {
        const Walked walked = files_.FilesIn(names, [&job] { return job.GoesOn(); });
        for (const std::string& name : walked.unreadable)
            job.Post([this, name] { Take(Unreadable(name)); });
        InOrder found(walked.files.size(),
                      [&](Finding one) { job.Post([this, one = std::move(one)] { Take(one); }); });
        const auto look = [&](std::size_t i) { found.Put(i, Trimmed(files_.LookAt(walked.files[i]))); };
        job.ForEach(walked.files.size(), look);
        job.Post([this] { Borrow(); });
    });
}

void Rescue::Borrow() {
    std::vector<Finding*> findings;
    for (RescueRow& row : rows_)
        if (!row.text && !row.byHand && !row.outcome)
            findings.push_back(&row.finding);
    BorrowFromNeighbours(findings);
    if (!rows_.empty()) {
        NoteChange(0);
        NoteChange(rows_.size() - 1);
    }
}

// --- What is chosen

void Rescue::WriteIn(Target target) {
    target_ = target;
    for (RescueRow& row : rows_)
        if (row.outcome == Outcome::DoesNotFit)
            row.outcome.reset();
}

void Rescue::Choose(std::size_t row, const std::optional<Chain>& chain) {
    RescueRow& chosen = rows_[row];
    if (chosen.outcome == Outcome::Repaired || (chosen.byHand && chosen.chosen == chain))
        return;
    chosen.byHand = true;
    chosen.chosen = chain;
    chosen.outcome.reset();
    chosen.returned.reset();
    chosen.isCopied = false;
    NoteChange(row);
}

// What its beginning would lose can't be written.
bool Rescue::IsLike(const RescueRow& row, const RescueRow& other) const {
    return &row != &other && !other.text && !other.byHand && other.IsUnsure() && other.finding.isReadable &&
           other.outcome != Outcome::Repaired &&
           fs::path(other.finding.path).parent_path() == fs::path(row.finding.path).parent_path() &&
           Undo(*row.Way(), other.finding.beginning).lost == 0;
}

bool Rescue::HasLikeIt(std::size_t row) const {
    const RescueRow& like = rows_[row];
    return like.byHand && like.chosen && !like.text &&
           std::ranges::any_of(rows_, [&](const RescueRow& other) { return IsLike(like, other); });
}

std::size_t Rescue::ChooseForLikeIt(std::size_t row) {
    std::size_t count = 0;
    for (std::size_t i = 0; i < rows_.size(); ++i)
        if (IsLike(rows_[row], rows_[i])) {
            Choose(i, rows_[row].chosen);
            ++count;
        }
    return count;
}

// --- Repairing

std::size_t Rescue::Repairable() const {
    return static_cast<std::size_t>(
        std::ranges::count_if(rows_, [this](const RescueRow& row) { return WouldRepair(row, target_); }));
}

bool Rescue::RepairAll() {
    std::vector<std::pair<std::size_t, Finding>> todo;
    for (std::size_t i = 0; i < rows_.size(); ++i) {
        if (!WouldRepair(rows_[i], target_))
            continue;
        const auto held = rows_[i].text ? clipboard_.Arrived() : std::nullopt;
        if (held && ToUtf8(held->text) == *rows_[i].text) // nothing newer is pushed out
            CopyText(i);
        if (rows_[i].text)
            continue;
        todo.emplace_back(i, rows_[i].finding);
        todo.back().second.chain = rows_[i].Way();
    }
    if (todo.empty())
        return true;
    report_ = files_.BeginRepairs(target_);
    if (report_.empty())
        return false;
    Begin(Doing::Repairing, [this, todo = std::move(todo)](RescueJob& job) {
        const auto repair = [&](std::size_t i) {
            const Outcome outcome = files_.Repair(todo[i].second);
            job.Post([this, row = todo[i].first, outcome] { Repaired(row, outcome); });
        };
        job.ForEach(todo.size(), repair);
    });
    return true;
}

void Rescue::Repaired(std::size_t row, Outcome outcome) {
    rows_[row].outcome = outcome;
    rows_[row].returned.reset();
    ++(outcome == Outcome::Repaired ? good_ : left_);
    NoteChange(row);
}

void Rescue::CopyText(std::size_t row) {
    RescueRow& chosen = rows_[row];
    const std::optional<Chain>& way = chosen.Way();
    std::string text = *chosen.text;
    if (way && way == chosen.finding.chain)
        text = wizard::Repair(text, chosen.finding.verdict).text;
    else if (way)
        text = Undo(*way, text).text;
    if (way)
        clipboard_.SetRepaired(FromUtf8(text));
    else
        clipboard_.SetText(FromUtf8(text));
    chosen.isCopied = true;
    NoteChange(row);
}

// --- The way back

void Rescue::ReturnAll() {
    report_ = files_.LastReport();
    std::vector<RepairEntry> entries = files_.BeginReturn(report_);
    Begin(Doing::Returning, [this, entries = std::move(entries)](RescueJob& job) {
        std::atomic<bool> isAll = true;
        const auto bringBack = [&](std::size_t i) {
            const Returned returned = files_.BringBack(entries[i]);
            if (returned == Returned::Failed)
                isAll = false;
            job.Post([this, returned, now = Trimmed(files_.LookAt(entries[i].path))] {
                BroughtBack(now, returned);
            });
        };
        job.ForEach(entries.size(), bringBack);
        if (isAll && job.Done() == entries.size())
            files_.Retire(report_);
    });
}

void Rescue::BroughtBack(const Finding& now, Returned returned) {
    ++(returned == Returned::Restored || returned == Returned::AsBefore ? good_ : left_);
    Take(now);
    rows_[byPath_[now.path]].returned = returned;
}

// --- The work

void Rescue::Begin(Doing doing, std::function<void(RescueJob&)> work) {
    doing_ = doing;
    good_ = left_ = 0;
    summary_.clear();
    job_ = std::make_unique<RescueJob>(std::move(work));
}

void Rescue::Stop() {
    waiting_.clear();
    if (job_)
        job_->Stop();
}

Rescue::News Rescue::Poll() {
    if (job_) {
        const bool ended = job_->HasEnded(); // asked first: what was posted before is taken below
        for (const auto& news : job_->Take())
            news();
        news_.ended = ended;
    }
    if (news_.ended) {
        SumUp();
        job_.reset();
        doing_ = Doing::Nothing;
        ListNext();
    }
    return std::exchange(news_, {});
}

void Rescue::SumUp() {
    const bool stopped = !job_->GoesOn();
    summary_ = stopped ? "Остановлено. " : "";
    if (doing_ == Doing::Listing) {
        summary_ += stopped ? "Просмотрены не все файлы." : "";
        return;
    }
    const std::string files = Counted(good_, "файл", "файла", "файлов");
    summary_ += doing_ == Doing::Repairing ? "Исправлено: " + files : "Возвращено: " + files;
    if (left_ > 0)
        summary_ += ", осталось как есть: " + std::to_string(left_);
    summary_ += doing_ == Doing::Repairing ? ". Отчёт: " + report_ : ".";
}

} // namespace quillshift::wizard
