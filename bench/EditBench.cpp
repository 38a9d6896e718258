#include "BenchSupport.h"
#include "document/Recovery.h"
#include "document/UndoHistory.h"
#include "harness/TemporaryFolder.h"
#include "platform/posix/PosixRecoveryStore.h"
#include "platform/qt/QtTextSurface.h"
#include "platform/qt/QtTimers.h"
#include "support/FakePlatform.h"

#include <benchmark/benchmark.h>

#include <QApplication>

#include <chrono>
#include <tuple>

namespace quillshift {
namespace {

enum Shape { Lines, OneLine };

// The arguments of a benchmark: the document's length in characters, and its shape.
std::u16string TextFor(const benchmark::State& state) {
    std::u16string text;
    while (static_cast<std::int64_t>(text.size()) < state.range(0)) {
        text += u"Я помню чудное мгновенье: передо мной явилась ты ";
        if (state.range(1) == Lines)
            text += u"\r\n";
    }
    return text;
}

// A character typed in the middle, from the call to the paint, with the state recorded for undo.
// "record_us" is the history's share of it, "MB" what the process grew by meanwhile.
void TypeWithUndo(benchmark::State& state) {
    QtTextSurface surface;
    UndoHistory history;
    surface.resize(760, 490);
    surface.show();
    std::chrono::duration<double> recording{};
    surface.OnChange = [&](const TextEdit& edit) {
        const auto begin = std::chrono::steady_clock::now();
        history.Record(edit);
        recording += std::chrono::steady_clock::now() - begin;
    };
    surface.LoadPlain(TextFor(state));
    surface.SetSelStart(surface.Text().size() / 2);
    surface.ensureCursorVisible();
    QApplication::processEvents();
    recording = {};
    const double before = ResidentMegabytes();
    while (state.KeepRunning()) {
        surface.SetSelText(u"я");
        surface.repaint();
    }
    state.counters["MB"] = ResidentMegabytes() - before;
    state.counters["record_us"] =
        benchmark::Counter(recording.count() * 1e6, benchmark::Counter::kAvgIterations);
}

// The same with the unsaved text kept, which is written behind every tenth character. Each is typed into a
// document of the same text that nobody keeps, too: "ratio" is what a key costs with and without. "keep_us"
// is the share of keeping in this thread.
void TypeWithRecovery(benchmark::State& state) {
    constexpr int kCharacters = 10; // in a second
    const auto show = [text = TextFor(state)](QtTextSurface& surface) {
        surface.resize(760, 490);
        surface.show();
        surface.LoadPlain(text);
        surface.SetSelStart(surface.Text().size() / 2);
        surface.ensureCursorVisible();
        QApplication::processEvents();
    };
    const auto type = [](QtTextSurface& surface) {
        surface.SetSelText(u"я");
        surface.repaint();
    };
    const TemporaryFolder folder;
    PosixRecoveryStore store(folder.Path(), [](const std::function<void()>&) {});
    FakeSettings values;
    Settings settings(values);
    QtTimers timers;
    DocumentState document;
    QtTextSurface lost;
    QtTextSurface kept;
    UndoHistory lostHistory;
    UndoHistory keptHistory;
    Recovery recovery({store, settings, timers, document, kept});
    show(lost);
    show(kept);
    double keeping = 0; // milliseconds, as all here
    double withoutKeeping = 0;
    double withKeeping = 0;
    lost.OnChange = [&](const TextEdit& edit) { lostHistory.Record(edit); };
    kept.OnChange = [&](const TextEdit& edit) {
        keptHistory.Record(edit);
        keeping += MillisecondsOf([&] { recovery.Edited(kept, edit); });
    };
    int typed = 0;
    while (state.KeepRunning()) {
        withoutKeeping += MillisecondsOf([&] { type(lost); });
        const double key = MillisecondsOf([&] {
            type(kept);
            if (++typed % kCharacters == 0)
                keeping += MillisecondsOf([&] { recovery.Flush(); });
        });
        withKeeping += key;
        state.SetIterationTime(key / 1e3);
    }
    state.counters["keep_us"] = benchmark::Counter(keeping * 1e3, benchmark::Counter::kAvgIterations);
    state.counters["ratio"] = withKeeping / withoutKeeping;
}

// The baseline: the bare widget, whose own undo is off.
void TypeInTheBareWidget(benchmark::State& state) {
    QTextEdit widget;
    widget.document()->setUndoRedoEnabled(false);
    widget.resize(760, 490);
    widget.show();
    widget.setPlainText(QString::fromStdU16String(TextFor(state)));
    QTextCursor cursor = widget.textCursor();
    cursor.setPosition(widget.document()->characterCount() / 2);
    widget.setTextCursor(cursor);
    QApplication::processEvents();
    while (state.KeepRunning()) {
        widget.insertPlainText(QStringLiteral("я"));
        widget.repaint();
    }
}
// As many characters for both: what is typed makes the line longer, and the work with it.
void TypeThese(benchmark::internal::Benchmark* benchmark, std::int64_t length, Shape shape,
               std::int64_t characters) {
    benchmark->Args({length, shape})->Iterations(characters)->Unit(benchmark::kMicrosecond);
}
[[maybe_unused]] const bool kRegistered = [] {
    // For its memory, and so the first of all, while none is left over from others.
    TypeThese(benchmark::RegisterBenchmark("TypeWithUndo", TypeWithUndo), 1 << 20, Lines, 10000);
    for (const auto& [length, shape, characters] :
         {std::tuple(10 << 10, Lines, 2000), std::tuple(1 << 20, Lines, 500), std::tuple(10 << 20, Lines, 30),
          std::tuple(1 << 20, OneLine, 10)}) {
        TypeThese(benchmark::RegisterBenchmark("TypeWithUndo", TypeWithUndo), length, shape, characters);
        TypeThese(benchmark::RegisterBenchmark("TypeWithRecovery", TypeWithRecovery)->UseManualTime(), length,
                  shape, characters);
        TypeThese(benchmark::RegisterBenchmark("TypeInTheBareWidget", TypeInTheBareWidget), length, shape,
                  characters);
    }
    return true;
}();

} // namespace
} // namespace quillshift
