#include "platform/posix/PosixFiles.h"

#include "base/Utf8.h"
#include "platform/posix/FileBytes.h"
#include "platform/posix/FileFailures.h"
#include "platform/posix/PrivateFolder.h"
#include "platform/posix/SideBackup.h"
#include "platform/posix/Trash.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdlib>
#include <utility>

namespace quillshift {
namespace {

bool IsSameFile(const struct stat& one, const struct stat& other) {
    return one.st_dev == other.st_dev && one.st_ino == other.st_ino;
}

FileMark MarkIn(const struct stat& info) {
    return {info.st_dev, info.st_ino, info.st_size, info.st_mtim.tv_sec, info.st_mtim.tv_nsec};
}

// The file that a save goes to: links are followed, also a link to a file that is yet to be made.
struct Target {
    std::string path;
    OpenFile file;        // open for writing if it exists
    struct stat info {};  // if it exists
    bool renames = false; // whether its name leads to it, so that a rename can replace it
};

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
    target.renames = !exists || (lstat(target.path.c_str(), &named) == 0 && IsSameFile(named, throughLinks));
    // The links of /proc name open files, which their text doesn't find.
    if (!target.renames)
        target.path = path;
    if (!exists)
        return std::nullopt;
    // Opened though it will be replaced: a file that may not be written is not to be replaced either.
    const auto openFor = [&target](int access) {
        return OpenFile(open(target.path.c_str(), access | O_NONBLOCK | O_CLOEXEC | O_NOCTTY));
    };
    if (S_ISREG(throughLinks.st_mode))
        target.file = openFor(O_RDWR);
    if (!target.file)
        target.file = openFor(O_WRONLY);
    if (!target.file || fstat(target.file.Fd(), &target.info) != 0)
        return Explain(errno, target.path);
    return std::nullopt;
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
    bool unexpected = false;       // somebody else has made it meanwhile
    bool replaced = false;         // the error came later
    std::optional<FileMark> mark{};
};

// Not over a file that was made meanwhile, where the disk can tell.
int RenameToNew(const char* from, const char* to) {
    if (renameat2(AT_FDCWD, from, AT_FDCWD, to, RENAME_NOREPLACE) == 0)
        return 0;
    if (errno != EINVAL && errno != ENOSYS)
        return errno;
    return rename(from, to) == 0 ? 0 : errno;
}

Replacement ReplaceFile(const Target& target, std::string_view bytes, bool mustBeNew) {
    const bool exists = static_cast<bool>(target.file);
    const auto [folder, name] = SplitPath(target.path);
    if (name.empty())
        return {ENOTDIR, false};
    SideFile side(folder, "." + name, exists ? 0600 : 0666);
    if (side.Error() != 0)
        return {side.Error(), exists && IsRefusal(side.Error())};
    if (exists && !TakeOver(side.File().Fd(), target))
        return {EPERM, true};
    struct stat written {};
    struct stat named {};
    int error = WriteAll(side.File().Fd(), bytes);
    if (error == 0)
        error = Flush(side.File().Fd());
    if (error == 0 && fstat(side.File().Fd(), &written) != 0)
        error = errno;
    if (const int closing = side.File().Close(); error == 0)
        error = closing;
    if (error != 0)
        return {error, false};
    if (mustBeNew)
        error = RenameToNew(side.Path().c_str(), target.path.c_str());
    else
        error = rename(side.Path().c_str(), target.path.c_str()) == 0 ? 0 : errno;
    if (error == EEXIST)
        return {.unexpected = true};
    if (error != 0)
        return {error, exists && IsRefusal(error)};
    side.Keep();
    // Where others may change the folder, one of them may have swapped the names.
    if (lstat(target.path.c_str(), &named) != 0 || !IsSameFile(named, written))
        return {.error = ESTALE, .replaced = true};
    FlushFolder(folder); // whatever it answers, the new contents are there: nothing left to take back
    RemoveLeftovers(folder, "." + name);
    return {.mark = MarkIn(named)};
}

enum class Comparison { Same, Other, Failed };

// Compares what stands at the target, of which the lock is held. It is read through the file that holds the
// lock: some network disks let no other one read.
Comparison Compare(const Target& target, const Expected& expected) {
    if (expected.what == Expected::What::Anything)
        return Comparison::Same;
    if (!target.file || expected.what == Expected::What::Nothing)
        return !target.file && expected.what == Expected::What::Nothing ? Comparison::Same
                                                                        : Comparison::Other;
    struct stat named {};
    if (stat(target.path.c_str(), &named) != 0 || !IsSameFile(named, target.info) ||
        target.info.st_size != static_cast<off_t>(expected.bytes.size()))
        return Comparison::Other;
    std::string buffer(std::size_t{256} << 10U, '\0');
    for (std::size_t at = 0; at < expected.bytes.size();) {
        const ssize_t got = pread(target.file.Fd(), buffer.data(), buffer.size(), static_cast<off_t>(at));
        if (got < 0 && errno == EINTR)
            continue;
        if (got < 0)
            return Comparison::Failed;
        const std::string_view part(buffer.data(), static_cast<std::size_t>(got));
        if (part.empty() || !expected.bytes.substr(at).starts_with(part))
            return Comparison::Other;
        at += part.size();
    }
    return Comparison::Same;
}

// Waits until nobody else writes the file, and looks again.
int TakeLock(Target& target) {
    if (const int error = Lock(target.file.Fd()))
        return error;
    return fstat(target.file.Fd(), &target.info) == 0 ? 0 : errno;
}

std::optional<FileFailure> WriteStraight(Target& target, std::string_view bytes) {
    const int error = WriteAll(target.file.Fd(), bytes);
    const int closing = target.file.Close();
    if (error != 0 || closing != 0)
        return Explain(error != 0 ? error : closing, target.path);
    return std::nullopt;
}

std::string DefaultSafetyFolder() {
    const char* cache = std::getenv("XDG_CACHE_HOME");
    if (cache != nullptr && cache[0] == '/')
        return std::string(cache) + "/quillshift";
    const char* home = std::getenv("HOME");
    return home != nullptr && home[0] == '/' ? std::string(home) + "/.cache/quillshift" : "/var/tmp";
}

} // namespace

