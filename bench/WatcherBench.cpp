// What the clipboard watcher costs, on a virtual display: how often the idle program wakes up, and how long a
// text takes from the other program to the screen.

#include "BenchSupport.h"
#include "harness/Editor.h"

#include <chrono>
#include <cstdio>
#include <thread>

namespace quillshift::e2e {
namespace {

constexpr int kRuns = 11;
constexpr std::chrono::seconds kWatched{10};

void Watch(Editor& editor) {
    editor.Set(Setting::ClipboardDetect, u"1")
        .Set(Setting::DecodeClipboard, u"0")
        .Set(Setting::SaveChange, u"0")
        .Start();
}

// How often its threads are given the processor while nobody does anything.
long WakeUps(const Process& program) {
    const long before = program.Work().turns;
    std::this_thread::sleep_for(kWatched);
    return program.Work().turns - before;
}

void MeasureIdling(Desktop& desktop) {
    const TemporaryFolder home;
    const Process empty(QUILLSHIFT_EMPTY_WINDOW, {}, desktop.ProgramEnvironment(home.Path()));
    Editor editor(desktop);
    Watch(editor);
    const long blinking = WakeUps(editor.Program());
    std::this_thread::sleep_for(3 * kWatched); // the toolkit clears a cache half a minute later
    std::printf("wake-ups in %d s of idleness:  %ld, an empty Qt window %ld (%ld while the caret blinks)\n",
                static_cast<int>(kWatched.count()), WakeUps(editor.Program()), WakeUps(empty), blinking);
}

class Copier {
public:
    Copier(const Desktop& desktop, Editor& editor) : desktop_(desktop), home_(editor.home.Path()) {}

    void Copy(const std::string& text) const {
        Put(home_ / "copied.txt", text);
        Process("xclip", {"-silent", "-selection", "clipboard", "-i", home_ / "copied.txt"}, Environment())
            .WaitForEnd();
    }
    // As another program reads it.
    void Read() const {
        Process("sh", {"-c", "xclip -selection clipboard -o >" + (home_ / "read.txt").string()},
                Environment())
            .WaitForEnd();
    }

private:
    e2e::Environment Environment() const { return desktop_.ProgramEnvironment(home_.string()); }
    const Desktop& desktop_;
    std::filesystem::path home_;
};

void MeasureLatency(Desktop& desktop, std::size_t characters) {
    Editor editor(desktop);
    Watch(editor);
    const Copier other(desktop, editor);
    const Rect window = desktop.Place(editor.Window());
    const Rect text = RectAt(window.left + 12, window.top + 80, 60, 24);
    char letter = 'A';
    const auto next = [&] {
        letter = letter == 'A' ? 'W' : 'A';
        std::string copied;
        while (copied.size() < characters)
            copied += std::string(60, letter) + "\n";
        return copied;
    };
    const double painted = MedianOf<kRuns>([&] {
        desktop.WaitUntilQuiet(editor.Program());
        const auto before = desktop.Pixels(text);
        const std::string copied = next();
        return MillisecondsOf([&] {
            other.Copy(copied);
            while (desktop.Pixels(text) == before)
                ;
        });
    });
    const double read = MedianOf<kRuns>([&] {
        const std::string copied = next();
        return MillisecondsOf([&] {
            other.Copy(copied);
            other.Read();
        });
    });
    std::printf(
        "a copied text of %7zu characters: %6.1f ms until it is painted, %.1f ms until another program "
        "has read it (medians of %d)\n",
        characters, painted, read, kRuns);
}

} // namespace
} // namespace quillshift::e2e

int main() {
    using namespace quillshift::e2e;
    Desktop desktop;
    MeasureIdling(desktop);
    for (const std::size_t characters : {1000U, 1000000U})
        MeasureLatency(desktop, characters);
    return 0;
}
