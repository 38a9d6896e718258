#include "platform/posix/SideBackup.h"

#include "platform/posix/FileBytes.h"
#include "platform/posix/FileFailures.h"

#include <fcntl.h>
#include <sys/stat.h>

#include <cerrno>
#include <cstdio>

namespace quillshift {
namespace {

class SideBackup final : public PreparedBackup {
public:
    SideBackup(const std::string& place, std::string document)
        : place_(place),
          document_(std::move(document)),
          side_(SplitPath(place).first, "." + SplitPath(place).second, S_IRUSR | S_IWUSR) {}

    int Write(std::string_view bytes) {
        if (side_.Error() != 0)
            return side_.Error();
        const int error = WriteAll(side_.File().Fd(), bytes);
        return error != 0 ? error : Flush(side_.File().Fd());
    }

    std::optional<FileFailure> PutInPlace() override {
        TakeRights();
        if (const int error = side_.File().Close())
            return Explain(error, place_);
        if (rename(side_.Path().c_str(), place_.c_str()) != 0)
            return Explain(errno, place_);
        side_.Keep();
        const auto [folder, name] = SplitPath(place_);
        FlushFolder(folder);
        RemoveLeftovers(folder, "." + name);
        return std::nullopt;
    }

private:
    // What can't be given to the same people is given to its owner alone.
    void TakeRights() {
        const int fd = side_.File().Fd();
        const OpenFile document(open(document_.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC | O_NOCTTY));
        struct stat wanted {};
        struct stat now {};
        if (!document || fstat(document.Fd(), &wanted) != 0 || !S_ISREG(wanted.st_mode))
            return;
        [[maybe_unused]] const int group = fchown(fd, static_cast<uid_t>(-1), wanted.st_gid);
        if (fstat(fd, &now) == 0 && now.st_gid == wanted.st_gid && CopyAttributes(document.Fd(), fd))
            fchmod(fd, wanted.st_mode & 0666U);
        [[maybe_unused]] const int owner = fchown(fd, wanted.st_uid, static_cast<gid_t>(-1));
    }

    std::string place_;
    std::string document_;
    SideFile side_;
};

bool IsOnePlace(const std::string& place, const std::string& document) {
    struct stat one {};
    struct stat other {};
    const auto [folder, name] = SplitPath(place);
    const auto [itsFolder, itsName] = SplitPath(document);
    return name == itsName && stat(folder.c_str(), &one) == 0 && stat(itsFolder.c_str(), &other) == 0 &&
           one.st_dev == other.st_dev && one.st_ino == other.st_ino;
}

} // namespace

Preparation PrepareSideBackup(const std::string& place, std::string_view bytes, const std::string& document) {
    std::string original = document;
    FollowLinks(original);
    if (IsOnePlace(place, original))
        return {.backup = nullptr, .failure = {}, .isDocument = true};
    auto backup = std::make_unique<SideBackup>(place, std::move(original));
    if (const int error = backup->Write(bytes))
        return {nullptr, Explain(error, place)};
    return {std::move(backup), std::nullopt};
}

} // namespace quillshift
