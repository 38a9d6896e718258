#pragma once

#include <string>
#include <string_view>

namespace quillshift {

/// Puts a file with `bytes` into the desktop's trash, as thrown away from `path`: into that of the file's
/// disk, else into the user's own. It is on the disk afterwards. Answers with an error number, 0 for success.
int PutIntoTrash(const std::string& path, std::string_view bytes);

} // namespace quillshift
