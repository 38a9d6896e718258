#pragma once

#include "platform/Platform.h"
#include "support/FakeSettings.h"
#include "support/FakeSound.h"

#include <algorithm>
#include <chrono>
#include <deque>
#include <functional>
#include <map>
#include <set>
#include <string>
#include <utility>
#include <vector>

namespace quillshift {

/// A disk of regular files and links to them. All folders are there.
class FakeFiles final : public FileSystem {
public:
    FileContents Read(std::u16string_view path) override {
        read.emplace_back(path);
        if (const auto failing = unreachable.find(Behind(path)); failing != unreachable.end())
            return {.bytes = {}, .failure = kBroken, .isUnknown = true};
        const auto found = files.find(Behind(path));
        if (found == files.end())
            return {.bytes = {}, .failure = FileFailure{53, u"Файл не найден"}};
        if (unreadable.contains(found->first))
            return {.bytes = {}, .failure = FileFailure{70, u"Нет прав доступа к файлу"}, .isFile = true};
        return {.bytes = found->second, .failure = {}, .isFile = true, .mark = MarkIn(*found)};
    }
    Written Replace(std::u16string_view path, std::string_view bytes, const Expected& expected) override {
        if (const auto other = std::exchange(beforeReplace, nullptr))
            other();
        const std::u16string target = Behind(path);
        const auto found = files.find(target);
        if (expected.what != Expected::What::Anything &&
            (expected.what == Expected::What::Bytes ? found == files.end() || found->second != expected.bytes
                                                    : found != files.end()))
            return {.failure = {}, .unexpected = true};
        if (unwritable.contains(target))
            return {kFull};
        files[target] = bytes;
        if (swapsNames)
            return {.failure = kBroken, .replaced = true};
        done.push_back(u"write " + target);
        return {.failure = {}, .mark = MarkIn(*files.find(target))};
    }
    Preparation PrepareBackup(std::u16string_view path, std::string_view bytes,
                              std::u16string_view document) override {
        if (path == Behind(document))
            return {.backup = nullptr, .failure = {}, .isDocument = true};
        if (unwritable.contains(std::u16string(path)))
            return {nullptr, kFull};
        done.push_back(u"prepare " + std::u16string(path));
        return {std::make_unique<Backup>(*this, path, bytes), std::nullopt};
    }
    std::optional<FileFacts> Facts(std::u16string_view path) override {
        const auto found = facts.find(Behind(path));
        if (found != facts.end())
            return found->second;
        if (!files.contains(Behind(path)))
            return std::nullopt;
        return FileFacts{.size = files[Behind(path)].size(), .created = {}};
    }
    bool IsLink(std::u16string_view path) override { return links.contains(std::u16string(path)); }
    std::optional<FileMark> MarkOf(std::u16string_view path) override {
        const auto found = files.find(Behind(path));
        return found == files.end() ? std::nullopt : std::optional(MarkIn(*found));
    }
    std::optional<FileFailure> CopyToTrash(std::u16string_view path, std::string_view bytes) override {
        if (!files.contains(Behind(path)))
            return FileFailure{53, u"Файл не найден"};
        if (trashIsFull)
            return kFull;
        trash.emplace_back(Behind(path), bytes);
        done.push_back(u"trash " + Behind(path));
        return std::nullopt;
    }
    std::map<std::u16string, std::string> files;
    std::map<std::u16string, std::u16string> links;
    std::map<std::u16string, FileFacts> facts; ///< where a test asks for more than the size
    std::vector<std::u16string> read;          ///< in order
    std::set<std::u16string> unwritable;
    std::set<std::u16string> unreadable;
    std::vector<std::pair<std::u16string, std::string>> trash;
    std::set<std::u16string> unreachable; ///< nobody can tell whether they are there
    bool swapsNames = false;              ///< somebody does, when a file was replaced
    bool trashIsFull = false;
    std::map<std::u16string, int> times; ///< of the contents, where they are not 0
    std::vector<std::u16string> done;    ///< what changed something, in order
    std::function<void()> beforeReplace; ///< another program's doing, once

private:
    inline static const FileFailure kBroken{75, u"Ошибка диска"};
    inline static const FileFailure kFull{61, u"На диске нет места"};

