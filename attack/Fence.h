#pragma once

#include <filesystem>

namespace quillshift::attack {

/// From now on neither this process nor those that it starts can change any file but those in this folder and
/// the devices. False where the system can't do that.
bool FenceIn(const std::filesystem::path& folder);

} // namespace quillshift::attack
