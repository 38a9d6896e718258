#pragma once

#include "wizard/rescue/RescueFiles.h"

#include <memory>

namespace quillshift::wizard {

/// The machine's files; the reports lie in the user's state folder.
class DiskFiles final : public RescueFiles {
public:
    Walked FilesIn(const std::vector<std::string>& names, const std::function<bool()>& goesOn) override {
        return Walk(names, goesOn);
    }
    Finding LookAt(const std::string& path) override { return Look(path, {}); }
    std::string BeginRepairs(Target target) override;
    Outcome Repair(const Finding& finding) override { return repairs_->Repair(finding); }
    std::string LastReport() override;
    std::vector<RepairEntry> BeginReturn(const std::string& report) override;
    Returned BringBack(const RepairEntry& entry) override { return wizard::BringBack(entry, *times_); }
    void Retire(const std::string& report) override;

private:
    std::unique_ptr<RepairReport> report_;
    std::unique_ptr<Repairs> repairs_;
    std::unique_ptr<FolderTimes> times_;
};

} // namespace quillshift::wizard
