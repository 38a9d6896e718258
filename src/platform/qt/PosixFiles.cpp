#include "platform/qt/PosixFiles.h"

#include "base/Utf8.h"

#include <fcntl.h>
#include <poll.h>
#include <sys/stat.h>
#include <sys/types.h>
#include <sys/xattr.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <random>
#include <system_error>
#include <utility>

namespace quillshift {
namespace {

constexpr int kStallMilliseconds = 4000;
constexpr int kMostLinks = 40;
constexpr const char* kAccessList = "system.posix_acl_access";

// An open file that closes itself. `Close` tells what closing said, which for a network drive may be the
// first word of a failed write.
class OpenFile {
public:
    explicit OpenFile(int fd = -1) : fd_(fd) {}
    OpenFile(OpenFile&& other) noexcept : fd_(std::exchange(other.fd_, -1)) {}
    OpenFile& operator=(OpenFile&& other) noexcept {
        std::swap(fd_, other.fd_);
        return *this;
    }
    ~OpenFile() { Close(); }

    explicit operator bool() const { return fd_ >= 0; }
    int Fd() const { return fd_; }
    int Close() {
        const int fd = std::exchange(fd_, -1);
        return fd >= 0 && close(fd) != 0 && errno != EINTR ? errno : 0;
    }

private:
    int fd_;
};

// Keeps the two signals that a failed write may send from ending the program: the error number says it too.
class WriteSignals {
public:
    WriteSignals() {
        sigemptyset(&ours_);
        sigaddset(&ours_, SIGPIPE);
        sigaddset(&ours_, SIGXFSZ);
        pthread_sigmask(SIG_BLOCK, &ours_, &before_);
    }
    ~WriteSignals() {
        const timespec now{};
        while (sigtimedwait(&ours_, nullptr, &now) > 0) {
        }
        pthread_sigmask(SIG_SETMASK, &before_, nullptr);
    }
    WriteSignals(const WriteSignals&) = delete;
    WriteSignals& operator=(const WriteSignals&) = delete;

private:
    sigset_t ours_{};
    sigset_t before_{};
};

std::pair<std::string, std::string> SplitPath(const std::string& path) {
    const auto slash = path.rfind('/');
    if (slash == std::string::npos)
        return {".", path};
    return {slash == 0 ? "/" : path.substr(0, slash), path.substr(slash + 1)};
}

FileFailure Explain(int error, const std::string& path) {
    struct stat folder {};
    switch (error) {
    case ENOENT:
        if (stat(SplitPath(path).first.c_str(), &folder) == 0 && S_ISDIR(folder.st_mode))
            return {53, u"Файл не найден"};
        [[fallthrough]];
    case ENOTDIR:
        return {76, u"Папка не найдена"};
    case EACCES:
    case EPERM:
        return {70, u"Нет прав доступа к файлу"};
    case EROFS:
        return {70, u"Диск доступен только для чтения"};
    case ENOSPC:
        return {61, u"На диске нет места"};
    case EDQUOT:
        return {61, u"Исчерпана дисковая квота"};
    case EFBIG:
        return {61, u"Файл больше, чем разрешено на этом диске"};
    case EISDIR:
        return {75, u"Это не обычный файл, а папка"};
    case ENAMETOOLONG:
        return {75, u"Слишком длинное имя файла"};
    case ELOOP:
        return {75, u"Ссылки на файл образуют круг"};
    case ENXIO:
    case EPIPE:
        return {75, u"Канал или устройство никто не читает"};
    case ETIMEDOUT:
        return {75, u"Канал или устройство не принимает данные"};
    case EIO:
        return {75, u"Ошибка чтения или записи диска"};
    default:
        return {75, u"Ошибка доступа к файлу, код " + FromUtf8(std::to_string(error))};
    }
}

std::optional<FileFailure> RefuseUnlessRegular(const struct stat& info) {
    const auto refuse = [](std::u16string_view what) {
        return FileFailure{75, u"Это не обычный файл, а " + std::u16string(what)};
    };
    switch (info.st_mode & S_IFMT) {
    case S_IFREG:
        return std::nullopt;
    case S_IFDIR:
        return refuse(u"папка");
    case S_IFIFO:
        return refuse(u"канал");
    case S_IFSOCK:
        return refuse(u"сокет");
    default:
        return refuse(u"устройство");
    }
}

// A name the system would read as another one, cut at a zero or mended, is no name of a file.
std::optional<FileFailure> ToNative(std::u16string_view path, std::string& native) {
    if (path.empty())
        return FileFailure{75, u"Не задано имя файла"};
    native = ToUtf8(path);
    if (path.find(u'\0') != std::u16string_view::npos || FromUtf8(native) != path)
        return FileFailure{53, u"Файл не найден: такого имени не бывает"};
    return std::nullopt;
}

// The functions below answer with an error number, 0 for success.

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

// Makes the names in a folder last through a power cut.
void FlushFolder(const std::string& folder) {
    if (const OpenFile holder(open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC)); holder)
        Flush(holder.Fd());
}

// Replaces the contents of `to` by those of `from`.
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

// Takes the room a file will need, so that a full disk shows before a byte of it has changed.
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

// A file with a name of its own, removed at the end unless it was renamed or kept. The system gives the mode,
// so that a new file gets what the user's mask and the folder's access list say.
class SideFile {
public:
    SideFile(const std::string& folder, std::string name, mode_t mode) {
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
    ~SideFile() {
        if (error_ == 0 && !kept_)
            unlink(path_.c_str());
    }
    SideFile(const SideFile&) = delete;
    SideFile& operator=(const SideFile&) = delete;

    int Error() const { return error_; }
    const std::string& Path() const { return path_; }
    OpenFile& File() { return file_; }
    void Keep() { kept_ = true; }

private:
    std::string path_;
    OpenFile file_;
    int error_ = 0;
    bool kept_ = false;
};

// The file that a save goes to: links are followed, also a link to a file that is yet to be made.
struct Target {
    std::string path;
    OpenFile file;        // open for writing if it exists
    struct stat info {};  // if it exists
    bool renames = false; // whether its name leads to it, so that a rename can replace it
};

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

std::optional<FileFailure> FindTarget(const std::string& path, Target& target) {
    struct stat throughLinks {};
    const bool exists = stat(path.c_str(), &throughLinks) == 0;
    if (!exists && errno != ENOENT)
        return Explain(errno, path);
    // A letter written over the first blocks of a disk would cost more than a letter.
    if (exists && !S_ISREG(throughLinks.st_mode) && !S_ISFIFO(throughLinks.st_mode) &&
        !S_ISCHR(throughLinks.st_mode))
        return RefuseUnlessRegular(throughLinks);
    target.path = path;
    if (const int error = FollowLinks(target.path))
        return Explain(error, path);
    struct stat named {};
    target.renames = !exists || (lstat(target.path.c_str(), &named) == 0 &&
                                 named.st_dev == throughLinks.st_dev && named.st_ino == throughLinks.st_ino);
    // The links of /proc name open files, which their text doesn't find.
    if (!target.renames)
        target.path = path;
    if (!exists)
        return std::nullopt;
    // Opened though it will be replaced: a file that may not be written is not to be replaced either.
    target.file = OpenFile(open(target.path.c_str(), O_WRONLY | O_NONBLOCK | O_CLOEXEC | O_NOCTTY));
    if (!target.file || fstat(target.file.Fd(), &target.info) != 0)
        return Explain(errno, target.path);
    return std::nullopt;
}

// Copies the extended attributes that can be copied. False if the access list is none of them: without it
// the mode would mean something else.
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

// Gives the new file the old one's owner, mode and attributes; false if it can't be given all of them.
bool TakeOver(int fd, const Target& old) {
    struct stat now {};
    // What counts is what the file has afterwards: a right may be dropped silently, or not be needed.
    [[maybe_unused]] const int owner = fchown(fd, old.info.st_uid, old.info.st_gid);
    [[maybe_unused]] const int mode = fchmod(fd, old.info.st_mode & 07777U);
    return CopyAttributes(old.file.Fd(), fd) && fstat(fd, &now) == 0 && now.st_uid == old.info.st_uid &&
           now.st_gid == old.info.st_gid && now.st_mode == old.info.st_mode;
}

bool IsRefusal(int error) {
    return error == EACCES || error == EPERM || error == EROFS || error == EBUSY || error == EXDEV;
}

struct Replacement {
    int error = 0;
    bool overwriteInstead = false; // the file itself could still be written
};

Replacement Replace(const Target& target, std::string_view bytes) {
    const bool exists = static_cast<bool>(target.file);
    const auto [folder, name] = SplitPath(target.path);
    if (name.empty())
        return {ENOTDIR, false};
    SideFile side(folder, "." + name, exists ? 0600 : 0666);
    if (side.Error() != 0)
        return {side.Error(), exists && IsRefusal(side.Error())};
    if (exists && !TakeOver(side.File().Fd(), target))
        return {EPERM, true};
    int error = WriteAll(side.File().Fd(), bytes);
    if (error == 0)
        error = Flush(side.File().Fd());
    if (const int closing = side.File().Close(); error == 0)
        error = closing;
    if (error != 0)
        return {error, false};
    if (rename(side.Path().c_str(), target.path.c_str()) != 0)
        return {errno, exists && IsRefusal(errno)};
    side.Keep();
    FlushFolder(folder); // whatever it answers, the new contents are there: nothing left to take back
    return {};
}

std::string DefaultSafetyFolder() {
    const char* cache = std::getenv("XDG_CACHE_HOME");
    if (cache != nullptr && cache[0] == '/')
        return std::string(cache) + "/quillshift";
    const char* home = std::getenv("HOME");
    return home != nullptr && home[0] == '/' ? std::string(home) + "/.cache/quillshift" : "/var/tmp";
}

int MakeFolder(const std::string& folder) {
    std::error_code error;
    if (std::filesystem::create_directories(folder, error))
        std::filesystem::permissions(folder, std::filesystem::perms::owner_all, error);
    return error.value();
}

int PutContents(int fd, std::string_view bytes) {
    if (lseek(fd, 0, SEEK_SET) < 0)
        return errno;
    if (const int error = WriteAll(fd, bytes))
        return error;
    return ftruncate(fd, static_cast<off_t>(bytes.size())) == 0 ? Flush(fd) : errno;
}

} // namespace

FileContents PosixFiles::Read(std::u16string_view path) {
    const FileFailure tooLarge{75, u"Файл слишком велик: больше 256 МБ"};
    std::string native;
    if (const auto failure = ToNative(path, native))
        return {{}, failure};
    // Asked before it is opened: opening a pipe would already disturb whoever writes to it.
    struct stat info {};
    if (stat(native.c_str(), &info) != 0)
        return {{}, Explain(errno, native)};
    if (const auto failure = RefuseUnlessRegular(info))
        return {{}, failure};
    const OpenFile file(open(native.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC | O_NOCTTY));
    if (!file || fstat(file.Fd(), &info) != 0)
        return {{}, Explain(errno, native)};
    if (const auto failure = RefuseUnlessRegular(info))
        return {{}, failure};
    const auto expected = static_cast<std::size_t>(info.st_size);
    if (expected > kLargestFile)
        return {{}, tooLarge};

    // A file of the system may hold more than its size of 0 says, and any file may grow: read until it ends.
    constexpr std::size_t kStep = std::size_t{64} << 10U;
    std::string bytes(expected + 1, '\0');
    std::size_t filled = 0;
    for (;;) {
        if (filled == bytes.size())
            bytes.resize(std::min(bytes.size() + std::max(bytes.size(), kStep), kLargestFile + 1));
        const ssize_t got = read(file.Fd(), bytes.data() + filled, bytes.size() - filled);
        if (got < 0 && errno == EINTR)
            continue;
        if (got < 0)
            return {{}, Explain(errno, native)};
        if (got == 0)
            break;
        filled += static_cast<std::size_t>(got);
        if (filled > kLargestFile)
            return {{}, tooLarge};
    }
    if (filled < expected)
        return {{}, FileFailure{75, u"Файл изменился во время чтения"}};
    bytes.resize(filled);
    return {std::move(bytes), std::nullopt};
}

std::optional<FileFailure> PosixFiles::Write(std::u16string_view path, std::string_view bytes) {
    std::string native;
    if (auto failure = ToNative(path, native))
        return failure;
    const WriteSignals signals;
    Target target;
    if (auto failure = FindTarget(native, target))
        return failure;
    if (target.file && !S_ISREG(target.info.st_mode)) {
        const int error = WriteAll(target.file.Fd(), bytes);
        const int closing = target.file.Close();
        if (error != 0 || closing != 0)
            return Explain(error != 0 ? error : closing, target.path);
        return std::nullopt;
    }
    if (target.file && (!target.renames || target.info.st_nlink != 1))
        return Overwrite(target.path, bytes);
    const Replacement replacement = Replace(target, bytes);
    if (replacement.overwriteInstead)
        return Overwrite(target.path, bytes);
    if (replacement.error != 0)
        return Explain(replacement.error, target.path);
    return std::nullopt;
}

std::optional<FileFailure> PosixFiles::Overwrite(const std::string& path, std::string_view bytes) const {
    const std::string folder = safetyFolder_.empty() ? DefaultSafetyFolder() : safetyFolder_;
    OpenFile file(open(path.c_str(), O_RDWR | O_NONBLOCK | O_CLOEXEC | O_NOCTTY));
    struct stat info {};
    if (!file || fstat(file.Fd(), &info) != 0)
        return Explain(errno, path);

    const auto noCopy = [&](int error) {
        FileFailure failure = Explain(error, folder + "/");
        failure.description = u"Не удалось сберечь прежнее содержимое файла. " + failure.description;
        return failure;
    };
    if (const int error = MakeFolder(folder))
        return noCopy(error);
    SideFile copy(folder, SplitPath(path).second, 0600);
    if (copy.Error() != 0)
        return noCopy(copy.Error());
    if (const int error = CopyContents(file.Fd(), copy.File().Fd()))
        return noCopy(error);
    FlushFolder(folder);

    if (const int error = Reserve(file.Fd(), static_cast<off_t>(bytes.size()), info.st_size))
        return Explain(error, path);
    int error = PutContents(file.Fd(), bytes);
    const bool restored = error == 0 || CopyContents(copy.File().Fd(), file.Fd()) == 0;
    const int closing = file.Close();
    error = error != 0 ? error : closing;
    if (error == 0)
        return std::nullopt;
    FileFailure failure = Explain(error, path);
    if (!restored || closing != 0) {
        copy.Keep();
        failure.description += u". Прежнее содержимое сохранено в файле " + FromUtf8(copy.Path());
    }
    return failure;
}

} // namespace quillshift
