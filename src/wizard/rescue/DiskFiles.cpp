#include "wizard/rescue/DiskFiles.h"

#include "platform/posix/PosixFiles.h"

#include <algorithm>
#include <filesystem>
#include <functional>
#include <utility>

namespace quillshift::wizard {

namespace {

namespace fs = std::filesystem;

constexpr const char* kEnding = ".report";
constexpr const char* kTakenBack = ".undone";

std::vector<RepairEntry> EntriesIn(const std::string& report) {
    return EntriesOf(PosixFiles::ReadNative(report).bytes).value_or(std::vector<RepairEntry>());
}

} // namespace

std::string DiskFiles::BeginRepairs(Target target) {
    std::string path = NewReportPath();
    repairs_.reset();
    report_ = std::make_unique<RepairReport>(path);
    if (report_->Error() != 0)
        return {};
    repairs_ = std::make_unique<Repairs>(*report_, target, DetectOptions{});
    return path;
}

std::string DiskFiles::LastReport() {
    std::vector<std::pair<fs::file_time_type, std::string>> reports;
    std::error_code error;
    for (fs::directory_iterator at(ReportFolder(), error); !error && at != fs::directory_iterator();
         at.increment(error)) {
        std::error_code none;
        const fs::file_time_type time = at->last_write_time(none);
        if (at->path().extension() == kEnding && !none)
            reports.emplace_back(time, at->path());
    }
    std::ranges::sort(reports, std::greater());
    const auto last =
        std::ranges::find_if(reports, [](const auto& report) { return !EntriesIn(report.second).empty(); });
    return last == reports.end() ? std::string() : last->second;
}

std::vector<RepairEntry> DiskFiles::BeginReturn(const std::string& report) {
    times_ = std::make_unique<FolderTimes>();
    return EntriesIn(report);
}

void DiskFiles::Retire(const std::string& report) {
    std::error_code error;
    fs::rename(report, report + kTakenBack, error);
}

} // namespace quillshift::wizard
