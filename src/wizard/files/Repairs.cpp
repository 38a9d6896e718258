#include "wizard/files/Repairs.h"

#include "platform/posix/PosixFiles.h"
#include "platform/posix/SideBackup.h"
#include "wizard/detect/Repair.h"
#include "wizard/files/Sha256.h"

#include <fcntl.h>
#include <unistd.h>

#include <array>
#include <filesystem>

namespace quillshift::wizard {

namespace {

struct BackupPlace {
    std::string name;
    bool isThere; ///< with the very contents, as after a kill; it is not ours to remove
};

/// Beside the file, where nothing stands yet or a copy of it; another name of the file would change with it.
BackupPlace PlaceOfBackup(const std::string& path, const std::string& contents) {
    std::string name = path + ".bak";
    struct stat info {};
    while (lstat(name.c_str(), &info) == 0) {
        const bool canBe = S_ISREG(info.st_mode) && info.st_nlink == 1 &&
                           info.st_size == static_cast<off_t>(contents.size());
        if (canBe && PosixFiles::ReadNative(name).bytes == contents)
            return {name, true};
        name += ".bak";
    }
    return {name, false};
}

Repaired UndoOne(const Chain& chain, const std::string& bytes) {
    Undone undone = Undo(chain, bytes);
    if (undone.lost > 0 || !Proves(chain, undone.text, bytes))
        return {bytes, false, 1};
    return {std::move(undone.text), true, 0};
}

} // namespace

void FolderTimes::Keep(const std::string& file) {
    const std::string folder = std::filesystem::path(file).parent_path();
    const std::lock_guard lock(keeping_);
    struct stat info {};
    const auto known = times_.find(folder);
    if (known == times_.end()) {
        if (stat(folder.c_str(), &info) == 0)
            times_.emplace(folder, info);
        return;
    }
    const std::array<timespec, 2> times{known->second.st_atim, known->second.st_mtim};
    utimensat(AT_FDCWD, folder.c_str(), times.data(), 0);
}

Outcome Repairs::Repair(const Finding& finding) {
    if (!finding.isReadable)
        return Outcome::Unreadable;
    if (!finding.chain)
        return finding.verdict.answer == Answer::Unsure ? Outcome::LeftUnsure : Outcome::LeftAlone;
    const std::string path = std::filesystem::absolute(finding.path).lexically_normal();
    const FileContents contents = PosixFiles::ReadNative(path);
    if (contents.failure)
        return Outcome::Unreadable;
    if (contents.mark != finding.mark)
        return Outcome::ChangedMeanwhile;
    Outcome why = Outcome::LeftUnsure;
    const auto rewritten = Rewrite(finding, contents.bytes, why);
    if (!rewritten)
        return why;
    const BackupPlace place = PlaceOfBackup(path, contents.bytes);
    const RepairEntry entry{.before = Sha256(contents.bytes),
                            .after = Sha256(rewritten->bytes),
                            .chain = ToString(rewritten->chain),
                            .seconds = contents.mark.seconds,
                            .nanoseconds = contents.mark.nanoseconds,
                            .backup = place.name,
                            .path = path,
                            .keepsBackup = place.isThere};
    return Replace(entry, contents.bytes, rewritten->bytes);
}

std::optional<Repairs::Rewritten> Repairs::Rewrite(const Finding& finding, const std::string& bytes,
                                                   Outcome& why) const {
    const bool isItsOwn = finding.verdict.answer == Answer::Sure && !finding.isBorrowed &&
                          finding.verdict.candidates.front().chain == *finding.chain;
    const Repaired repaired =
        isItsOwn ? wizard::Repair(bytes, finding.verdict, options_) : UndoOne(*finding.chain, bytes);
    if (!repaired.changed || repaired.unsure > 0 || repaired.apart > 0)
        return std::nullopt;
    auto output = Output(repaired.text, target_, finding.chain->stored);
    if (!output)
        why = Outcome::DoesNotFit;
    else if (*output == bytes)
        why = Outcome::LeftAlone;
    else
        return Rewritten{std::move(*output), *finding.chain};
    return std::nullopt;
}

Outcome Repairs::Replace(const RepairEntry& entry, const std::string& before, const std::string& after) {
    times_.Keep(entry.path);
    if (!report_.Add(entry))
        return Outcome::Failed;
    if (!entry.keepsBackup) {
        Preparation prepared = PrepareSideBackup(entry.backup, before, entry.path);
        if (!prepared.backup || prepared.backup->PutInPlace())
            return Outcome::Failed;
    }
    const Written written = PosixFiles().ReplaceNative(entry.path, after, {Expected::What::Bytes, before});
    const bool stayed = written.unexpected || (written.failure && !written.replaced);
    if (stayed && !entry.keepsBackup)
        unlink(entry.backup.c_str());
    times_.Keep(entry.path);
    return written.unexpected ? Outcome::ChangedMeanwhile
           : written.failure  ? Outcome::Failed
                              : Outcome::Repaired;
}

namespace {

Returned PutBack(const RepairEntry& entry, const std::string& now) {
    const FileContents backup = PosixFiles::ReadNative(entry.backup);
    if (backup.failure || Sha256(backup.bytes) != entry.before)
        return Returned::NoBackup;
    const Written written =
        PosixFiles().ReplaceNative(entry.path, backup.bytes, {Expected::What::Bytes, now});
    if (written.failure || written.unexpected)
        return written.failure ? Returned::Failed : Returned::Changed;
    const std::array<timespec, 2> times{timespec{0, UTIME_OMIT},
                                        timespec{entry.seconds, static_cast<long>(entry.nanoseconds)}};
    utimensat(AT_FDCWD, entry.path.c_str(), times.data(), 0);
    return Returned::Restored;
}

/// What the repair wrote beside the file; nothing of somebody else's.
void RemoveBackup(const RepairEntry& entry) {
    const FileContents backup = PosixFiles::ReadNative(entry.backup);
    if (!backup.failure && Sha256(backup.bytes) == entry.before)
        unlink(entry.backup.c_str());
}

} // namespace

Returned BringBack(const RepairEntry& entry, FolderTimes& times) {
    const FileContents now = PosixFiles::ReadNative(entry.path);
    if (now.failure)
        return now.isFile || now.isUnknown ? Returned::Failed : Returned::Gone;
    times.Keep(entry.path);
    const std::string hash = Sha256(now.bytes);
    Returned returned = hash == entry.before ? Returned::AsBefore : Returned::Changed;
    if (hash == entry.after)
        returned = PutBack(entry, now.bytes);
    if (!entry.keepsBackup && (returned == Returned::AsBefore || returned == Returned::Restored))
        RemoveBackup(entry);
    times.Keep(entry.path);
    return returned;
}

} // namespace quillshift::wizard