FileContents PosixFiles::Read(std::u16string_view path) {
    std::string native;
    if (const auto failure = ToNative(path, native))
        return {{}, failure};
    return ReadNative(native);
}

FileContents PosixFiles::ReadNative(const std::string& native) {
    const FileFailure tooLarge{75, u"Файл слишком велик: больше 256 МБ"};
    // Asked before it is opened: opening a pipe would already disturb whoever writes to it.
    struct stat info {};
    if (stat(native.c_str(), &info) != 0) {
        const int error = errno;
        return {.bytes = {}, .failure = Explain(error, native), .isUnknown = error != ENOENT};
    }
    if (const auto failure = RefuseUnlessRegular(info))
        return {{}, failure};
    const OpenFile file(open(native.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC | O_NOCTTY));
    if (!file || fstat(file.Fd(), &info) != 0)
        return {{}, Explain(errno, native), true};
    if (const auto failure = RefuseUnlessRegular(info))
        return {{}, failure};
    const auto expected = static_cast<std::size_t>(info.st_size);
    if (expected > kLargestFile)
        return {{}, tooLarge, true};

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
            return {{}, Explain(errno, native), true};
        if (got == 0)
            break;
        filled += static_cast<std::size_t>(got);
        if (filled > kLargestFile)
            return {{}, tooLarge, true};
    }
    if (filled < expected)
        return {{}, FileFailure{75, u"Файл изменился во время чтения"}, true};
    bytes.resize(filled);
    return {.bytes = std::move(bytes), .failure = {}, .isFile = true, .mark = MarkIn(info)};
}

std::optional<FileMark> PosixFiles::MarkOf(std::u16string_view path) {
    std::string native;
    struct stat info {};
    if (ToNative(path, native) || stat(native.c_str(), &info) != 0 || !S_ISREG(info.st_mode))
        return std::nullopt;
    return MarkIn(info);
}

Written PosixFiles::Replace(std::u16string_view path, std::string_view bytes, const Expected& expected) {
    std::string native;
    if (auto failure = ToNative(path, native))
        return {failure};
    return ReplaceNative(native, bytes, expected);
}

