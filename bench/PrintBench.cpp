#include "BenchSupport.h"
#include "document/modPrint.h"
#include "platform/posix/PosixFiles.h"
#include "platform/qt/QtPrinters.h"
#include "platform/qt/QtText.h"
#include "platform/qt/QtTextSurface.h"
#include "support/FakePlatform.h"

#include <benchmark/benchmark.h>

#include <QAbstractTextDocumentLayout>
#include <QFile>
#include <QPainter>
#include <QPdfWriter>
#include <QTemporaryDir>

#include <fstream>

namespace quillshift {
namespace {

constexpr std::int64_t kLinesOnAPage = 52;

std::u16string Pages(std::int64_t pages) {
    std::u16string text;
    for (std::int64_t line = 0; line < pages * kLinesOnAPage; ++line)
        text += u"Я помню чудное мгновенье: передо мной явилась ты, как мимолётное виденье\r\n";
    text.resize(text.size() - 2); // or an empty line would take a page more
    return text;
}

// The most that the process held since the last call; counted anew from what it holds now.
double PeakMegabytes() {
    double peak = 0;
    std::ifstream status("/proc/self/status");
    for (std::string line; std::getline(status, line);)
        if (line.starts_with("VmHWM:"))
            peak = std::stod(line.substr(6)) / 1024;
    std::ofstream("/proc/self/clear_refs") << "5";
    return peak;
}

struct FixedBoxes final : PrintBoxes {
    PrintBoxTexts Boxes() const override { return {u"20", u"20", u"20", u"20", u"1"}; }
};

// What was printed is read back: a figure for fewer pages would be none.
void CountPages(benchmark::State& state, const QString& pdf) {
    QFile file(pdf);
    const auto pages = file.open(QIODevice::ReadOnly) ? file.readAll().count("/Type /Page\n") : 0;
    state.counters["pages"] = static_cast<double>(pages);
    if (pages != state.range(0))
        state.SkipWithError(("there are " + std::to_string(pages) + " pages").c_str());
}

// From the command to the file in its place; the argument is the number of pages. "MB" is what the process
// grew by at the most while it printed: for 1,000 pages at most 32 more than for 10.
void PrintTheSurface(benchmark::State& state) {
    const QTemporaryDir folder;
    FakePlatform fake;
    PosixFiles files;
    QtPrinters printers(files);
    Platform platform{fake.store,     fake.sound,    files,       fake.fileDialog, fake.messageBox,
                      fake.clipboard, fake.timers,   fake.screen, fake.shell,      fake.background,
                      fake.progress,  fake.recovery, fake.clock,  printers};
    Settings settings(fake.store);
    QtTextSurface surface;
    surface.SetFont({u"Liberation Sans", 12});
    surface.LoadPlain(Pages(state.range(0)));
    bool printing = false;
    double grown = 0;
    modPrint print({settings, platform, surface, [] {}, [] {}, [] { return std::u16string(); }, printing});
    const FixedBoxes boxes;
    print.Attach(boxes);
    while (state.KeepRunning()) {
        fake.fileDialog.chosen = {FromQString(folder.filePath(QStringLiteral("out.pdf")))};
        PeakMegabytes();
        const double before = ResidentMegabytes();
        print.Print();
        grown = std::max(grown, PeakMegabytes() - before);
    }
    state.counters["MB"] = grown;
    CountPages(state, folder.filePath(QStringLiteral("out.pdf")));
}
BENCHMARK(PrintTheSurface)->Arg(10)->Arg(1000)->Unit(benchmark::kMillisecond)->Iterations(3);

// The baseline: the bare document class lays the same text out for the same sheets, and draws it into a file.
// The surface takes at most one and a half times as long.
void PrintTheBareDocument(benchmark::State& state) {
    const QTemporaryDir folder;
    const QString text = ToQString(Pages(state.range(0)));
    double grown = 0;
    while (state.KeepRunning()) {
        state.PauseTiming();
        QTextDocument document;
        document.setDefaultFont(QFont(QStringLiteral("Liberation Sans"), 12));
        document.setPlainText(text);
        state.ResumeTiming();
        PeakMegabytes();
        const double before = ResidentMegabytes();
        QPdfWriter writer(folder.filePath(QStringLiteral("bare.pdf")));
        writer.setResolution(600);
        writer.setPageSize(QPageSize(QPageSize::A4));
        writer.setPageMargins({20, 20, 20, 20}, QPageLayout::Millimeter);
        document.documentLayout()->setPaintDevice(&writer);
        const QSizeF page = writer.pageLayout().paintRectPixels(600).size();
        document.setPageSize(page);
        QPainter painter(&writer);
        for (int number = 0; number < document.pageCount(); ++number) {
            if (number > 0)
                writer.newPage();
            painter.save();
            painter.translate(0, -number * page.height());
            QAbstractTextDocumentLayout::PaintContext context;
            context.clip = QRectF(0, number * page.height(), page.width(), page.height());
            painter.setClipRect(context.clip);
            document.documentLayout()->draw(&painter, context);
            painter.restore();
        }
        painter.end();
        grown = std::max(grown, PeakMegabytes() - before);
    }
    state.counters["MB"] = grown;
    CountPages(state, folder.filePath(QStringLiteral("bare.pdf")));
}
BENCHMARK(PrintTheBareDocument)->Arg(10)->Arg(1000)->Unit(benchmark::kMillisecond)->Iterations(3);

} // namespace
} // namespace quillshift