    class Backup final : public PreparedBackup {
    public:
        Backup(FakeFiles& disk, std::u16string_view path, std::string_view bytes)
            : disk_(disk), path_(path), bytes_(bytes) {}
        std::optional<FileFailure> PutInPlace() override {
            disk_.links.erase(path_);
            disk_.files[path_] = bytes_;
            disk_.done.push_back(u"back up " + path_);
            return std::nullopt;
        }

    private:
        FakeFiles& disk_;
        std::u16string path_;
        std::string bytes_;
    };
    FileMark MarkIn(const std::pair<const std::u16string, std::string>& file) {
        return {.size = static_cast<std::int64_t>(file.second.size()), .seconds = times[file.first]};
    }
    std::u16string Behind(std::u16string_view path) const {
        const auto link = links.find(std::u16string(path));
        return link == links.end() ? std::u16string(path) : Behind(link->second);
    }
};

/// Answers with the paths of `chosen`, one after another; with none left the user cancels.
class FakeFileDialog final : public FileDialog {
public:
    bool ShowOpen() override { return Choose(); }
    bool ShowSave() override { return Choose(); }
    std::deque<std::u16string> chosen;
    std::vector<std::u16string> namesAtOpening; ///< `FileName` each time it was shown

private:
    bool Choose() {
        namesAtOpening.push_back(FileName);
        if (chosen.empty())
            return false;
        FileName = chosen.front();
        FileTitle = FileName.substr(FileName.rfind(u'/') + 1);
        chosen.pop_front();
        return true;
    }
};

/// Answers with `answers`, one after another; with none left as a user who presses Escape.
class FakeMessageBox final : public MessageBox {
public:
    BoxAnswer Show(BoxIcon icon, BoxButtons buttons, std::u16string_view text) override {
        shown.push_back({icon, buttons, std::u16string(text)});
        if (buttons == BoxButtons::Ok)
            return BoxAnswer::Ok;
        if (answers.empty())
            return BoxAnswer::Cancel;
        const BoxAnswer answer = answers.front();
        answers.pop_front();
        return answer;
    }
    struct Box {
        BoxIcon icon;
        BoxButtons buttons;
        std::u16string text;
    };
    std::vector<Box> shown;
    std::deque<BoxAnswer> answers;
};

class FakeClipboard final : public Clipboard {
public:
    std::optional<std::u16string> Text() override {
        if (text && isWhole)
            return text;
        if (OnNoAnswer)
            OnNoAnswer();
        return std::nullopt;
    }
    std::optional<CopiedText> Arrived() override {
        return text ? std::optional(CopiedText{*text, isWhole}) : std::nullopt;
    }
    bool IsWaiting() const override { return isWaiting; }
    bool HasText() const override { return !text || !text->empty(); }
    void SetText(std::u16string_view value) override { Hold(std::u16string(value)); }
    void Clear() override { SetText(u""); }
    void HandOver() override { handedOver = text; }

    /// Another program copies a text, or doesn't tell which.
    void Hold(std::optional<std::u16string> value, bool whole = true) {
        text = std::move(value);
        isWhole = whole;
        if (OnChange)
            OnChange();
    }
    std::optional<std::u16string> text = u""; ///< nothing: its owner doesn't answer
    bool isWhole = true;
    bool isWaiting = false;
    std::optional<std::u16string> handedOver;
};

/// Ticks when the test says so.
class FakeTimers final : public Timers {
public:
    std::unique_ptr<Timer> Make(std::function<void()> tick) override {
        auto timer = std::make_unique<OneTimer>(*this, std::move(tick));
        all_.insert(timer.get());
        return timer;
    }
    /// One tick of each running timer, those of the shorter delay first.
    void Tick() {
        std::vector<OneTimer*> timers(all_.begin(), all_.end());
        std::ranges::sort(timers, {}, &OneTimer::delay);
        for (auto* timer : timers)
            if (all_.contains(timer))
                timer->Tick();
    }

private:
    class OneTimer final : public Timer {
    public:
        OneTimer(FakeTimers& owner, std::function<void()> tick) : owner_(owner), tick_(std::move(tick)) {}
        ~OneTimer() override { owner_.all_.erase(this); }
        OneTimer(const OneTimer&) = delete;
        OneTimer& operator=(const OneTimer&) = delete;
        void StartInterval(std::chrono::milliseconds interval) override { Start(interval, false); }
        void StartOnce(std::chrono::milliseconds after) override { Start(after, true); }
        void Stop() override { running_ = false; }
        bool IsRunning() const override { return running_; }
        void Tick() {
            if (!running_)
                return;
            running_ = !once_;
            tick_();
        }
        std::chrono::milliseconds delay{};

