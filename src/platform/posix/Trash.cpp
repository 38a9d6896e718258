#include "platform/posix/Trash.h"

#include "platform/posix/FileBytes.h"
#include "platform/posix/PrivateFolder.h"
#include "platform/posix/XdgFolders.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <ctime>
#include <optional>
#include <vector>

namespace quillshift {
namespace {

namespace fs = std::filesystem;

struct Thrown {
    fs::path path;       // absolute, without links
    struct stat info {}; // its mode and times are kept
    std::string_view bytes;
};

std::optional<struct stat> Look(const fs::path& path) {
    struct stat info {};
    return lstat(path.c_str(), &info) == 0 ? std::optional(info) : std::nullopt;
}

fs::path TopOfDisk(const Thrown& thrown) {
    fs::path top = thrown.path.parent_path();
    while (top.has_relative_path()) {
        const auto above = Look(top.parent_path());
        if (!above || above->st_dev != thrown.info.st_dev)
            break;
        top = top.parent_path();
    }
    return top;
}

std::string Escaped(const std::string& path) {
    constexpr std::string_view kPlain = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789/-_.~";
    constexpr std::string_view kDigits = "0123456789ABCDEF";
    std::string escaped;
    for (const char character : path) {
        const auto byte = static_cast<unsigned char>(character);
        if (kPlain.find(character) != std::string_view::npos)
            escaped += character;
        else
            escaped += {'%', kDigits[byte >> 4U], kDigits[byte & 15U]};
    }
    return escaped;
}

std::string Now() {
    const std::time_t now = std::time(nullptr);
    std::tm local{};
    localtime_r(&now, &local);
    std::array<char, 32> text{};
    std::strftime(text.data(), text.size(), "%Y-%m-%dT%H:%M:%S", &local);
    return text.data();
}

// A name in the trash: the file's own, shortened where the ending of its notice needs the room, and numbered.
std::string NameFor(const std::string& name, int number) {
    std::size_t end = std::min<std::size_t>(name.size(), 230);
    while (end < name.size() && end > 0 && (static_cast<unsigned char>(name[end]) & 0xC0U) == 0x80)
        --end;
    return name.substr(0, end) + (number > 1 ? "." + std::to_string(number) : "");
}

OpenFile Create(const fs::path& path) {
    return OpenFile(open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, 0600));
}

int WriteFlushed(OpenFile& file, std::string_view bytes) {
    int error = WriteAll(file.Fd(), bytes);
    if (error == 0)
        error = Flush(file.Fd());
    const int closing = file.Close();
    return error != 0 ? error : closing;
}

int Fill(OpenFile& notice, OpenFile& file, const Thrown& thrown, const std::string& storedPath) {
    const std::array<timespec, 2> times{thrown.info.st_atim, thrown.info.st_mtim};
    fchmod(file.Fd(), thrown.info.st_mode & 0777U);
    if (const int error = WriteAll(file.Fd(), thrown.bytes))
        return error;
    futimens(file.Fd(), times.data());
    if (const int error = WriteFlushed(file, {}))
        return error;
    return WriteFlushed(notice,
                        "[Trash Info]\nPath=" + Escaped(storedPath) + "\nDeletionDate=" + Now() + "\n");
}

// The notice comes first: its name is what keeps two programs from taking one place.
int PutInto(const fs::path& trash, const Thrown& thrown, const std::string& storedPath) {
    for (const char* part : {"info", "files"})
        if (const int error = MakeFolders(trash / part))
            return error;
    for (int number = 1;; ++number) {
        const std::string name = NameFor(thrown.path.filename(), number);
        const fs::path noticePath = trash / "info" / (name + ".trashinfo");
        const fs::path filePath = trash / "files" / name;
        OpenFile notice = Create(noticePath);
        if (!notice && errno == EEXIST)
            continue;
        if (!notice)
            return errno;
        OpenFile file = Create(filePath);
        int error = file ? 0 : errno;
        if (error == 0) {
            error = Fill(notice, file, thrown, storedPath);
            if (error != 0)
                unlink(filePath.c_str());
        }
        if (error != 0)
            unlink(noticePath.c_str());
        if (error == EEXIST)
            continue;
        FlushFolder(trash / "files");
        FlushFolder(trash / "info");
        return error;
    }
}

bool IsOwnFolder(const fs::path& folder) {
    const auto info = Look(folder);
    return info && S_ISDIR(info->st_mode) && info->st_uid == geteuid();
}

// The user's folder in the disk's common trash, which must be one that nobody can take away, or beside it.
std::vector<fs::path> TrashesOfDisk(const fs::path& top) {
    const std::string user = std::to_string(geteuid());
    std::vector<fs::path> trashes;
    const fs::path common = top / ".Trash";
    if (const auto info = Look(common); info && S_ISDIR(info->st_mode) && (info->st_mode & S_ISVTX) != 0)
        trashes.push_back(common / user);
    trashes.push_back(top / (".Trash-" + user));
    return trashes;
}

} // namespace

int PutIntoTrash(const std::string& path, std::string_view bytes) {
    std::error_code failed;
    Thrown thrown{fs::canonical(path, failed), {}, bytes};
    if (failed)
        return failed.value();
    if (stat(thrown.path.c_str(), &thrown.info) != 0)
        return errno;
    const fs::path data = XdgDataFolder();
    int error = data.empty() ? ENOENT : MakeFolders(data / "Trash");
    const auto home = Look(data / "Trash");
    if (!home || home->st_dev != thrown.info.st_dev) {
        const fs::path top = TopOfDisk(thrown);
        for (const fs::path& trash : TrashesOfDisk(top))
            if (MakeFolders(trash) == 0 && IsOwnFolder(trash) &&
                PutInto(trash, thrown, thrown.path.lexically_relative(top)) == 0)
                return 0;
    }
    return error != 0 ? error : PutInto(data / "Trash", thrown, thrown.path);
}

} // namespace quillshift
