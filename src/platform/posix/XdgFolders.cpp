#include "platform/posix/XdgFolders.h"

#include <cstdlib>
#include <pwd.h>
#include <unistd.h>
#include <vector>

namespace quillshift {
namespace {

// A relative path would mean another folder in every working folder, so it counts as unset.
std::filesystem::path FolderInEnvironment(const char* variable) {
    const char* value = std::getenv(variable);
    const std::filesystem::path folder = value != nullptr ? value : "";
    return folder.is_absolute() ? folder : std::filesystem::path();
}

std::filesystem::path HomeInUserDatabase() {
    std::vector<char> buffer(16384);
    passwd entry{};
    passwd* found = nullptr;
    if (getpwuid_r(getuid(), &entry, buffer.data(), buffer.size(), &found) != 0 || found == nullptr)
        return {};
    const std::filesystem::path home = found->pw_dir;
    return home.is_absolute() ? home : std::filesystem::path();
}

std::filesystem::path FolderOrInHome(const char* variable, const char* inHome) {
    if (auto folder = FolderInEnvironment(variable); !folder.empty())
        return folder;
    auto home = FolderInEnvironment("HOME");
    if (home.empty())
        home = HomeInUserDatabase();
    return home.empty() ? home : home / ".local" / inHome;
}

} // namespace

std::filesystem::path XdgDataFolder() {
    return FolderOrInHome("XDG_DATA_HOME", "share");
}

std::filesystem::path XdgStateFolder() {
    return FolderOrInHome("XDG_STATE_HOME", "state");
}

} // namespace quillshift