    private:
        void Start(std::chrono::milliseconds after, bool once) {
            delay = after;
            once_ = once;
            running_ = true;
        }
        FakeTimers& owner_;
        std::function<void()> tick_;
        bool running_ = false;
        bool once_ = false;
    };
    std::set<OneTimer*> all_;
};

class FakeScreen final : public Screen {
public:
    TwipsRect Primary() const override { return {0_twips, 0_twips, 19200_twips, 12000_twips}; }
    std::vector<TwipsRect> WorkAreas() const override { return {Primary()}; }
};

class FakeShell final : public Shell {
public:
    std::u16string ProgramFolder() const override { return u"/program"; }
    bool AnotherCopyRuns() const override { return anotherCopyRuns; }
    bool StartProcess(std::u16string_view) override { return false; }
    bool OpenWithDefault(std::u16string_view link) override {
        opened.emplace_back(link);
        return opensLinks;
    }
    void Conceal(bool value) override { concealed = value; }
    void EndProcess() override { ended = true; }

    bool anotherCopyRuns = false;
    bool opensLinks = true;
    std::vector<std::u16string> opened;
    bool concealed = false;
    bool ended = false;
};

/// Keeps what it is given until the test lets it be done.
class FakeBackground final : public Background {
public:
    void Run(std::function<std::function<void()>()> work) override { works.push_back(std::move(work)); }
    void DoAll() {
        std::vector<std::function<void()>> answers;
        for (const auto& work : std::exchange(works, {}))
            answers.push_back(work());
        for (const auto& answer : answers)
            answer();
    }
    std::vector<std::function<std::function<void()>()>> works;
};

/// Does at once what it is told, in memory. `fails`: as on a full disk.
class FakeRecoveryStore final : public RecoveryStore {
public:
    void Replace(std::function<std::string()> contents) override {
        ++wholes;
        hasFailed_ = fails;
        if (!fails)
            file = contents();
    }
    void Append(std::string bytes) override {
        hasFailed_ = hasFailed_ || fails || !file;
        if (!hasFailed_)
            *file += bytes;
    }
    void Rewrite(std::function<std::optional<std::string>(std::string_view)> shorten) override {
        const auto shorter = file ? shorten(*file) : std::nullopt;
        hasFailed_ = hasFailed_ || fails || !shorter;
        if (!hasFailed_)
            file = shorter;
        ++rewrites;
    }
    void SetAside() override { kept = std::exchange(file, std::nullopt); }
    void Remove() override { file.reset(); }
    void RemoveAll() override {
        file.reset();
        kept.reset();
    }
    void Take(const std::string& name) override {
        const auto found = std::ranges::find(left, name, &LeftFile::name);
        hasFailed_ = hasFailed_ || found == left.end();
        if (found == left.end())
            return;
        file = found->bytes;
        left.erase(found);
    }
    bool HasFailed() const override { return hasFailed_; }
    void Finish() override { ++finishes; }

    std::vector<LeftFile> FindLeft() override { return left; }
    std::optional<FileFailure> PutIntoTrash(const LeftFile& thrown) override {
        if (fails)
            return FileFailure{61, u"На диске нет места"};
        trash.push_back(thrown.name);
        std::erase_if(left, [&](const LeftFile& one) { return one.name == thrown.name; });
        return std::nullopt;
    }
    std::u16string PutAway(const std::string& name) override {
        std::erase_if(left, [&](const LeftFile& one) { return one.name == name; });
        return u"/away";
    }
    void Release() override { ++releases; }

