#pragma once

#include "platform/FileSystem.h"

#include <string>
#include <string_view>

namespace quillshift {

/// Writes and flushes a backup of `document` beside `place`, its future name.
Preparation PrepareSideBackup(const std::string& place, std::string_view bytes, const std::string& document);

} // namespace quillshift
