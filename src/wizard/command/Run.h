#pragma once

#include "wizard/command/Words.h"

#include <iosfwd>
#include <string>
#include <vector>

namespace quillshift::wizard {

/// The command. Returns its exit status: 0 all is clean or repaired, 1 something was left as unsure, 2
/// trouble.
int Run(const std::vector<std::string>& arguments, std::istream& in, std::ostream& out, std::ostream& err,
        Language language, bool errIsTerminal = false);

} // namespace quillshift::wizard
