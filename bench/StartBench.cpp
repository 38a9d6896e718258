// Times the whole program from outside, on a virtual display: from its start to its first paint, beside an
// empty Qt window's, and what memory it holds with documents of several sizes.

#include "BenchSupport.h"
#include "harness/Editor.h"

#include <chrono>
#include <cstdio>
#include <fstream>

namespace quillshift::e2e {
namespace {

using Clock = std::chrono::steady_clock;
constexpr int kRuns = 11;

// The screen is black where no window has been painted.
bool IsPainted(const Desktop& desktop) {
    return desktop.Pixel({640, 480}) != 0;
}

Clock::time_point StartOnTheBlankScreen(const Desktop& desktop) {
    desktop.WaitUntil("the window before has gone", [&] { return !IsPainted(desktop); });
    return Clock::now();
}

double TimeToFirstPaint(const Desktop& desktop, Clock::time_point start) {
    desktop.WaitUntil("something is painted", [&] { return IsPainted(desktop); });
    return std::chrono::duration<double, std::milli>(Clock::now() - start).count();
}

double TimeOfStart(Desktop& desktop) {
    Editor editor(desktop);
    const auto start = StartOnTheBlankScreen(desktop);
    editor.Launch();
    const double time = TimeToFirstPaint(desktop, start);
    editor.Settle();
    desktop.AskToClose(editor.Window());
    editor.WaitForEnd();
    return time;
}

double TimeOfEmptyWindow(Desktop& desktop) {
    const TemporaryFolder home;
    const auto start = StartOnTheBlankScreen(desktop);
    const Process empty(QUILLSHIFT_EMPTY_WINDOW, {}, desktop.ProgramEnvironment(home.Path()));
    return TimeToFirstPaint(desktop, start);
}

// The memory the program holds once a document of that size is on the screen.
void MeasureMemory(Desktop& desktop, std::size_t megabytes) {
    Editor editor(desktop);
    const auto file = editor.home / "letter.txt";
    std::ofstream letter(file, std::ios::binary);
    const std::string line = "This is a line of a letter of which many come to make it long.\r\n";
    for (std::size_t size = 0; size < megabytes << 20U; size += line.size())
        letter << line;
    letter.close();
    editor.Start();
    const double before = ResidentMegabytes(std::to_string(editor.Program().Pid()));
    editor.Open(file);
    std::printf("memory with %2zu MB of text:  %6.1f MB (%.1f MB without a document)\n", megabytes,
                ResidentMegabytes(std::to_string(editor.Program().Pid())), before);
}

} // namespace
} // namespace quillshift::e2e

int main() {
    using namespace quillshift;
    using namespace quillshift::e2e;
    Desktop desktop;
    const double start = MedianOf<kRuns>([&] { return TimeOfStart(desktop); });
    const double empty = MedianOf<kRuns>([&] { return TimeOfEmptyWindow(desktop); });
    std::printf("start to first paint:        %6.1f ms, an empty Qt window %.1f ms (medians of %d)\n", start,
                empty, kRuns);
    for (const std::size_t megabytes : {1U, 10U})
        MeasureMemory(desktop, megabytes);
    return 0;
}
