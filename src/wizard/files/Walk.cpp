#include "wizard/files/Walk.h"

#include <algorithm>
#include <array>
#include <filesystem>
#include <set>
#include <string_view>
#include <sys/stat.h>
#include <utility>

namespace quillshift::wizard {

namespace {

namespace fs = std::filesystem;

constexpr std::array<std::string_view, 4> kVersionControl = {"CVS", "RCS", "SCCS", "_darcs"};
constexpr std::string_view kBackupEnding = ".bak";

bool IsBackup(const std::string& path) {
    std::error_code error;
    return path.ends_with(kBackupEnding) &&
           fs::exists(path.substr(0, path.size() - kBackupEnding.size()), error);
}

bool IsPassedOver(const fs::directory_entry& entry) {
    std::error_code error;
    const std::string name = entry.path().filename();
    if (name.starts_with('.') || entry.is_symlink(error))
        return true;
    if (entry.is_directory(error))
        return std::ranges::find(kVersionControl, name) != kVersionControl.end();
    return !entry.is_regular_file(error) || IsBackup(entry.path());
}

void GoInto(const std::string& folder, Walked& walked, const std::function<bool()>& goesOn) {
    if (!goesOn())
        return;
    std::error_code error;
    std::vector<std::string> folders;
    fs::directory_iterator at(folder, error);
    for (; !error && at != fs::directory_iterator(); at.increment(error)) {
        if (IsPassedOver(*at))
            continue;
        std::error_code none;
        (at->is_directory(none) ? folders : walked.files).push_back(at->path());
    }
    if (error)
        walked.unreadable.push_back(folder);
    for (const std::string& inner : folders)
        GoInto(inner, walked, goesOn);
}

} // namespace

Walked Walk(const std::vector<std::string>& names, const std::function<bool()>& goesOn) {
    Walked walked;
    for (const std::string& name : names) {
        std::error_code error;
        const fs::file_status status = fs::status(name, error);
        if (fs::is_directory(status))
            GoInto(name, walked, goesOn);
        else
            (fs::exists(status) ? walked.files : walked.unreadable).push_back(name);
    }
    std::ranges::sort(walked.files);
    std::set<std::pair<dev_t, ino_t>> seen;
    std::erase_if(walked.files, [&seen](const std::string& file) {
        struct stat info {};
        return stat(file.c_str(), &info) == 0 && !seen.emplace(info.st_dev, info.st_ino).second;
    });
    return walked;
}

} // namespace quillshift::wizard
