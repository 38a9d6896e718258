#pragma once

#include "platform/Platform.h"
#include "support/FakeFiles.h"
#include "support/FakePrinters.h"
#include "support/FakeRecoveryStore.h"
#include "support/FakeSettings.h"

#include <algorithm>
#include <chrono>
#include <deque>
#include <functional>
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
