#include "platform/posix/FileBytes.h"

#include <fcntl.h>
#include <poll.h>

#include <array>
#include <csignal>
#include <cstdio>
#include <random>

namespace quillshift {
namespace {

constexpr int kStallMilliseconds = 4000;

} // namespace

SideFile::SideFile(const std::string& folder, std::string name, mode_t mode) {
    constexpr std::size_t kLongestStem = 160;
    if (name.size() > kLongestStem) {
        std::size_t end = kLongestStem;
        while (end > 0 && (static_cast<unsigned char>(name[end]) & 0xC0U) == 0x80)
            --end;
        name.resize(end);
    }
    std::random_device random;
    do {
        std::array<char, 16> suffix{};
        std::snprintf(suffix.data(), suffix.size(), ".%08x", static_cast<unsigned>(random()));
        path_ = folder + "/" + name + suffix.data();
        file_ = OpenFile(open(path_.c_str(), O_RDWR | O_CREAT | O_EXCL | O_CLOEXEC | O_NOFOLLOW, mode));
    } while (!file_ && errno == EEXIST);
    error_ = file_ ? 0 : errno;
}

void SurviveFailedWrites() {
    std::signal(SIGPIPE, SIG_IGN);
    std::signal(SIGXFSZ, SIG_IGN);
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

} // namespace quillshift
