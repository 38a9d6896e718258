// How quickly chains are undone in memory: by tables, with a glance at the result, beside the plain way with
// its proof and beside copying. Bytes a second are those that come in.
#include "wizard/detect/LineRepair.h"

#include <benchmark/benchmark.h>
#include <numeric>
#include <random>

namespace quillshift::wizard {
namespace {

const char* const chains[] = {"koi8-r", "utf-8>1251", "koi8-r>866,utf-8>1251", "utf-8"};

/// Lines of some 90 letters, garbled the way of a chain; no two are alike, as a processor learns what comes
/// often.
std::vector<std::string> Lines(const Chain& chain) {
    const char* const words[] = {"старый", "смотритель,", "когда",  "погасли", "огни,",     "ещё",
                                 "раз",    "обошёл",      "причал", "и",       "вернулся.", "Было",
                                 "десять", "часов",       "at",     "last",    "в",         "гавани;",
                                 "ветер",  "стих",        "под",    "утро",    "Море"};
    std::mt19937 random(1);
    std::vector<std::string> lines(1000);
    for (std::string& line : lines) {
        std::string text = "Поздно";
        while (text.size() < 160)
            text.append(" ").append(words[random() % std::size(words)]);
        line = *Garble(chain, text + '\n');
    }
    return lines;
}

std::size_t SizeOf(const std::vector<std::string>& lines) {
    return std::accumulate(lines.begin(), lines.end(), std::size_t{0},
                           [](std::size_t size, const std::string& line) { return size + line.size(); });
}

void Count(benchmark::State& state, const std::vector<std::string>& lines) {
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(SizeOf(lines)));
    state.SetLabel(chains[state.range(0)]);
}

/// As texts are repaired: many lines at once, each of which is looked over.
void Together(benchmark::State& state) {
    const Chain chain = *ChainFrom(chains[state.range(0)]);
    const std::vector<std::string> lines = Lines(chain);
    std::vector<std::string> pieces(1);
    for (const std::string& line : lines)
        if ((pieces.back() += line).size() > 16000)
            pieces.emplace_back();
    TableUndo tables(chain);
    LookedLines looks;
    while (state.KeepRunning())
        for (const std::string& piece : pieces) {
            std::string_view text;
            if (!tables.UndoLines(piece, text, looks))
                state.SkipWithError("the tables do not know it");
            benchmark::DoNotOptimize(text.data());
        }
    Count(state, lines);
}
BENCHMARK(Together)->DenseRange(0, std::size(chains) - 1);

/// `withAGlance`: whether each line is looked over, too.
void EachByTables(benchmark::State& state, bool withAGlance) {
    const Chain chain = *ChainFrom(chains[state.range(0)]);
    const std::vector<std::string> lines = Lines(chain);
    TableUndo tables(chain);
    while (state.KeepRunning())
        for (const std::string& line : lines) {
            std::string_view text;
            if (!tables.Undo(line, text))
                state.SkipWithError("the tables do not know it");
            if (withAGlance)
                benchmark::DoNotOptimize(tables.IsClear());
            benchmark::DoNotOptimize(text.data());
        }
    Count(state, lines);
}
BENCHMARK_CAPTURE(EachByTables, alone, false)->DenseRange(0, std::size(chains) - 1);
BENCHMARK_CAPTURE(EachByTables, with a glance, true)->DenseRange(0, std::size(chains) - 1);

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
