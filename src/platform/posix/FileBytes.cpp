#include "platform/posix/FileBytes.h"

#include "platform/posix/FileFailures.h"

#include <fcntl.h>
#include <poll.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <sys/xattr.h>

#include <array>
#include <csignal>
#include <cstdio>
#include <ctime>
#include <filesystem>
#include <random>

namespace quillshift {
namespace {

constexpr int kMostLinks = 40;
constexpr const char* kAccessList = "system.posix_acl_access";
constexpr int kStallMilliseconds = 4000;
constexpr int kLockMilliseconds = 1000;
constexpr std::string_view kSideEnding = ".quillshift";

// The part of a long name that leaves room for the rest.
std::string Stem(const std::string& name) {
    std::size_t end = 160;
    if (name.size() <= end)
        return name;
    while (end > 0 && (static_cast<unsigned char>(name[end]) & 0xC0U) == 0x80)
        --end;
    return name.substr(0, end);
}

bool IsSideFileOf(std::string_view stem, std::string_view name) {
    constexpr std::size_t kSuffix = 9; // a dot and eight digits
    if (!name.starts_with(stem) || !name.ends_with(kSideEnding) ||
        name.size() != stem.size() + kSuffix + kSideEnding.size())
        return false;
    const std::string_view suffix = name.substr(stem.size(), kSuffix);
    return suffix.front() == '.' && suffix.find_first_not_of("0123456789abcdef", 1) == std::string_view::npos;
}

} // namespace

SideFile::SideFile(const std::string& folder, const std::string& name, mode_t mode) {
    const std::string stem = folder + "/" + Stem(name);
    std::random_device random;
    do {
        std::array<char, 16> suffix{};
        std::snprintf(suffix.data(), suffix.size(), ".%08x", static_cast<unsigned>(random()));
        path_ = stem + suffix.data() + std::string(kSideEnding);
        file_ = OpenFile(open(path_.c_str(), O_RDWR | O_CREAT | O_EXCL | O_CLOEXEC | O_NOFOLLOW, mode));
    } while (!file_ && errno == EEXIST);
    error_ = file_ ? 0 : errno;
    if (!file_)
        return;
    flock(file_.Fd(), LOCK_EX | LOCK_NB);
    lock_ = OpenFile(fcntl(file_.Fd(), F_DUPFD_CLOEXEC, 0));
}

void RemoveLeftovers(const std::string& folder, const std::string& name) {
    constexpr std::time_t kJustMade = 60; // seconds: perhaps not locked yet
    const std::string stem = Stem(name);
    std::error_code error;
    for (std::filesystem::directory_iterator entry(folder, error);
         !error && entry != std::filesystem::directory_iterator(); entry.increment(error)) {
        if (!IsSideFileOf(stem, entry->path().filename().native()))
            continue;
        const OpenFile file(open(entry->path().c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC | O_NOFOLLOW));
        struct stat info {};
        if (file && fstat(file.Fd(), &info) == 0 && S_ISREG(info.st_mode) && info.st_uid == geteuid() &&
            std::time(nullptr) - info.st_mtime > kJustMade && flock(file.Fd(), LOCK_EX | LOCK_NB) == 0)
            unlink(entry->path().c_str());
    }
}

void SurviveFailedWrites() {
    std::signal(SIGPIPE, SIG_IGN);
    std::signal(SIGXFSZ, SIG_IGN);
}

int Lock(int fd) {
    constexpr int kStep = 10;
    for (int waited = 0; flock(fd, LOCK_EX | LOCK_NB) != 0; waited += kStep) {
        if (errno != EWOULDBLOCK)
            return 0;
        if (waited >= kLockMilliseconds)
            return EBUSY;
        poll(nullptr, 0, kStep);
    }
    return 0;
}

int FollowLinks(std::string& path) {
    struct stat info {};
    for (int links = 0; lstat(path.c_str(), &info) == 0 && S_ISLNK(info.st_mode); ++links) {
        std::array<char, 4096> text{};
        const ssize_t length = readlink(path.c_str(), text.data(), text.size());
        if (length < 0)
            return errno;
        if (links == kMostLinks)
            return ELOOP;
        const std::string_view aim(text.data(), static_cast<std::size_t>(length));
        path = aim.starts_with('/') ? "" : SplitPath(path).first + "/";
        path += aim;
    }
    return 0;
}

int WriteAll(int fd, std::string_view bytes) {
    while (!bytes.empty()) {
        const ssize_t written = write(fd, bytes.data(), bytes.size());
        if (written >= 0) {
            bytes.remove_prefix(static_cast<std::size_t>(written));
        } else if (errno == EAGAIN) {
            pollfd ready{fd, POLLOUT, 0};
            if (poll(&ready, 1, kStallMilliseconds) == 0)
                return ETIMEDOUT;
        } else if (errno != EINTR) {
            return errno;
        }
    }
    return 0;
}

int ReadAll(int fd, std::string& bytes) {
    bytes.clear();
    std::string buffer(std::size_t{256} << 10U, '\0');
    for (;;) {
        const ssize_t got = pread(fd, buffer.data(), buffer.size(), static_cast<off_t>(bytes.size()));
        if (got < 0 && errno == EINTR)
            continue;
        if (got <= 0)
            return got == 0 ? 0 : errno;
        bytes.append(buffer, 0, static_cast<std::size_t>(got));
    }
}

// Some file systems have nothing to flush and say so.
int Flush(int fd) {
    return fsync(fd) == 0 || errno == EINVAL || errno == ENOSYS || errno == ENOTSUP ? 0 : errno;
}

void FlushFolder(const std::string& folder) {
    if (const OpenFile holder(open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC)); holder)
        Flush(holder.Fd());
}

