// Kills the typing program at random moments, with a short and with a long text, and looks at what it left.
// Each start restores what the last kill left, in the window. Prints how often that was tried, how often
// typing was held up, how often something was lost (a damaged file, a wrong text, a letter older than two
// seconds), the longest turn of the event loop and the age of the oldest letter that was not there.

#include "Turns.h"

#include "document/RecoveryFormat.h"
#include "harness/Editor.h"

#include <algorithm>
#include <chrono>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <random>
#include <thread>

namespace quillshift::attack {
namespace {

using namespace e2e;
using namespace std::chrono_literals;
using Clock = std::chrono::steady_clock;
using std::chrono::milliseconds;

constexpr std::u16string_view kLetters = u"abcdefghijklmnopqrstuvwxyz";

std::string LinesOf(std::size_t size) {
    std::string text;
    while (text.size() < size)
        text +=
            "Line " + std::to_string(text.size()) + " of the text that is to be there after each kill\r\n";
    return text;
}

class KillsAttack {
public:
    KillsAttack(int tries, unsigned seed) : tries_(tries), random_(seed) {}

    /// Whether nothing was lost and typing was never held up.
    bool Run(const char* name, std::size_t size, milliseconds limit);

private:
    struct Typed {
        std::u16string text;
        std::vector<Clock::time_point> when;
    };

    void StartWith(std::size_t size);
    void StartAgain();
    Typed TypeUntil(Clock::time_point end);
    std::optional<RecoveredText> Left() const;
    /// How old the oldest letter is that the text left does not have; nothing if it is another text.
    std::optional<milliseconds> Missing(const Typed& typed, Clock::time_point killed);
    int Below(int limit) { return static_cast<int>(random_() % static_cast<unsigned>(limit)); }

    int tries_;
    std::mt19937 random_;
    Desktop desktop_;
    std::unique_ptr<Editor> editor_;
    RecoveredText before_; ///< what the last kill left
};

std::optional<RecoveredText> KillsAttack::Left() const {
    std::optional<RecoveredText> left;
    std::error_code missing;
    for (const auto& file :
         std::filesystem::directory_iterator(editor_->home / "state/quillshift/recovery", missing))
        if (file.path().extension() == ".text")
            left = left ? std::nullopt : ReadRecoveryFile(Contents(file.path()));
    return left;
}

void KillsAttack::StartWith(std::size_t size) {
    editor_ = std::make_unique<Editor>(desktop_);
    const std::filesystem::path file = editor_->home / "text.txt";
    Put(file, LinesOf(size));
    editor_->Start().Open(file);
    desktop_.Press("Ctrl+Home");
    desktop_.Type(u"x");
    desktop_.WaitUntil("the text is kept", [this] { return Left().has_value(); });
    before_ = *Left();
    kill(editor_->Program().Pid(), SIGKILL);
    editor_->WaitForEnd();
}

void KillsAttack::StartAgain() {
    editor_->Launch();
    editor_->SettleIn(u"Восстановление текста");
    desktop_.Press("Return");
    editor_->Settle();
}

KillsAttack::Typed KillsAttack::TypeUntil(Clock::time_point end) {
    Typed typed;
    while (Clock::now() < end) {
        const char16_t letter = kLetters[typed.text.size() % kLetters.size()];
        typed.when.push_back(Clock::now());
        typed.text += letter;
        desktop_.Type({&letter, 1});
        std::this_thread::sleep_for(
            std::min<Clock::duration>(milliseconds(10 + Below(150)), end - Clock::now()));
    }
    return typed;
}

std::optional<milliseconds> KillsAttack::Missing(const Typed& typed, Clock::time_point killed) {
    auto left = Left();
    if (!left || left->text.size() < before_.text.size())
        return std::nullopt;
    const std::size_t there = left->text.size() - before_.text.size();
    std::u16string expected = before_.text;
    expected.insert(before_.place.caret, typed.text.substr(0, there));
    if (left->text != expected)
        return std::nullopt;
    before_ = std::move(*left);
    const auto age = there < typed.when.size() ? killed - typed.when[there] : Clock::duration::zero();
    return std::chrono::duration_cast<milliseconds>(age);
}

bool KillsAttack::Run(const char* name, std::size_t size, milliseconds limit) {
    StartWith(size);
    int held = 0;
    int lost = 0;
    std::chrono::microseconds longest{};
    milliseconds oldest{};
    for (int tried = 0; tried < tries_; ++tried) {
        StartAgain();
        auto turns =
            std::make_unique<Turns>(desktop_.ProgramEnvironment("").at("DISPLAY"), editor_->Window(),
                                    std::vector<pid_t>{editor_->Program().Pid(), desktop_.Server().Pid()});
        const Typed typed = TypeUntil(Clock::now() + milliseconds(Below(6000)));
        const auto turn = turns->TakeLongest();
        turns.reset(); // it asks the window as long as it is there
        std::this_thread::sleep_for(milliseconds(Below(50)));
        const auto killed = Clock::now();
        kill(editor_->Program().Pid(), SIGKILL);
        editor_->WaitForEnd();
        held += turn > limit ? 1 : 0;
        longest = std::max(longest, turn);
        const auto missing = Missing(typed, killed);
        lost += !missing || *missing > 2s ? 1 : 0;
        oldest = std::max(oldest, missing.value_or(0ms));
        if (!missing)
            StartWith(size);
    }
    std::printf("%-30s %6d %6d %6d %10.1f %10.1f\n", name, tries_, held, lost,
                static_cast<double>(longest.count()) / 1000, static_cast<double>(oldest.count()));
    std::fflush(stdout);
    return held == 0 && lost == 0;
}

} // namespace
} // namespace quillshift::attack

// Arguments: how often each is tried (10), and a seed, which is printed otherwise.
int main(int argc, char** argv) {
    const int tries = argc > 1 ? std::atoi(argv[1]) : 10;
    const unsigned seed = argc > 2 ? static_cast<unsigned>(std::atol(argv[2])) : std::random_device()();
    std::printf("seed %u\n%-30s %6s %6s %6s %10s %10s\n", seed, "", "tries", "held", "lost", "longest ms",
                "oldest ms");
    quillshift::attack::KillsAttack attack(tries, seed);
    const bool isShortKept = attack.Run("killed with 30 KB", 30 << 10, std::chrono::milliseconds(50));
    const bool isLongKept = attack.Run("killed with 10 MB", 10 << 20, std::chrono::milliseconds(100));
    return isShortKept && isLongKept ? 0 : 1;
}
