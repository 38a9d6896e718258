#include "controls/ProgressBar.h"

#include <benchmark/benchmark.h>

#include <QApplication>
#include <QLabel>
#include <QVBoxLayout>

namespace quillshift {
namespace {

// One step of a recoding job's walk, as it is done: the bar redraws and the pending events run.
void StepOfTheWalk(benchmark::State& state) {
    QWidget window;
    auto* bar = new ProgressBar;
    (new QVBoxLayout(&window))->addWidget(bar);
    window.resize(340, 60);
    window.show();
    QApplication::processEvents();
    float value = 0;
    while (state.KeepRunning())
        bar->SetValue(value = value < 100 ? value + 0.03F : 0);
}
BENCHMARK(StepOfTheWalk);

// The baseline: a label of the same size that repaints and runs events.
void LabelAndEvents(benchmark::State& state) {
    QWidget window;
    auto* label = new QLabel(QStringLiteral("50%"));
    label->setFixedHeight(21);
    label->setAlignment(Qt::AlignCenter);
    (new QVBoxLayout(&window))->addWidget(label);
    window.resize(340, 60);
    window.show();
    QApplication::processEvents();
    while (state.KeepRunning()) {
        label->repaint();
        QApplication::processEvents();
    }
}
BENCHMARK(LabelAndEvents);

} // namespace
} // namespace quillshift
