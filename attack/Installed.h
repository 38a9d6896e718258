#pragma once

#include <filesystem>

namespace quillshift::attack {

/// Copies the program with its pictures and sounds, and nothing that it could start beside it. Gives the
/// copy.
std::filesystem::path InstallEditorAlone(const std::filesystem::path& folder);

} // namespace quillshift::attack
