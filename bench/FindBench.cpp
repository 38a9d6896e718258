// Searching beside the standard library's own search, replacing everywhere, and the dialogs' way to the
// screen.

#include "BenchSupport.h"
#include "document/Search.h"
#include "document/UndoHistory.h"
#include "platform/qt/QtTextSurface.h"
#include "platform/qt/TextFind.h"
#include "shell/ProgramDialogs.h"
#include "support/TestProgram.h"

#include <benchmark/benchmark.h>

#include <QApplication>
#include <QWindow>

#include <string>

namespace quillshift {
namespace {

constexpr std::size_t kSigns = 10000;

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

// 1 MB with 10,000 signs that are to be replaced.
std::u16string LetterWithSigns(bool inLines) {
    std::u16string text = Letter(1 << 20, inLines);
    for (std::size_t i = 0; i < kSigns; ++i) {
        const std::size_t stretch = i * (text.size() / kSigns);
        text[text.find_first_not_of(u"\r\n", stretch)] = u'#';
    }
    return text;
}

/// Counts how often a widget is painted.
class Paints final : public QObject {
public:
    explicit Paints(QWidget& widget) { widget.installEventFilter(this); }
    int count = 0;

private:
    bool eventFilter(QObject* /*watched*/, QEvent* event) override {
        count += event->type() == QEvent::Paint ? 1 : 0;
        return false;
    }
};

// From the answer to the painted document; "MB" is what the process grew by.
void ReplaceAll(benchmark::State& state, bool inLines) {
    TestProgram test;
    const std::u16string text = LetterWithSigns(inLines);
    QtTextSurface surface;
    surface.resize(760, 490);
    surface.show();
    Search search({surface, test.messageBox, test.progress, *test.dialogs});
    UndoHistory history;
    surface.OnChange = [&](const TextEdit& edit) { history.Record(edit); };
    Paints paints(*surface.viewport());
    double grown = 0;
    for ([[maybe_unused]] const auto round : state) {
        state.PauseTiming();
        surface.LoadPlain(text);
        search.ReplaceState() = {.wanted = u"#", .replacement = u"замена", .options = {}, .goesOn = true};
        test.messageBox.answers = {BoxAnswer::Yes};
        QApplication::processEvents();
        const double before = ResidentMegabytes();
        paints.count = 0;
        state.ResumeTiming();
        search.ReplaceAll();
        QApplication::processEvents();
        grown = std::max(grown, ResidentMegabytes() - before);
    }
    if (surface.Text().size() != text.size() + kSigns * 5)
        state.SkipWithError("not all were replaced");
    state.counters["MB"] = grown;
    state.counters["paints"] = paints.count;
}

void ShowUntilPainted(QDialog& dialog) {
    dialog.show();
    while (dialog.isVisible() && !dialog.windowHandle()->isExposed())
        QApplication::processEvents(QEventLoop::WaitForMoreEvents);
    dialog.repaint();
}

// From the command to the painted dialog.
void OpenDialog(benchmark::State& state, DialogKind kind) {
    TestProgram test;
    QWidget owner;
    owner.show();
    const ProgramDialogs dialogs(test.program.Parts(), owner);
    for ([[maybe_unused]] const auto round : state) {
        const auto dialog = dialogs.Make(kind);
        ShowUntilPainted(*dialog);
        state.SetLabel(dialog->windowTitle().toStdString());
    }
}

// What the toolkit and the window system take for their part.
void OpenEmptyDialog(benchmark::State& state) {
    for ([[maybe_unused]] const auto round : state) {
        QDialog dialog;
        ShowUntilPainted(dialog);
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
    benchmark::RegisterBenchmark("OpenDialog/empty", OpenEmptyDialog)->Unit(kMillisecond);
    for (const DialogKind kind : ProgramDialogs::Kinds())
        benchmark::RegisterBenchmark("OpenDialog", OpenDialog, kind)->Unit(kMillisecond);
    benchmark::RegisterBenchmark("LineCount", LineCount)->Unit(kMillisecond)->Iterations(3);
    return true;
}();

} // namespace
} // namespace quillshift
