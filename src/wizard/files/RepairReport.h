#pragma once

#include "platform/posix/FileBytes.h"

#include <cstdint>
#include <mutex>
#include <optional>
#include <string>
#include <vector>

namespace quillshift::wizard {

/// What is needed to bring a repaired file back.
struct RepairEntry {
    std::string before, after; ///< SHA-256 of the contents
    std::string chain;
    std::size_t lost = 0;                      ///< characters
    std::int64_t seconds = 0, nanoseconds = 0; ///< when the contents were changed before
    std::string backup, path;                  ///< absolute
    bool keepsBackup = false;                  ///< the backup was there before, and outlives an undo

    bool operator==(const RepairEntry&) const = default;
};

/// A text file with a line for each file that is about to be replaced.
class RepairReport {
public:
    /// Makes the file, which must not be there yet; see `Error`.
    explicit RepairReport(const std::string& path);

    /// The system's error number of what failed first, 0 for none.
    int Error() const { return error_; }
    /// Adds a line. It is on the disk when this answers with true.
    bool Add(const RepairEntry& entry);

private:
    std::mutex adding_;
    OpenFile file_;
    int error_ = 0;
};

/// Where reports lie that were given no place: in the user's state folder.
std::string ReportFolder();
/// A path for a new report there, named after the time. The folder is made.
std::string NewReportPath();

/// The entries of a report; what a kill left of a last line does not count. None where it is no report.
std::optional<std::vector<RepairEntry>> EntriesOf(const std::string& bytes);

} // namespace quillshift::wizard
