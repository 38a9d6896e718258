#include "recoding/modDecode.h"

#include <benchmark/benchmark.h>

#include <random>

namespace quillshift {
namespace {

// Text as it comes from a DOS file: letters for the most part, with blanks and punctuation in between.
std::u16string Sample() {
    std::mt19937 random(1);
    std::u16string text;
    const std::u16string_view table = CodeTable(1);
    while (text.size() < kRecodingLimit)
        text.push_back(random() % 6 == 0 ? u' ' : table[random() % table.size()]);
    return text;
}

// The baseline: each character is searched for in the source table.
std::u16string BySearching(std::u16string_view text, std::u16string_view target, std::u16string_view source) {
    std::u16string result(text);
    for (std::size_t i = 0; i < text.size(); ++i)
        if (const auto place = source.find(text[i]); place != std::u16string_view::npos)
            result[i] = target[place];
    return result;
}

void Recode(benchmark::State& state) {
    const std::u16string text = Sample();
    while (state.KeepRunning())
        benchmark::DoNotOptimize(RecodeText(text, 1, 2));
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(text.size()));
}
BENCHMARK(Recode);

void RecodeBySearching(benchmark::State& state) {
    const std::u16string text = Sample();
    while (state.KeepRunning())
        benchmark::DoNotOptimize(BySearching(text, CodeTable(2), CodeTable(1)));
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(text.size()));
}
BENCHMARK(RecodeBySearching);

} // namespace
} // namespace quillshift
