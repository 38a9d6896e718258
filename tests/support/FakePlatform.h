#pragma once

#include "platform/Platform.h"
#include "support/FakeFiles.h"

#include <algorithm>
#include <chrono>
#include <deque>
#include <functional>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <utility>
#include <vector>

namespace quillshift {

/// Plays nothing and remembers the paths it was to play.
class FakeSound : public SoundOutput {
public:
    void Play(std::u16string_view path) override { played.emplace_back(path); }
    void PlayFromMemory(std::string bytes) override { playedFromMemory.push_back(std::move(bytes)); }
    void WaitForEnd() override { ended = played; }

    std::vector<std::u16string> played;
    std::vector<std::string> playedFromMemory;
    std::vector<std::u16string> ended; ///< those that somebody has waited for
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
        if (whileShown)
            whileShown();
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
    std::function<void()> whileShown;
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
        return text ? std::optional(CopiedText{*text, isWhole, isRepaired}) : std::nullopt;
    }
    bool IsWaiting() const override { return isWaiting; }
    bool HasText() const override { return !text || !text->empty(); }
    void SetText(std::u16string_view value) override { Hold(std::u16string(value)); }
    void SetRepaired(std::u16string_view value) override { Hold(std::u16string(value), true, true); }
    void Clear() override { SetText(u""); }
    void HandOver() override { handedOver = text; }

    /// Another program copies a text, or doesn't tell which.
    void Hold(std::optional<std::u16string> value, bool whole = true, bool repaired = false) {
        text = std::move(value);
        isWhole = whole;
        isRepaired = repaired;
        if (OnChange)
            OnChange();
    }
    std::optional<std::u16string> text = u""; ///< nothing: its owner doesn't answer
    bool isWhole = true;
    bool isRepaired = false;
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

/// A job is long where the test says so: then it is time for a step at every `dueEach`th question.
class FakeProgress final : public Progress {
public:
    std::unique_ptr<ProgressWindow> Begin(std::u16string_view) override {
        return std::make_unique<Window>(*this);
    }
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

/// The settings tree in memory, which lets a test look at what is stored.
class FakeSettings : public SettingsBackend {
public:
    std::optional<StoredValue> Read(std::string_view path, std::string_view name) override {
        const auto found = values.find(KeyOf(path, name));
        return found == values.end() ? std::nullopt : std::optional(found->second);
    }
    void Write(std::string_view path, std::string_view name, const StoredValue& value) override {
        values[KeyOf(path, name)] = value;
    }

    using Key = std::pair<std::string, std::string>;
    std::map<Key, StoredValue> values; ///< keys in lower case

private:
    static std::string Lower(std::string text) {
        for (char& c : text)
            c = c >= 'A' && c <= 'Z' ? static_cast<char>(c + 32) : c;
        return text;
    }
    static Key KeyOf(std::string_view path, std::string_view name) {
        return {Lower(std::string(path)), Lower(std::string(name))};
    }
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
    std::optional<PrintFailure> End(const std::function<bool()>& goesOn) override {
        done.emplace_back("end");
        while (isSlow)
            if (!goesOn())
                return std::nullopt;
        return atEnd;
    }
    void Cancel() override { done.emplace_back("cancel"); }

    std::vector<std::string> done;
    std::string refused; ///< the properties that it does not take, with blanks between
    bool isFile = false;
    std::u16string file, documentName;
    int passes = 1;
    bool isSlow = false; ///< takes no document at its end
    std::optional<PrintFailure> atStart, atEnd;

private:
    bool Take(const std::string& what, int value) {
        done.push_back(what + " " + std::to_string(value));
        return (' ' + refused + ' ').find(' ' + what + ' ') == std::string::npos;
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
    std::u16string CurrentName() const override { return current; }

    std::vector<std::u16string> names{u"Laser", std::u16string(kIntoFile)};
    bool known = true;
    std::u16string current;
    FakePrinter printer;
};

/// Does at once what it is told, in memory. `fails`: as on a full disk.
class FakeRecoveryStore final : public RecoveryStore {
public:
    void Replace(std::function<std::string()> contents) override {
        ++wholes;
        hasFailed_ = false;
        if (Can(true))
            file = contents();
    }
    void Append(std::string bytes) override {
        if (Can(file.has_value()))
            *file += bytes;
    }
    void Rewrite(std::function<std::optional<std::string>(std::string_view)> shorten) override {
        const auto shorter = file ? shorten(*file) : std::nullopt;
        if (Can(shorter.has_value()))
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
    void Release() override {}

    /// The event in which failures are told of.
    void PassEvent() {
        if (std::exchange(isUntold_, false))
            OnFailure();
    }

    std::optional<std::string> file, kept;
    std::vector<LeftFile> left;
    std::vector<std::string> trash;
    bool fails = false;
    int wholes = 0;
    int rewrites = 0;
    int finishes = 0;

private:
    bool Can(bool possible) {
        if (!hasFailed_ && (fails || !possible))
            hasFailed_ = isUntold_ = true;
        return !hasFailed_;
    }

    bool hasFailed_ = false;
    bool isUntold_ = false;
};

/// All services at once.
struct FakePlatform {
    /// The program's files lie on another disk than `files`, if one is given.
    explicit FakePlatform(FileSystem* other = nullptr);
    ~FakePlatform();
    FakePlatform(const FakePlatform&) = delete;
    FakePlatform& operator=(const FakePlatform&) = delete;

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
