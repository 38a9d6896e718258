// How quickly chains are undone in memory: by tables, with a glance at the result, beside the plain way with
// its proof and beside copying. Bytes a second are those that come in.
#include "wizard/detect/LineRepair.h"

#include <benchmark/benchmark.h>

namespace quillshift::wizard {
namespace {

const char* const chains[] = {"koi8-r", "utf-8>1251", "koi8-r>866,utf-8>1251", "utf-8"};

/// Lines of one text, garbled the way of a chain.
std::vector<std::string> Lines(const Chain& chain) {
    const std::string line = *Garble(
        chain,
        "Старый смотритель, когда погасли огни, ещё раз обошёл причал и вернулся. Было десять часов.\n");
    return std::vector<std::string>(1000, line);
}

void Count(benchmark::State& state, const std::vector<std::string>& lines) {
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(lines.size() * lines[0].size()));
    state.SetLabel(chains[state.range(0)]);
}

void ByTables(benchmark::State& state, bool withAGlance) {
    const Chain chain = *ChainFrom(chains[state.range(0)]);
    const std::vector<std::string> lines = Lines(chain);
    TableUndo tables(chain);
    while (state.KeepRunning())
        for (const std::string& line : lines) {
            std::string_view text;
            if (!tables.Undo(line, text) || (withAGlance && !tables.IsClear()))
                state.SkipWithError("the tables do not know it");
            benchmark::DoNotOptimize(text.data());
        }
    Count(state, lines);
}
BENCHMARK_CAPTURE(ByTables, alone, false)->DenseRange(0, std::size(chains) - 1);
BENCHMARK_CAPTURE(ByTables, with a glance, true)->DenseRange(0, std::size(chains) - 1);

void WithProof(benchmark::State& state) {
    const Chain chain = *ChainFrom(chains[state.range(0)]);
    const std::vector<std::string> lines = Lines(chain);
    while (state.KeepRunning())
        for (const std::string& line : lines)
            benchmark::DoNotOptimize(Lossless(chain, line));
    Count(state, lines);
}
BENCHMARK(WithProof)->DenseRange(0, std::size(chains) - 1);

void Copied(benchmark::State& state) {
    const std::vector<std::string> lines = Lines(*ChainFrom(chains[state.range(0)]));
    std::string copy;
    while (state.KeepRunning())
        for (const std::string& line : lines) {
            copy.assign(line);
            benchmark::DoNotOptimize(copy.data());
        }
    Count(state, lines);
}
BENCHMARK(Copied)->DenseRange(0, std::size(chains) - 1);

} // namespace
} // namespace quillshift::wizard