int CopyContents(int from, int to) {
    if (lseek(from, 0, SEEK_SET) < 0 || lseek(to, 0, SEEK_SET) < 0)
        return errno;
    std::string buffer(std::size_t{256} << 10U, '\0');
    off_t copied = 0;
    for (;;) {
        const ssize_t got = read(from, buffer.data(), buffer.size());
        if (got < 0 && errno == EINTR)
            continue;
        if (got < 0)
            return errno;
        if (got == 0)
            break;
        if (const int error = WriteAll(to, {buffer.data(), static_cast<std::size_t>(got)}))
            return error;
        copied += got;
    }
    return ftruncate(to, copied) == 0 ? Flush(to) : errno;
}

int Reserve(int fd, off_t size, off_t oldSize) {
    if (size == 0)
        return 0;
    int error = 0;
    do {
        error = posix_fallocate(fd, 0, size);
    } while (error == EINTR);
    if (error == EINVAL || error == EOPNOTSUPP || error == ENOSYS)
        error = 0;
    if (error != 0 && ftruncate(fd, oldSize) != 0)
        return errno;
    return error;
}

int PutContents(int fd, std::string_view bytes) {
    if (lseek(fd, 0, SEEK_SET) < 0)
        return errno;
    if (const int error = WriteAll(fd, bytes))
        return error;
    return ftruncate(fd, static_cast<off_t>(bytes.size())) == 0 ? Flush(fd) : errno;
}

bool CopyAttributes(int from, int to) {
    fremovexattr(to, kAccessList); // a folder's default list gave it one
    const ssize_t size = flistxattr(from, nullptr, 0);
    std::string names(size > 0 ? static_cast<std::size_t>(size) : 0, '\0');
    const ssize_t listed = names.empty() ? 0 : flistxattr(from, names.data(), names.size());
    names.resize(listed > 0 ? static_cast<std::size_t>(listed) : 0);
    for (std::size_t start = 0; start < names.size(); start = names.find('\0', start) + 1) {
        const char* name = names.data() + start;
        std::string value(std::size_t{64} << 10U, '\0'); // the largest the system allows
        const ssize_t length = fgetxattr(from, name, value.data(), value.size());
        const bool copied =
            length >= 0 && fsetxattr(to, name, value.data(), static_cast<std::size_t>(length), 0) == 0;
        if (!copied && std::string_view(name) == kAccessList)
            return false;
    }
    return true;
}

} // namespace quillshift
