#include "Installed.h"

namespace quillshift::attack {

namespace fs = std::filesystem;

fs::path InstallEditorAlone(const fs::path& folder) {
    const fs::path original = fs::path(QUILLSHIFT_PROGRAM);
    fs::path copy = folder / "quillshift";
    fs::copy_file(original, copy);
    for (const char* beside : {"Data", "Sounds"})
        fs::copy(original.parent_path() / beside, folder / beside, fs::copy_options::recursive);
    return copy;
}

} // namespace quillshift::attack
