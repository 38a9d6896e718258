#include "platform/posix/SqliteSettings.h"
#include "settings/FirstValues.h"

#include <benchmark/benchmark.h>

#include <array>
#include <cstdlib>
#include <fcntl.h>
#include <filesystem>
#include <fstream>
#include <string>
#include <unistd.h>

namespace quillshift {
namespace {

namespace fs = std::filesystem;

// A store as the program sets it up, in a folder that goes away with it, and a small file beside it.
class StoreBench : public benchmark::Fixture {
public:
    void SetUp(const benchmark::State& /*state*/) override {
        std::string pattern = fs::temp_directory_path() / "quillshift-bench-XXXXXX";
        folder_ = mkdtemp(pattern.data());
        small_ = folder_ / "small";
        std::ofstream(small_) << "1";
        settings_.emplace(folder_ / "settings.db");
        Fill(*settings_);
    }
    void TearDown(const benchmark::State& /*state*/) override {
        settings_.reset();
        fs::remove_all(folder_);
    }

protected:
    static bool Fill(SqliteSettings& settings) {
        return settings.SetUp([](SettingsBackend& backend) {
            Settings store(backend);
            WriteFirstValues(store, {u"/opt/quillshift", u"Printer", {}});
        });
    }

    fs::path folder_;
    fs::path small_;
    std::optional<SqliteSettings> settings_;
};

BENCHMARK_DEFINE_F(StoreBench, ReadString)(benchmark::State& state) {
    Settings store(*settings_);
    for ([[maybe_unused]] auto _ : state)
        benchmark::DoNotOptimize(store.Find(Setting::ButtonMouseMove));
}

BENCHMARK_DEFINE_F(StoreBench, ReadDword)(benchmark::State& state) {
    Settings store(*settings_);
    for ([[maybe_unused]] auto _ : state)
        benchmark::DoNotOptimize(store.IsItemShown(ItemBar::Standart, 20));
}

BENCHMARK_DEFINE_F(StoreBench, PlainOpenReadClose)(benchmark::State& state) {
    std::array<char, 16> buffer{};
    for ([[maybe_unused]] auto _ : state) {
        const int file = open(small_.c_str(), O_RDONLY | O_CLOEXEC);
        benchmark::DoNotOptimize(read(file, buffer.data(), buffer.size()));
        close(file);
    }
}

BENCHMARK_DEFINE_F(StoreBench, WriteString)(benchmark::State& state) {
    Settings store(*settings_);
    for ([[maybe_unused]] auto _ : state)
        store.Set(Setting::ViewMode, u"1");
}

BENCHMARK_DEFINE_F(StoreBench, SetUpFirstStart)(benchmark::State& state) {
    int number = 0;
    for ([[maybe_unused]] auto _ : state) {
        SqliteSettings fresh(folder_ / ("fresh" + std::to_string(number++)));
        if (!Fill(fresh))
            state.SkipWithError("no store was set up");
    }
}

void InMicroseconds(benchmark::internal::Benchmark* bench) {
    bench->Unit(benchmark::kMicrosecond)->Repetitions(9)->ReportAggregatesOnly()->UseRealTime();
}

BENCHMARK_REGISTER_F(StoreBench, ReadString)->Apply(InMicroseconds);
BENCHMARK_REGISTER_F(StoreBench, ReadDword)->Apply(InMicroseconds);
BENCHMARK_REGISTER_F(StoreBench, PlainOpenReadClose)->Apply(InMicroseconds);
BENCHMARK_REGISTER_F(StoreBench, WriteString)->Apply(InMicroseconds);
BENCHMARK_REGISTER_F(StoreBench, SetUpFirstStart)->Apply(InMicroseconds);

} // namespace
} // namespace quillshift
