#pragma once

#include "wizard/command/Options.h"
#include "wizard/command/Talk.h"

namespace quillshift::wizard {

/// Tells what the files are, and those in the folders, one after another. Each returns the exit status.
int TellFiles(const std::vector<std::string>& names, const Options& options, const Talk& talk);
/// Repairs those of them that are sure, in their places, and says where the report is.
int WriteFiles(const std::vector<std::string>& names, const Options& options, const Talk& talk);
/// Brings back what a report tells of.
int UndoRepairs(const std::string& report, const Talk& talk);

} // namespace quillshift::wizard
