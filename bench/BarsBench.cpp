#include "support/WidgetBars.h"

#include <benchmark/benchmark.h>

#include <QApplication>
#include <QTest>

#include <stdexcept>

namespace quillshift {
namespace {

/// In a window 1280 pixels wide.
struct BarsInAWindow : WidgetBars {
    BarsInAWindow() : WidgetBars(u"" QUILLSHIFT_PROGRAM_FOLDER) {
        window.resize(1280, 400);
        window.show();
        // A window that isn't shown paints nothing, in no time.
        if (!QTest::qWaitForWindowExposed(&window))
            throw std::runtime_error("The window of the bars was not shown: there is nothing to measure.");
        QApplication::processEvents();
    }
    void ForgetSizes() {
        for (const auto& [key, button] : toolkit.Model().Buttons())
            button->Measured.Clear();
    }
};

// The layout of the toolbar of forty items, every item measured anew. At most 200 us.
void LayOutTheToolbar(benchmark::State& state) {
    BarsInAWindow all;
    while (state.KeepRunning()) {
        all.ForgetSizes();
        all.bars.Bar(1).SetFont(all.bars.Bar(1).Font());
    }
}
BENCHMARK(LayOutTheToolbar)->Unit(benchmark::kMicrosecond);

// The baseline: measuring the forty tool tips, which is no more than text.
void MeasureFortyTexts(benchmark::State& state) {
    BarsInAWindow all;
    while (state.KeepRunning())
        for (const auto& [key, button] : all.toolkit.Model().FindBar("TOOLBAR")->Buttons)
            benchmark::DoNotOptimize(all.texts.TextExtent(button->ToolTip, all.bars.Bar(1).Font()));
}
BENCHMARK(MeasureFortyTexts)->Unit(benchmark::kMicrosecond);

// The layout of the largest menu in the same way. At most 200 us.
void LayOutTheLargestMenu(benchmark::State& state) {
    BarsInAWindow all;
    all.bars.Bar(0).ShowPopupMenu({0, 0}, all.bars.Bar(0).CommandBars().Item("MENU:FILE"));
    qsCommandBar& popup = *all.toolkit.Find(all.toolkit.Menu().ActiveWindow);
    while (state.KeepRunning()) {
        all.ForgetSizes();
        popup.SetFont(popup.Font());
    }
    all.toolkit.Tracking().EndMenuMode();
}
BENCHMARK(LayOutTheLargestMenu)->Unit(benchmark::kMicrosecond);

// A full paint of the toolbar at 1280 pixels. At most 1 ms.
void PaintTheToolbar(benchmark::State& state) {
    BarsInAWindow all;
    while (state.KeepRunning())
        all.Windows()[1]->repaint();
}
BENCHMARK(PaintTheToolbar)->Unit(benchmark::kMicrosecond);

// What a pointer that comes over an item and leaves it paints: two items, not two bars.
void PaintTwoItems(benchmark::State& state) {
    BarsInAWindow all;
    const auto items = all.bars.Bar(1).Items();
    const QRect first(items[1].Left, items[1].Top, items[1].Right - items[1].Left,
                      items[1].Bottom - items[1].Top);
    const QRect second(items[2].Left, items[2].Top, items[2].Right - items[2].Left,
                       items[2].Bottom - items[2].Top);
    while (state.KeepRunning()) {
        all.Windows()[1]->repaint(first);
        all.Windows()[1]->repaint(second);
    }
}
BENCHMARK(PaintTwoItems)->Unit(benchmark::kMicrosecond);

// The baseline: a plain widget of the same size that fills itself.
class Plain final : public QWidget {
public:
    using QWidget::QWidget;

protected:
    void paintEvent(QPaintEvent* /*event*/) override { QPainter(this).fillRect(rect(), Qt::lightGray); }
};
void PaintAPlainWidget(benchmark::State& state) {
    BarsInAWindow all;
    Plain plain(&all.window);
    plain.setGeometry(0, 300, 1280, 24);
    plain.show();
    QApplication::processEvents();
    while (state.KeepRunning())
        plain.repaint();
}
BENCHMARK(PaintAPlainWidget)->Unit(benchmark::kMicrosecond);

// From the key that opens a menu to its painted rows. At most 16 ms.
void OpenAMenu(benchmark::State& state) {
    constexpr int kDown = 40;
    BarsInAWindow all;
    while (state.KeepRunning()) {
        all.bars.Bar(0).MakeFirstItemHot();
        all.bars.Bar(0).OnMenuKey(kDown);
        QApplication::processEvents();
        state.PauseTiming();
        all.toolkit.Tracking().EndMenuMode();
        QApplication::processEvents();
        state.ResumeTiming();
    }
}
BENCHMARK(OpenAMenu)->Unit(benchmark::kMillisecond)->Iterations(100);

} // namespace
} // namespace quillshift