    std::optional<std::string> file, kept;
    std::vector<LeftFile> left;
    std::vector<std::string> trash;
    bool fails = false;
    int wholes = 0;
    int rewrites = 0;
    int finishes = 0;
    int releases = 0;

private:
    bool hasFailed_ = false;
};

/// A job is long where the test says so: then it is time for a step at every `dueEach`th question.
class FakeProgress final : public Progress {
public:
    std::unique_ptr<ProgressWindow> Begin(std::u16string_view what) override {
        jobs.emplace_back(what);
        return std::make_unique<Window>(*this);
    }
    std::vector<std::u16string> jobs;
    std::vector<double> steps;
    int dueEach = 0;
    std::function<bool()> atStep; ///< what happens there, and whether the job goes on

private:
    struct Window final : ProgressWindow {
        explicit Window(FakeProgress& theProgress) : progress(theProgress) {}
        bool IsDue() const override { return progress.dueEach > 0 && ++asked % progress.dueEach == 0; }
        bool Step(double done) override {
            progress.steps.push_back(done);
            return !progress.atStep || progress.atStep();
        }
        FakeProgress& progress;
        mutable int asked = 0;
    };
};

/// Stands still at the moment that the test sets.
class FakeClock final : public Clock {
public:
    Moment Now() const override { return now; }
    char16_t DateSeparator() const override { return u'-'; }
    char16_t TimeSeparator() const override { return u'.'; }

    Moment now{2026, 3, 5, 9, 7, 8};
};

/// A printer that writes down what it is told, in a word each: sheets of A4 with an edge of 100 and 200 twips
/// that it can't reach.
class FakePrinter final : public Printer {
public:
    bool SetPrintQuality(PrintQuality quality) override { return Take("quality", static_cast<int>(quality)); }
    bool SetColorMode(PrintColour colours) override { return Take("colours", static_cast<int>(colours)); }
    bool SetOrientation(PrintOrientation orientation) override {
        return Take("orientation", static_cast<int>(orientation));
    }
    bool SetPaperSize(PrintPaper paper) override { return Take("paper", static_cast<int>(paper)); }
    bool SetCopies(int copies) override { return Take("copies", copies); }
    bool SetFont(const SurfaceFont& font) override { return Take("font", static_cast<int>(font.points)); }
    bool IsFile() const override { return isFile; }
    void SetFile(std::u16string_view path) override { file = path; }
    std::optional<PrintFailure> Start(std::u16string_view name) override {
        done.emplace_back("start");
        documentName = name;
        return atStart;
    }
    PrintSheet Sheet() const override {
        return {11907_twips, 16839_twips, 100_twips, 200_twips, 11707_twips, 16439_twips};
    }
    int Passes() const override { return passes; }
    void NewPage() override { done.emplace_back("page"); }
    std::optional<PrintFailure> End() override {
        done.emplace_back("end");
        return atEnd;
    }
    void Cancel() override { done.emplace_back("cancel"); }

    std::vector<std::string> done;
    std::string refused; ///< the one property that it does not take
    bool isFile = false;
    std::u16string file, documentName;
    int passes = 1;
    std::optional<PrintFailure> atStart, atEnd;

private:
    bool Take(const std::string& what, int value) {
        done.push_back(what + " " + std::to_string(value));
        return what != refused;
    }
};

class FakePrinters final : public Printers {
public:
    std::vector<std::u16string> Names() override { return names; }
    bool AreKnown() const override { return known; }
    bool MakeCurrent(std::u16string_view name) override {
        const bool isThere = std::ranges::find(names, name) != names.end();
        if (isThere) {
            current = name;
            printer.done.emplace_back("current");
        }
        return isThere;
    }
    Printer& Current() override { return printer; }

    std::vector<std::u16string> names{u"Laser", std::u16string(kIntoFile)};
    bool known = true;
    std::u16string current;
    FakePrinter printer;
};

/// All services at once.
struct FakePlatform {
    /// The program's files lie on another disk than `files`, if one is given.
    explicit FakePlatform(FileSystem* other = nullptr) : disk(other != nullptr ? *other : files) {}

    FakeSettings store;
    FakeSound sound;
    FakeFiles files;
    FakeFileDialog fileDialog;
    FakeMessageBox messageBox;
    FakeClipboard clipboard;
    FakeTimers timers;
    FakeScreen screen;
    FakeShell shell;
    FakeBackground background;
    FakeProgress progress;
    FakeRecoveryStore recovery;
    FakeClock clock;
    FakePrinters printers;
    FileSystem& disk;
    Platform platform{store,  sound, disk,       fileDialog, messageBox, clipboard, timers,
                      screen, shell, background, progress,   recovery,   clock,     printers};
};

} // namespace quillshift
