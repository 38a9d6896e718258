#pragma once

#include <filesystem>

namespace quillshift {

/// The folder `tests` of the sources, where samples and stored lists lie.
std::filesystem::path TestsFolder();

} // namespace quillshift
