#pragma once

#include "platform/FileSystem.h"

#include <optional>
#include <string>
#include <string_view>
#include <sys/stat.h>
#include <utility>

namespace quillshift {

/// The folder and the name of a path.
std::pair<std::string, std::string> SplitPath(const std::string& path);
/// A failure in words. `error`: the system's error number; `path`: what was tried.
FileFailure Explain(int error, const std::string& path);
/// Nothing for an ordinary file.
std::optional<FileFailure> RefuseUnlessRegular(const struct stat& info);
/// The path as the system takes it. A name the system would read as another one, cut at a zero or mended, is
/// no name of a file.
std::optional<FileFailure> ToNative(std::u16string_view path, std::string& native);

} // namespace quillshift
