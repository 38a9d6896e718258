#pragma once

#include "wizard/command/Options.h"
#include "wizard/command/Talk.h"

#include <istream>

namespace quillshift::wizard {

/// The beginning of what comes in, enough for a verdict: the first megabyte from the first byte that is no
/// ASCII, and of pure ASCII the first megabyte. All there is where that is less. None if it can't be read.
std::optional<std::string> Beginning(std::istream& in);

/// Repairs what comes in while it comes, in little memory. The verdict on the beginning goes for all of it,
/// and every line is held against it. Returns the exit status.
int Filter(const Options& options, std::istream& in, const Talk& talk);

} // namespace quillshift::wizard
