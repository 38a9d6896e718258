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
constexpr std::chrono::milliseconds kLingering(200);
constexpr std::size_t kShortText = 65536; ///< which takes a few milliseconds

/// What a text with this way becomes.
std::string AsChosen(const RescueRow& row) {
    if (!row.Way())
        return *row.text;
    return row.Way() == row.finding.chain ? wizard::Repair(*row.text, row.finding.verdict).text
                                          : Undo(*row.Way(), *row.text).text;
}

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
    WhenIdle([this, names = std::move(names)] { List(names); });
}

bool Rescue::AddText(std::u16string text) {
    if (text.empty())
        return false;
    WhenIdle([this, text = std::move(text)] { ReadText(text); });
    return true;
}

void Rescue::ReadText(const std::u16string& text) {
    isShort_ = text.size() <= kShortText;
    Begin(Doing::Reading, [this, text](RescueJob& job) {
        std::string bytes = ToUtf8(text);
        Finding finding{.path = {}, .verdict = Detect(bytes)};
        finding.beginning = BeginningOf(Sample(bytes), kPreview);
        if (finding.verdict.answer == Answer::Sure && !finding.verdict.candidates.front().leaveAlone)
            finding.chain = finding.verdict.candidates.front().chain;
        job.Post([this, bytes = std::move(bytes), finding = Trimmed(std::move(finding))]() mutable {
            Take(std::move(finding));
            news_.text = byPath_[{}];
            rows_[*news_.text].text = std::move(bytes);
        });
    });
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

void Rescue::WhenIdle(std::function<void()> begin) {
    if (doing_ != Doing::Nothing)
        waiting_.push_back(std::move(begin));
    else
        begin();
}

void Rescue::List(std::vector<std::string> names) {
    Begin(Doing::Listing, [this, names = std::move(names)](RescueJob& job) {
        const Walked walked = files_.FilesIn(names, [&job] { return job.GoesOn(); });
        for (const std::string& name : walked.unreadable)
            job.Post([this, name] { Take(Unreadable(name)); });
        InOrder found(walked.files.size(), [&](Finding one) {
            job.Post([this, one = std::move(one)]() mutable { Take(std::move(one)); });
        });
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
           other.outcome != Outcome::Repaired && FolderOf(other.finding) == FolderOf(row.finding) &&
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

void Rescue::RepairAll() {
    std::vector<std::pair<std::size_t, Finding>> files;
    std::optional<std::size_t> textRow;
    std::optional<CopiedText> held;
    for (std::size_t i = 0; i < rows_.size(); ++i) {
        if (!WouldRepair(rows_[i], target_))
            continue;
        if (rows_[i].text) {
            textRow = i;
            held = clipboard_.Arrived();
            continue;
        }
        files.emplace_back(i, rows_[i].finding);
        files.back().second.chain = rows_[i].Way();
    }
    if (files.empty() && !textRow)
        return;
    const auto row = textRow ? rows_[*textRow] : RescueRow{};
    isShort_ = !textRow || row.text->size() <= kShortText;
    Begin(files.empty() ? Doing::Reading : Doing::Repairing, [=, this](RescueJob& job) {
        if (textRow)
            job.Post([this, textRow, held, text = FromUtf8(AsChosen(row)), pasted = FromUtf8(*row.text)] {
                const auto now = clipboard_.Arrived();
                isPushed_ = !held || held->text != pasted || !now || now->text != pasted;
                if (!isPushed_) // nothing newer is pushed out
                    Copied(*textRow, true, text);
            });
        if (!files.empty())
            RepairFiles(job, files);
    });
}

void Rescue::RepairFiles(RescueJob& job, const std::vector<std::pair<std::size_t, Finding>>& files) {
    const std::string report = files_.BeginRepairs(target_);
    job.Post([this, report] {
        report_ = report;
        news_.noReport = report.empty();
    });
    if (report.empty())
        return;
    job.ForEach(files.size(), [&](std::size_t i) {
        const Outcome outcome = files_.Repair(files[i].second);
        job.Post([this, row = files[i].first, outcome] { Repaired(row, outcome); });
    });
}

void Rescue::Repaired(std::size_t row, Outcome outcome) {
    rows_[row].outcome = outcome;
    rows_[row].returned.reset();
    ++(outcome == Outcome::Repaired ? good_ : left_);
    NoteChange(row);
}

void Rescue::CopyText(std::size_t row) {
    WhenIdle([this, row] {
        isShort_ = rows_[row].text->size() <= kShortText;
        Begin(Doing::Reading, [this, row, copy = rows_[row]](RescueJob& job) {
            job.Post([this, row, isRepaired = copy.Way().has_value(), text = FromUtf8(AsChosen(copy))] {
                Copied(row, isRepaired, text);
            });
        });
    });
}

void Rescue::Copied(std::size_t row, bool isRepaired, const std::u16string& text) {
    if (isRepaired)
        clipboard_.SetRepaired(text);
    else
        clipboard_.SetText(text);
    rows_[row].isCopied = true;
    NoteChange(row);
}

// --- The way back

void Rescue::ReturnAll() {
    Begin(Doing::Returning, [this](RescueJob& job) {
        const std::string report = files_.LastReport();
        const std::vector<RepairEntry> entries = files_.BeginReturn(report);
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
        job.Post([this] { Borrow(); }); // each was looked at by itself
        if (isAll && job.Done() == entries.size())
            files_.Retire(report);
    });
}

void Rescue::BroughtBack(const Finding& now, Returned returned) {
    if (returned != Returned::AsBefore)
        ++(returned == Returned::Restored ? good_ : left_);
    Take(now);
    rows_[byPath_[now.path]].returned = returned;
}

// --- The work

void Rescue::Begin(Doing doing, std::function<void(RescueJob&)> work) {
    doing_ = doing;
    good_ = left_ = 0;
    isPushed_ = false;
    summary_.clear();
    job_ = std::make_unique<RescueJob>([this, work = std::move(work)](RescueJob& job) {
        work(job);
        job.Post([this, can = !files_.LastReport().empty()] { canReturn_ = can; });
    });
}

void Rescue::Stop() {
    waiting_.clear();
    if (job_)
        job_->Stop();
}

void Rescue::Linger() {
    if (job_ && doing_ == Doing::Reading && isShort_)
        job_->WaitFor(kLingering);
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
        if (!waiting_.empty()) {
            const std::function<void()> begin = std::move(waiting_.front());
            waiting_.pop_front();
            begin();
        }
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
    const char* const pushed =
        isPushed_ ? "В буфере обмена другой текст; исправленный туда положит «Копировать исправленное»." : "";
    if (doing_ == Doing::Reading) {
        summary_ += pushed;
        return;
    }
    if (news_.noReport) {
        summary_ = "Отчёт об исправлениях не записывается, поэтому ничего не исправлено.";
        return;
    }
    const std::string files = Counted(good_, "файл", "файла", "файлов");
    summary_ += doing_ == Doing::Repairing ? "Исправлено: " + files : "Возвращено: " + files;
    if (left_ > 0)
        summary_ += ", осталось как есть: " + std::to_string(left_);
    summary_ += doing_ == Doing::Repairing ? ". Отчёт: " + report_ : ".";
    summary_ += isPushed_ ? std::string(". ") + pushed : "";
}

} // namespace quillshift::wizard
