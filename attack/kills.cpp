// Kills the typing program at random moments, with a short and with a long text, and looks at what it left.
// Each start restores what the last kill left, in the window. Held is what holds typing up; lost is a damaged
// file, a wrong text, or a letter older than two seconds. At the end it prints the age of the oldest letter
// that was not there.

#include "Table.h"
#include "Turns.h"

#include "document/RecoveryFormat.h"
#include "harness/Editor.h"

#include <algorithm>
#include <chrono>
#include <csignal>
#include <cstdio>
#include <random>
#include <thread>
#include <utility>

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
    explicit KillsAttack(unsigned seed) : random_(seed) {}

    Count Try(std::size_t size, milliseconds limit);
    milliseconds Oldest() const { return oldest_; }

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

    std::mt19937 random_;
    Desktop desktop_;
    std::unique_ptr<Editor> editor_;
    std::size_t size_ = 0; ///< of the text that was typed in last; 0 if there is none
    RecoveredText before_; ///< what the last kill left
    milliseconds oldest_{};
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

Count KillsAttack::Try(std::size_t size, milliseconds limit) {
    if (std::exchange(size_, 0) != size)
        StartWith(size);
    StartAgain();
    auto turns =
        std::make_unique<Turns>(desktop_.ProgramEnvironment("").at("DISPLAY"), editor_->Window(),
                                std::vector<pid_t>{editor_->Program().Pid(), desktop_.Server().Pid()});
    const Typed typed = TypeUntil(Clock::now() + milliseconds(Below(6000)));
    Count count;
    count.longest = turns->TakeLongest();
    count.held = count.longest > limit ? 1 : 0;
    turns.reset(); // it asks the window as long as it is there
    std::this_thread::sleep_for(milliseconds(Below(50)));
    const auto killed = Clock::now();
    kill(editor_->Program().Pid(), SIGKILL);
    editor_->WaitForEnd();
    const auto missing = Missing(typed, killed);
    count.lost = !missing || *missing > 2s ? 1 : 0;
    oldest_ = std::max(oldest_, missing.value_or(0ms));
    if (missing)
        size_ = size;
    return count;
}

int Attack(int argc, char** argv) {
    Table table("kills", argc, argv);
    KillsAttack attack(table.Seed());
    table.Add("killed with 30 KB", [&] { return attack.Try(30 << 10, 50ms); });
    table.Add("killed with 10 MB", [&] { return attack.Try(10 << 20, 100ms); });
    const int result = table.Run();
    std::printf("the oldest letter that was not there: %ld ms\n", static_cast<long>(attack.Oldest().count()));
    return result;
}

} // namespace
} // namespace quillshift::attack

int main(int argc, char** argv) {
    return quillshift::attack::Attack(argc, argv);
}
