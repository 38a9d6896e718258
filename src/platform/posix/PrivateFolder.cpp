#include "platform/posix/PrivateFolder.h"

#include "platform/posix/XdgFolders.h"

#include <cerrno>
#include <sys/stat.h>

namespace quillshift {

namespace fs = std::filesystem;

int MakeFolders(const fs::path& folder) {
    const auto make = [&] { return mkdir(folder.c_str(), S_IRWXU) == 0 || errno == EEXIST ? 0 : errno; };
    const int error = make();
    if (error != ENOENT || !folder.has_relative_path())
        return error;
    MakeFolders(folder.parent_path());
    return make();
}

// What may not be changed, as another's, stays as it is.
void CloseToOthers(const fs::path& folder) {
    constexpr auto kOthers = fs::perms::group_all | fs::perms::others_all;
    std::error_code error;
    fs::permissions(folder, kOthers, fs::perm_options::remove, error);
    for (fs::directory_iterator entry(folder, error); !error && entry != fs::directory_iterator();
         entry.increment(error)) {
        std::error_code ignored;
        if (entry->symlink_status(ignored).type() == fs::file_type::regular)
            fs::permissions(entry->path(), kOthers, fs::perm_options::remove, ignored);
    }
}

std::filesystem::path ProgramDataFolder() {
    const std::filesystem::path data = XdgDataFolder();
    if (data.empty())
        return {}; // a user without a home: nothing is kept, and nothing litters the current folder
    std::filesystem::path folder = data / "quillshift";
    MakeFolders(folder);
    CloseToOthers(folder); // a password and the clipboard's text are in it
    return folder;
}

} // namespace quillshift
