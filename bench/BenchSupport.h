#pragma once

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

} // namespace quillshift
