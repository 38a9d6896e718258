#include "platform/posix/OwnRecoveryFile.h"

#include "platform/posix/PrivateFolder.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>

#include <array>
#include <cstdio>
#include <random>

namespace quillshift {
namespace {

std::string RandomNumber() {
    std::random_device random;
    std::array<char, kCopyNumber + 1> text{};
    std::snprintf(text.data(), text.size(), "%08x%08x", static_cast<unsigned>(random()),
                  static_cast<unsigned>(random()));
    return text.data();
}

} // namespace

bool OwnRecoveryFile::IsInPlace(const OpenFile& file, std::string_view ending) const {
    struct stat open {};
    struct stat named {};
    return file && fstat(file.Fd(), &open) == 0 && lstat(PathOf(ending).c_str(), &named) == 0 &&
           open.st_dev == named.st_dev && open.st_ino == named.st_ino;
}

// A lock that a starting copy takes for a dead one's, before it is locked here, is given up for another.
int OwnRecoveryFile::TakePlace() {
    if (IsInPlace(lock_, kLockEnding))
        return 0;
    if (const int error = MakeFolders(folder_))
        return error;
    CloseToOthers(folder_);
    do {
        number_ = RandomNumber();
        lock_ = OpenFile(
            open(PathOf(kLockEnding).c_str(), O_RDWR | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, 0600));
        if (!lock_ && errno != EEXIST)
            return errno;
    } while (!lock_ || (flock(lock_.Fd(), LOCK_EX | LOCK_NB) != 0 && errno == EWOULDBLOCK) ||
             !IsInPlace(lock_, kLockEnding));
    return 0;
}

int OwnRecoveryFile::Replace(std::string_view bytes) {
    if (const int error = TakePlace())
        return error;
    SideFile side(folder_, number_ + std::string(kTextEnding), 0600);
    int error = side.Error();
    if (error == 0)
        error = WriteAll(side.File().Fd(), bytes);
    if (error == 0)
        error = Flush(side.File().Fd());
    if (error == 0 && rename(side.Path().c_str(), PathOf(kTextEnding).c_str()) != 0)
        error = errno;
    if (error != 0)
        return error;
    side.Keep();
    file_ = std::move(side.File());
    FlushFolder(folder_);
    return 0;
}

int OwnRecoveryFile::Append(std::string_view bytes) {
    if (!IsInPlace(file_, kTextEnding))
        return Rewrite([bytes](std::string_view before) { return std::string(before).append(bytes); });
    const int error = WriteAll(file_.Fd(), bytes);
    return error != 0 ? error : Flush(file_.Fd());
}

int OwnRecoveryFile::Rewrite(const std::function<std::optional<std::string>(std::string_view)>& shorten) {
    std::string bytes;
    if (!file_)
        return ENOENT;
    if (const int error = ReadAll(file_.Fd(), bytes))
        return error;
    const auto shorter = shorten(bytes);
    return shorter ? Replace(*shorter) : EIO;
}

int OwnRecoveryFile::SetAside() {
    file_.Close();
    if (number_.empty())
        return 0;
    if (rename(PathOf(kTextEnding).c_str(), PathOf(kKeptEnding).c_str()) != 0)
        return errno;
    FlushFolder(folder_);
    return 0;
}

int OwnRecoveryFile::RemoveOne(std::string_view ending) const {
    return unlink(PathOf(ending).c_str()) == 0 || errno == ENOENT ? 0 : errno;
}

int OwnRecoveryFile::Remove() {
    file_.Close();
    if (number_.empty())
        return 0;
    const int error = RemoveOne(kTextEnding);
    FlushFolder(folder_);
    return error;
}

int OwnRecoveryFile::RemoveAll() {
    int error = Remove();
    if (number_.empty())
        return error;
    if (const int kept = RemoveOne(kKeptEnding))
        error = kept;
    if (error == 0)
        error = RemoveOne(kLockEnding);
    lock_.Close();
    FlushFolder(folder_);
    return error;
}

int OwnRecoveryFile::Take(const std::string& name) {
    if (const int error = TakePlace())
        return error;
    file_.Close();
    if (rename((folder_ + "/" + name).c_str(), PathOf(kTextEnding).c_str()) != 0)
        return errno;
    FlushFolder(folder_);
    return 0;
}

} // namespace quillshift
