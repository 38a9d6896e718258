#pragma once

#include "wizard/files/Repairs.h"
#include "wizard/files/Walk.h"

#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace quillshift::wizard {

/// What the window asks of the disk, from any thread.
class RescueFiles {
public:
    virtual ~RescueFiles() = default;

    virtual Walked FilesIn(const std::vector<std::string>& names, const std::function<bool()>& goesOn) = 0;
    virtual Finding LookAt(const std::string& path) = 0;

    /// Begins a report of repairs. Its path; empty where none can be written, and then nothing may be
    /// repaired.
    virtual std::string BeginRepairs(Target target) = 0;
    virtual Outcome Repair(const Finding& finding) = 0;

    /// The report that was written last and not taken back since; empty for none.
    virtual std::string LastReport() = 0;
    /// Begins to take it back: what it tells of.
    virtual std::vector<RepairEntry> BeginReturn(const std::string& report) = 0;
    virtual Returned BringBack(const RepairEntry& entry) = 0;
    /// All that a report tells of has been taken back.
    virtual void Retire(const std::string& report) = 0;
};

} // namespace quillshift::wizard
