#pragma once

#include <algorithm>
#include <array>
#include <chrono>
#include <fstream>
#include <string>

namespace quillshift {

/// What a process holds in memory; this one unless told another.
inline double ResidentMegabytes(const std::string& process = "self") {
    std::ifstream statistics("/proc/" + process + "/statm");
    long total = 0;
    long resident = 0;
    statistics >> total >> resident;
    return static_cast<double>(resident) * 4096 / (1 << 20);
}

template <typename Work>
double MillisecondsOf(Work work) {
    const auto start = std::chrono::steady_clock::now();
    work();
    return std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - start).count();
}

template <int kRuns, typename Run>
double MedianOf(Run run) {
    std::array<double, kRuns> times{};
    for (double& time : times)
        time = run();
    std::nth_element(times.begin(), times.begin() + kRuns / 2, times.end());
    return times[kRuns / 2];
}

} // namespace quillshift
