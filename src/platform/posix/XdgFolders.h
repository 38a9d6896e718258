#pragma once

#include <filesystem>

namespace quillshift {

/// The folder for the user's data: `$XDG_DATA_HOME`, or `.local/share` in the home folder if that is unset or
/// not absolute. Empty when the user has no home folder either.
std::filesystem::path XdgDataFolder();
/// The same for what a program keeps of its state: `$XDG_STATE_HOME`, or `.local/state`.
std::filesystem::path XdgStateFolder();

} // namespace quillshift
