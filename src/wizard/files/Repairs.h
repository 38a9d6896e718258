#pragma once

#include "wizard/files/Findings.h"
#include "wizard/files/RepairReport.h"

#include <map>
#include <mutex>
#include <sys/stat.h>

namespace quillshift::wizard {

/// Puts the times of folders back to what they were before the first change.
class FolderTimes {
public:
    /// Before and after each change in the file's folder.
    void Keep(const std::string& file);

private:
    std::mutex keeping_;
    std::map<std::string, struct stat> times_;
};

enum class Outcome {
    Repaired,
    LeftAlone,        ///< there was nothing to do
    LeftUnsure,       ///< no reading is sure and proves lossless
    DoesNotFit,       ///< the set that was asked for can't hold the text
    ChangedMeanwhile, ///< by another program; its work stays
    Unreadable,       ///< as when it was removed meanwhile
    Failed            ///< could not be written, or the report could not
};

/// Repairs files in their places, each beside a backup of its own and in one step. Mode, owner and links of
/// a file stay, and the time of its folder. May be used from several threads.
class Repairs {
public:
    Repairs(RepairReport& report, Target target, const DetectOptions& options)
        : report_(report), target_(target), options_(options) {}

    Outcome Repair(const Finding& finding);

private:
    struct Rewritten {
        std::string bytes;
        Chain chain;
    };
    std::optional<Rewritten> Rewrite(const Finding& finding, const std::string& bytes, Outcome& why) const;
    Outcome Replace(const RepairEntry& entry, const std::string& before, const std::string& after);

    RepairReport& report_;
    Target target_;
    DetectOptions options_;
    FolderTimes times_;
};

enum class Returned {
    Restored,
    AsBefore, ///< it was never replaced, or is restored already
    Changed,  ///< it has changed since the repair, and stays
    Gone,     ///< it was removed since, and isn't made anew
    NoBackup, ///< the backup has gone or changed
    Failed
};

/// Brings one file back, with the time it had, and removes its backup.
Returned BringBack(const RepairEntry& entry, FolderTimes& times);

} // namespace quillshift::wizard
