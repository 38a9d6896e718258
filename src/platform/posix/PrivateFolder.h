#pragma once

#include <filesystem>

namespace quillshift {

/// Makes a folder and what is missing above it, for their owner alone. Answers with an error number, 0 if the
/// folder is there.
int MakeFolders(const std::filesystem::path& folder);
/// Takes away what rights others have to a folder and to the files in it.
void CloseToOthers(const std::filesystem::path& folder);
/// The folder of the user's settings, which is made, for its owner alone. Empty where there is no home.
std::filesystem::path ProgramDataFolder();

} // namespace quillshift
