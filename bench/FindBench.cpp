// Searching beside the standard library's own search, replacing everywhere, and the dialogs' way to the
// screen.

#include "BenchSupport.h"
#include "document/Search.h"
#include "document/UndoHistory.h"
#include "document/frmFind.h"
#include "document/frmGoTo.h"
#include "document/frmReplace.h"
#include "platform/qt/QtTextSurface.h"
#include "platform/qt/TextFind.h"
#include "support/TestProgram.h"

#include <benchmark/benchmark.h>

#include <QApplication>

#include <string>

namespace quillshift {
namespace {

std::u16string Letter(std::size_t length, bool inLines = true) {
    std::u16string text;
    text.reserve(length);
    while (text.size() < length)
        text += inLines ? u"Я помню чудное мгновенье: передо мной явилась ты, "
                          u"как мимолётное виденье, как гений чистой красоты.\r\n"
                        : u"Я помню чудное мгновенье: передо мной явилась ты, "
                          u"как мимолётное виденье, как гений чистой красоты. ";
    return text;
}

constexpr std::u16string_view kMissing[] = {u"я", u"красоты?", u"Ёж, которого здесь нет"};

// A missing text in 10 MB of letters. `number`: which of them; the first is a letter that isn't there.
void PlainFind(benchmark::State& state, std::size_t number) {
    std::u16string text = Letter(10 << 20);
    std::replace(text.begin(), text.end(), u'я', u'й');
    std::replace(text.begin(), text.end(), u'Я', u'й');
    for ([[maybe_unused]] const auto round : state)
        benchmark::DoNotOptimize(text.find(kMissing[number]));
}
void Find(benchmark::State& state, std::size_t number, FindOptions options) {
    std::u16string text = Letter(10 << 20);
    std::replace(text.begin(), text.end(), u'я', u'й');
    std::replace(text.begin(), text.end(), u'Я', u'й');
    for ([[maybe_unused]] const auto round : state)
        benchmark::DoNotOptimize(FindText(text, kMissing[number], 0, options));
}

// 10,000 replacements in 1 MB, from the answer to the painted document; "MB" is what the process grew by.
void ReplaceAll(benchmark::State& state, bool inLines) {
    TestProgram test;
    std::u16string text = Letter(1 << 20, inLines);
    for (std::size_t i = 0; i < 10000; ++i)
        text[i * (text.size() / 10000) + 3] = u'#';
    QtTextSurface surface;
    surface.resize(760, 490);
    surface.show();
    Search search({surface, test.messageBox, test.progress, *test.dialogs});
    UndoHistory history;
    surface.OnChange = [&](const TextEdit& edit) { history.Record(edit); };
    double grown = 0;
    for ([[maybe_unused]] const auto round : state) {
        state.PauseTiming();
        surface.LoadPlain(text);
        search.ReplaceState() = {.wanted = u"#", .replacement = u"замена", .options = {}, .goesOn = true};
        test.messageBox.answers = {BoxAnswer::Yes};
        QApplication::processEvents();
        const double before = ResidentMegabytes();
        state.ResumeTiming();
        search.ReplaceAll();
        surface.repaint();
        grown = std::max(grown, ResidentMegabytes() - before);
    }
    if (surface.Text().size() != text.size() + 50000)
        state.SkipWithError("not all were replaced");
    state.counters["MB"] = grown;
}

// From the command to the painted dialog, over a document of 1 MB.
template <typename Form, typename Component>
void OpenDialog(benchmark::State& state, Component ProgramParts::*component) {
    TestProgram test;
    ProgramParts& parts = test.program.Parts();
    for ([[maybe_unused]] const auto round : state) {
        Form dialog({parts.platform, parts.settings, parts.sounds, nullptr}, parts.*component);
        dialog.show();
        QApplication::processEvents();
        dialog.repaint();
    }
}

void LineCount(benchmark::State& state) {
    QtTextSurface surface;
    surface.resize(300, 490);
    surface.show();
    surface.LoadPlain(Letter(1 << 20));
    QApplication::processEvents();
    for ([[maybe_unused]] const auto round : state)
        benchmark::DoNotOptimize(surface.LineCount());
}

[[maybe_unused]] const bool kRegistered = [] {
    using enum benchmark::TimeUnit;
    for (const bool inLines : {true, false})
        benchmark::RegisterBenchmark(inLines ? "ReplaceAll/lines" : "ReplaceAll/one_line", ReplaceAll,
                                     inLines)
            ->Unit(kMillisecond)
            ->Iterations(3);
    for (std::size_t number = 0; number < std::size(kMissing); ++number) {
        const std::string length = std::to_string(kMissing[number].size()) + "_letters";
        benchmark::RegisterBenchmark(("PlainFind/" + length).c_str(), PlainFind, number)->Unit(kMillisecond);
        benchmark::RegisterBenchmark(("FindWithCase/" + length).c_str(), Find, number, FindOptions::MatchCase)
            ->Unit(kMillisecond);
        benchmark::RegisterBenchmark(("FindWithoutCase/" + length).c_str(), Find, number, FindOptions::None)
            ->Unit(kMillisecond);
    }
    benchmark::RegisterBenchmark("OpenDialog/Find", OpenDialog<frmFind, Search>, &ProgramParts::search)
        ->Unit(kMillisecond);
    benchmark::RegisterBenchmark("OpenDialog/Replace", OpenDialog<frmReplace, Search>, &ProgramParts::search)
        ->Unit(kMillisecond);
    benchmark::RegisterBenchmark("OpenDialog/GoTo", OpenDialog<frmGoTo, GoToLine>, &ProgramParts::lines)
        ->Unit(kMillisecond);
    benchmark::RegisterBenchmark("LineCount", LineCount)->Unit(kMillisecond)->Iterations(3);
    return true;
}();

} // namespace
} // namespace quillshift
