#include "base/Windows1251.h"
#include "document/rtf/RtfReader.h"

#include <benchmark/benchmark.h>

namespace quillshift {
namespace {

constexpr std::size_t kSize = 10 << 20;

// Ten megabytes as a word processor writes them: letters as `\'hh`, a bold word now and then, short
// paragraphs.
std::string Rtf() {
    std::string rtf = "{\\rtf1\\ansi\\ansicpg1251{\\fonttbl{\\f0\\fcharset204 Arial;}}";
    while (rtf.size() < kSize)
        rtf += "{\\b \\'dd\\'f2\\'ee} \\'ef\\'f0\\'ee\\'f1\\'f2\\'ee\\'e9 text in a line\\par\r\n";
    return rtf + "}";
}

void ReadTenMegabytesOfRtf(benchmark::State& state) {
    const std::string rtf = Rtf();
    while (state.KeepRunning())
        benchmark::DoNotOptimize(ReadRtf(rtf).text.size());
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(rtf.size()));
}
BENCHMARK(ReadTenMegabytesOfRtf)->Unit(benchmark::kMillisecond);

// The baseline: as many bytes of plain text.
void ReadTenMegabytesOfPlainText(benchmark::State& state) {
    const std::string plain = Rtf();
    while (state.KeepRunning())
        benchmark::DoNotOptimize(windows1251::Decode(plain).size());
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(plain.size()));
}
BENCHMARK(ReadTenMegabytesOfPlainText)->Unit(benchmark::kMillisecond);

} // namespace
} // namespace quillshift
