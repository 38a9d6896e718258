#include "BenchSupport.h"
#include "base/Windows1251.h"
#include "document/rtf/RtfReader.h"
#include "platform/qt/QtText.h"
#include "platform/qt/QtTextSurface.h"

#include <benchmark/benchmark.h>

#include <QAbstractTextDocumentLayout>
#include <QApplication>
#include <QKeyEvent>
#include <QTextBlock>
#include <QTextDocument>

#include <algorithm>

namespace quillshift {
namespace {

std::string Letter(std::int64_t bytes) {
    const std::string line =
        windows1251::Encode(u"Я помню чудное мгновенье: передо мной явилась ты, как гений\r\n");
    std::string text;
    text.reserve(static_cast<std::size_t>(bytes) + line.size());
    while (text.size() < static_cast<std::size_t>(bytes))
        text += line;
    return text;
}

// So many bytes in lines of that length.
std::string Lines(std::int64_t bytes, std::int64_t letters) {
    std::string line = Letter(letters);
    line.erase(std::remove_if(line.begin(), line.end(), [](char c) { return c == '\r' || c == '\n'; }),
               line.end());
    line.resize(static_cast<std::size_t>(letters), ' ');
    line += "\r\n";
    std::string text;
    text.reserve(static_cast<std::size_t>(bytes));
    while (text.size() + line.size() <= static_cast<std::size_t>(bytes))
        text += line;
    return text;
}

// From the file's bytes to the first paint; the arguments are megabytes and the letters of a line. "whole_ms"
// is until all is in the document, "slice_ms" the longest time meanwhile that an event has to wait, "MB" what
// the process grew by.
void OpenInTheSurface(benchmark::State& state) {
    const std::string bytes = Lines(state.range(0) << 20, state.range(1));
    double longest = 0;
    double whole = 0;
    while (state.KeepRunning()) {
        const double before = ResidentMegabytes();
        QtTextSurface surface;
        surface.resize(760, 490);
        surface.show();
        QApplication::processEvents();
        std::string file = bytes;
        const double first = MillisecondsOf([&] {
            surface.LoadBytes(PlainBytes(std::move(file)));
            surface.repaint();
        });
        state.SetIterationTime(first / 1e3);
        const auto lines = static_cast<int>(bytes.size()) / static_cast<int>(state.range(1) + 2);
        const double rest = MillisecondsOf([&] {
            while (surface.document()->blockCount() <= lines)
                longest = std::max(longest, MillisecondsOf([] { QApplication::processEvents(); }));
        });
        whole += first + rest;
        state.counters["MB"] = ResidentMegabytes() - before;
    }
    state.counters["slice_ms"] = longest;
    state.counters["whole_ms"] = benchmark::Counter(whole, benchmark::Counter::kAvgIterations);
}
BENCHMARK(OpenInTheSurface)
    ->ArgsProduct({{1, 10, 50}, {40, 60, 230}})
    ->Unit(benchmark::kMillisecond)
    ->UseManualTime()
    ->Iterations(3);

// The baseline of filling: the toolkit's document, which nobody lays out.
class NoLayout final : public QAbstractTextDocumentLayout {
public:
    using QAbstractTextDocumentLayout::QAbstractTextDocumentLayout;
    void draw(QPainter* /*painter*/, const PaintContext& /*context*/) override {}
    int hitTest(const QPointF& /*point*/, Qt::HitTestAccuracy /*accuracy*/) const override { return 0; }
    int pageCount() const override { return 1; }
    QSizeF documentSize() const override { return {}; }
    QRectF frameBoundingRect(QTextFrame* /*frame*/) const override { return {}; }
    QRectF blockBoundingRect(const QTextBlock& /*block*/) const override { return {}; }

protected:
    void documentChanged(int /*from*/, int /*removed*/, int /*added*/) override {}
};

void FillADocumentAlone(benchmark::State& state) {
    const std::string bytes = Lines(state.range(0) << 20, state.range(1));
    while (state.KeepRunning()) {
        QTextDocument document;
        document.setDocumentLayout(new NoLayout(&document));
        document.setPlainText(ToQString(windows1251::Decode(bytes)));
    }
}
BENCHMARK(FillADocumentAlone)
    ->ArgsProduct({{1, 10, 50}, {40, 60, 230}})
    ->Unit(benchmark::kMillisecond)
    ->Iterations(3);

// A file that is one word without end, as encoded data is. A million characters are to take at most twelve
// times as long as a hundred thousand; the bare widget needs a hundred times as long.
void OpenOneWord(benchmark::State& state) {
    const std::u16string word(static_cast<std::size_t>(state.range(0)), u'ж');
    while (state.KeepRunning()) {
        QtTextSurface surface;
        surface.resize(760, 490);
        surface.show();
        surface.LoadPlain(word);
        surface.repaint();
        QApplication::processEvents();
    }
}
BENCHMARK(OpenOneWord)->Arg(100'000)->Arg(1'000'000)->Unit(benchmark::kMillisecond)->Iterations(3);

// The baseline: the bare widget with the same text.
void OpenInTheBareWidget(benchmark::State& state) {
    const std::string bytes = Letter(state.range(0));
    while (state.KeepRunning()) {
        const double before = ResidentMegabytes();
        QTextEdit widget;
        widget.resize(760, 490);
        widget.show();
        widget.setPlainText(ToQString(windows1251::Decode(bytes)));
        widget.repaint();
        QApplication::processEvents();
        state.counters["MB"] = ResidentMegabytes() - before;
    }
}
BENCHMARK(OpenInTheBareWidget)->Arg(1 << 20)->Arg(10 << 20)->Unit(benchmark::kMillisecond)->Iterations(3);

// Ten megabytes of RTF, from its bytes to the first paint; its baseline is the same text as a plain file.
std::string RtfLetter() {
    std::string rtf = "{\\rtf1\\ansi\\ansicpg1251{\\fonttbl{\\f0\\fcharset204 Arial;}}";
    while (rtf.size() < 10 << 20)
        rtf += "{\\b \\'dd\\'f2\\'ee} \\'ef\\'f0\\'ee\\'f1\\'f2\\'ee\\'e9 text in a line\\par\r\n";
    return rtf + "}";
}

template <typename Load>
void OpenLoaded(benchmark::State& state, Load load) {
    while (state.KeepRunning()) {
        QtTextSurface surface;
        surface.resize(760, 490);
        surface.show();
        load(surface);
        surface.repaint();
        QApplication::processEvents();
    }
}

void OpenTenMegabytesOfRtf(benchmark::State& state) {
    const std::string rtf = RtfLetter();
    OpenLoaded(state, [&](QtTextSurface& surface) { surface.LoadRich(ReadRtf(rtf)); });
}
BENCHMARK(OpenTenMegabytesOfRtf)->Unit(benchmark::kMillisecond)->Iterations(3);

void OpenItsTextAsPlain(benchmark::State& state) {
    const std::string plain = windows1251::Encode(ReadRtf(RtfLetter()).text);
    OpenLoaded(state, [&](QtTextSurface& surface) { surface.LoadPlain(windows1251::Decode(plain)); });
}
BENCHMARK(OpenItsTextAsPlain)->Unit(benchmark::kMillisecond)->Iterations(3);

// A typed character in the middle, and asking for the whole text behind it.
void TypeInTheSurface(benchmark::State& state) {
    QtTextSurface surface;
    surface.resize(760, 490);
    surface.show();
    surface.LoadPlain(windows1251::Decode(Letter(state.range(0))));
    surface.SetSelStart(surface.Text().size() / 2);
    while (state.KeepRunning()) {
        surface.SetSelText(u"я");
        benchmark::DoNotOptimize(surface.Text().size());
    }
}
BENCHMARK(TypeInTheSurface)->Arg(10 << 10)->Arg(1 << 20)->Arg(10 << 20)->Unit(benchmark::kMicrosecond);

// The baseline: the same in the bare widget, without the text.
void TypeInTheBareWidget(benchmark::State& state) {
    QTextEdit widget;
    widget.resize(760, 490);
    widget.show();
    widget.setPlainText(ToQString(windows1251::Decode(Letter(state.range(0)))));
    QTextCursor cursor = widget.textCursor();
    cursor.setPosition(widget.document()->characterCount() / 2);
    widget.setTextCursor(cursor);
    while (state.KeepRunning())
        widget.insertPlainText(QStringLiteral("я"));
}
BENCHMARK(TypeInTheBareWidget)->Arg(10 << 10)->Arg(1 << 20)->Arg(10 << 20)->Unit(benchmark::kMicrosecond);

// --- Keys in long texts

enum Shape { InLines, OneLine, OneWord };

std::u16string TextToTypeIn(const benchmark::State& state) {
    std::string bytes = Letter(state.range(0) << 20);
    const auto isBreak = [](char c) { return c == '\r' || c == '\n'; };
    if (state.range(2) != InLines)
        bytes.erase(std::remove_if(bytes.begin(), bytes.end(), isBreak), bytes.end());
    if (state.range(2) == OneWord)
        bytes.erase(std::remove_if(bytes.begin(), bytes.end(),
                                   [](char c) { return c == ' ' || c == ':' || c == ','; }),
                    bytes.end());
    return windows1251::Decode(bytes);
}

// The start, the middle and the end of a text, and where the first part of a long line meets the second.
enum Place { AtStart, InMiddle, AtEnd, AtBorder };

int PlaceToTypeAt(const QTextDocument& document, std::int64_t place) {
    return place == AtBorder ? document.begin().next().position()
                             : (document.characterCount() - 1) / 2 * static_cast<int>(place);
}

// Letters typed at a place of so many megabytes, each from the event to the paint. The first and the longest
// one count: the first may have something to catch up on.
template <typename Edit>
void TypeLetters(benchmark::State& state, Edit& edit) {
    QTextCursor cursor = edit.textCursor();
    cursor.setPosition(PlaceToTypeAt(*edit.document(), state.range(1)));
    edit.setTextCursor(cursor);
    edit.ensureCursorVisible();
    QApplication::processEvents();
    double first = 0;
    double longest = 0;
    while (state.KeepRunning()) {
        const double took = MillisecondsOf([&] {
            QKeyEvent press(QEvent::KeyPress, Qt::Key_Z, Qt::NoModifier, QStringLiteral("я"));
            QApplication::sendEvent(&edit, &press);
            QApplication::processEvents();
            edit.viewport()->repaint();
        });
        first = first > 0 ? first : took;
        longest = std::max(longest, took);
    }
    state.counters["first_ms"] = first;
    state.counters["longest_ms"] = longest;
}

void KeysInTheSurface(benchmark::State& state) {
    QtTextSurface surface;
    surface.resize(760, 490);
    surface.show();
    surface.LoadPlain(TextToTypeIn(state));
    surface.SetSelStart(0); // all is in the document
    QApplication::processEvents();
    TypeLetters(state, surface);
}

void KeysInTheBareWidget(benchmark::State& state) {
    QTextEdit widget;
    widget.document()->setUndoRedoEnabled(false);
    widget.resize(760, 490);
    widget.show();
    widget.setPlainText(ToQString(TextToTypeIn(state)));
    QApplication::processEvents();
    TypeLetters(state, widget);
}
BENCHMARK(KeysInTheSurface)
    ->ArgsProduct({{1, 10, 50}, {AtStart, InMiddle, AtEnd}, {InLines}})
    ->ArgsProduct({{1}, {AtStart, InMiddle, AtEnd, AtBorder}, {OneLine, OneWord}})
    ->Unit(benchmark::kMillisecond)
    ->Iterations(30);
BENCHMARK(KeysInTheBareWidget)
    ->ArgsProduct({{1, 10}, {AtStart, InMiddle, AtEnd}, {InLines}})
    ->ArgsProduct({{1}, {InMiddle}, {OneLine}})
    ->Unit(benchmark::kMillisecond)
    ->Iterations(5);

// The lines of a text are counted once.
void CountLines(benchmark::State& state) {
    QtTextSurface surface;
    surface.resize(760, 490);
    surface.show();
    while (state.KeepRunning()) {
        state.PauseTiming();
        surface.LoadPlain(windows1251::Decode(Letter(state.range(0) << 20)));
        state.ResumeTiming();
        benchmark::DoNotOptimize(surface.LineCount());
    }
}
void LayOutInTheBareWidget(benchmark::State& state) {
    QTextEdit widget;
    widget.resize(760, 490);
    widget.show();
    while (state.KeepRunning()) {
        state.PauseTiming();
        widget.setPlainText(ToQString(windows1251::Decode(Letter(state.range(0) << 20))));
        state.ResumeTiming();
        benchmark::DoNotOptimize(widget.document()->size());
    }
}
BENCHMARK(LayOutInTheBareWidget)->Arg(1)->Arg(10)->Unit(benchmark::kMillisecond)->Iterations(3);
BENCHMARK(CountLines)->Arg(1)->Arg(10)->Unit(benchmark::kMillisecond)->Iterations(3);

// A window drawn wider step by step.
template <typename Edit>
void Resize(benchmark::State& state, Edit& edit) {
    edit.resize(500, 490);
    edit.show();
    edit.setPlainText(ToQString(windows1251::Decode(Letter(state.range(0) << 20))));
    QApplication::processEvents();
    while (state.KeepRunning()) {
        edit.resize(edit.width() + 7, 490);
        QApplication::processEvents();
        edit.viewport()->repaint();
    }
}
void ResizeTheSurface(benchmark::State& state) {
    QtTextSurface surface;
    Resize(state, surface);
}
void ResizeTheBareWidget(benchmark::State& state) {
    QTextEdit widget;
    Resize(state, widget);
}
BENCHMARK(ResizeTheSurface)->Arg(1)->Arg(10)->Unit(benchmark::kMillisecond)->Iterations(30);
BENCHMARK(ResizeTheBareWidget)->Arg(1)->Arg(10)->Unit(benchmark::kMillisecond)->Iterations(30);

} // namespace
} // namespace quillshift
