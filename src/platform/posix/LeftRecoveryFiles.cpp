#include "platform/posix/LeftRecoveryFiles.h"

#include "base/Utf8.h"
#include "platform/posix/FileFailures.h"
#include "platform/posix/OwnRecoveryFile.h"
#include "platform/posix/Trash.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>

#include <algorithm>
#include <cstdio>
#include <filesystem>

namespace quillshift {
namespace {

constexpr std::string_view kAwayEnding = ".damaged";

bool IsOfACopy(std::string_view name) {
    return name.size() > kCopyNumber && name[kCopyNumber] == '.' && !name.ends_with(kAwayEnding) &&
           name.substr(0, kCopyNumber).find_first_not_of("0123456789abcdef") == std::string_view::npos;
}

bool IsText(std::string_view name) {
    const std::string_view ending = name.substr(kCopyNumber);
    return ending == kTextEnding || ending == kKeptEnding;
}

} // namespace

LeftRecoveryFiles::Names LeftRecoveryFiles::List() const {
    Names names;
    std::error_code error;
    for (std::filesystem::directory_iterator entry(folder_, error);
         !error && entry != std::filesystem::directory_iterator(); entry.increment(error))
        if (const std::string name = entry->path().filename(); IsOfACopy(name))
            names[name.substr(0, kCopyNumber)].push_back(name);
    return names;
}

// Made anew where only the texts are there, so that two copies that start don't take one text.
bool LeftRecoveryFiles::Hold(const std::string& number) {
    const std::string path = folder_ + "/" + number + std::string(kLockEnding);
    OpenFile lock(open(path.c_str(), O_RDWR | O_CREAT | O_NOFOLLOW | O_CLOEXEC, 0600));
    if (!lock || (flock(lock.Fd(), LOCK_EX | LOCK_NB) != 0 && errno == EWOULDBLOCK))
        return false; // a disk that knows no locks offers all texts
    held_[number] = std::move(lock);
    return true;
}

std::optional<LeftFile> LeftRecoveryFiles::Read(const std::string& name) const {
    const OpenFile file(open((folder_ + "/" + name).c_str(), O_RDONLY | O_NONBLOCK | O_NOFOLLOW | O_CLOEXEC));
    struct stat info {};
    if (!file || fstat(file.Fd(), &info) != 0 || !S_ISREG(info.st_mode) || info.st_uid != geteuid())
        return std::nullopt;
    LeftFile left{name, {}, info.st_mtim.tv_sec};
    if (ReadAll(file.Fd(), left.bytes) != 0)
        left.bytes.clear();
    return left;
}

std::vector<LeftFile> LeftRecoveryFiles::Find() {
    std::vector<LeftFile> found;
    for (const auto& [number, names] : List()) {
        if (held_.contains(number) || !Hold(number))
            continue;
        for (const std::string& name : names)
            if (IsText(name))
                if (auto file = Read(name))
                    found.push_back(std::move(*file));
    }
    return found;
}

std::optional<FileFailure> LeftRecoveryFiles::PutIntoTrash(const LeftFile& file) const {
    const std::string path = folder_ + "/" + file.name;
    int error = quillshift::PutIntoTrash(path, file.bytes);
    if (error == 0 && unlink(path.c_str()) != 0)
        error = errno;
    FlushFolder(folder_);
    return error == 0 ? std::nullopt : std::optional(Explain(error, path));
}

std::u16string LeftRecoveryFiles::PutAway(const std::string& name) const {
    const std::string path = folder_ + "/" + name;
    const std::string away = path + std::string(kAwayEnding);
    const bool isAway = rename(path.c_str(), away.c_str()) == 0;
    FlushFolder(folder_);
    return FromUtf8(isAway ? away : path);
}

// What is left of a copy without texts goes: side files of writes that were killed, and the lock itself.
void LeftRecoveryFiles::Release() {
    Names names = List();
    for (const auto& [number, lock] : held_) {
        if (std::ranges::any_of(names[number], IsText))
            continue;
        RemoveLeftovers(folder_, number + std::string(kTextEnding));
        unlink((folder_ + "/" + number + std::string(kLockEnding)).c_str());
    }
    held_.clear();
}

} // namespace quillshift