Written PosixFiles::ReplaceNative(const std::string& native, std::string_view bytes,
                                  const Expected& expected) const {
    Target target;
    if (auto failure = FindTarget(native, target))
        return {failure};
    if (target.file && !S_ISREG(target.info.st_mode))
        return {WriteStraight(target, bytes)};
    if (const int error = target.file ? TakeLock(target) : 0)
        return {Explain(error, target.path)};
    const Comparison compared = Compare(target, expected);
    if (compared == Comparison::Failed)
        return {Explain(errno, target.path)};
    if (compared == Comparison::Other)
        return {.failure = {}, .unexpected = true};
    if (target.file && (!target.renames || target.info.st_nlink != 1))
        return Overwrite(target.file, target.path, bytes);
    const Replacement done = ReplaceFile(target, bytes, expected.what == Expected::What::Nothing);
    if (done.overwriteInstead)
        return Overwrite(target.file, target.path, bytes);
    if (done.error != 0)
        return {.failure = Explain(done.error, target.path), .replaced = done.replaced};
    return {.failure = {}, .unexpected = done.unexpected, .mark = done.mark};
}

Preparation PosixFiles::PrepareBackup(std::u16string_view path, std::string_view bytes,
                                      std::u16string_view document) {
    std::string place;
    std::string original;
    if (auto failure = ToNative(path, place))
        return {nullptr, failure};
    if (auto failure = ToNative(document, original))
        return {nullptr, failure};
    return PrepareSideBackup(place, bytes, original);
}

std::optional<FileFacts> PosixFiles::Facts(std::u16string_view path) {
    std::string native;
    struct statx info {};
    if (ToNative(path, native) ||
        statx(AT_FDCWD, native.c_str(), 0, STATX_BASIC_STATS | STATX_BTIME, &info) != 0)
        return std::nullopt;
    FileFacts facts{.size = info.stx_size,
                    .created = {},
                    .modified = info.stx_mtime.tv_sec,
                    .accessed = info.stx_atime.tv_sec,
                    .hidden = SplitPath(native).second.starts_with('.'),
                    .readOnly = faccessat(AT_FDCWD, native.c_str(), W_OK, AT_EACCESS) != 0};
    if ((info.stx_mask & STATX_BTIME) != 0)
        facts.created = info.stx_btime.tv_sec;
    return facts;
}

bool PosixFiles::IsLink(std::u16string_view path) {
    std::string native;
    struct stat info {};
    return !ToNative(path, native) && lstat(native.c_str(), &info) == 0 && S_ISLNK(info.st_mode);
}

std::optional<FileFailure> PosixFiles::CopyToTrash(std::u16string_view path, std::string_view bytes) {
    std::string native;
    if (auto failure = ToNative(path, native))
        return failure;
    if (const int error = PutIntoTrash(native, bytes))
        return Explain(error, native);
    return std::nullopt;
}

Written PosixFiles::Overwrite(OpenFile& file, const std::string& path, std::string_view bytes) const {
    const std::string folder = safetyFolder_.empty() ? DefaultSafetyFolder() : safetyFolder_;
    struct stat info {};
    if (fstat(file.Fd(), &info) != 0)
        return {Explain(errno, path)};

    const auto noCopy = [&](int error) {
        FileFailure failure = Explain(error, folder + "/");
        failure.description = u"Не удалось сберечь прежнее содержимое файла. " + failure.description;
        return failure;
    };
    if (const int error = MakeFolders(folder))
        return {noCopy(error)};
    SideFile copy(folder, SplitPath(path).second, 0600);
    if (copy.Error() != 0)
        return {noCopy(copy.Error())};
    if (const int error = CopyContents(file.Fd(), copy.File().Fd()))
        return {noCopy(error)};
    FlushFolder(folder);

    if (const int error = Reserve(file.Fd(), static_cast<off_t>(bytes.size()), info.st_size))
        return {Explain(error, path)};
    int error = PutContents(file.Fd(), bytes);
    const bool restored = error == 0 || CopyContents(copy.File().Fd(), file.Fd()) == 0;
    const bool marked = fstat(file.Fd(), &info) == 0;
    const int closing = file.Close();
    error = error != 0 ? error : closing;
    if (error == 0)
        return {.failure = {}, .mark = marked ? std::optional(MarkIn(info)) : std::nullopt};
    FileFailure failure = Explain(error, path);
    if (!restored || closing != 0) {
        copy.Keep();
        failure.description += u". Прежнее содержимое сохранено в файле " + FromUtf8(copy.Path());
    }
    return {failure};
}

} // namespace quillshift
