#include "platform/posix/SqliteSettings.h"

#include "platform/posix/PrivateFolder.h"

#include <array>
#include <cerrno>
#include <cstdio>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

namespace quillshift {
namespace {

namespace fs = std::filesystem;
using Missing = StoreFile::Missing;
using Result = StoreFile::Result;

constexpr std::array<std::string_view, 3> kCompanions = {"-wal", "-shm", "-journal"};

bool Exists(const fs::path& file) {
    std::error_code error;
    return fs::symlink_status(file, error).type() != fs::file_type::not_found;
}

void Remove(const fs::path& file) {
    std::error_code error;
    fs::remove(file, error);
}

// A log without its database would be replayed into the next file of that name.
void RemoveCompanions(const fs::path& file) {
    for (const auto suffix : kCompanions)
        Remove(Beside(file, suffix));
}

bool RenameUnlessThere(const fs::path& from, const fs::path& to) {
    if (renameat2(AT_FDCWD, from.c_str(), AT_FDCWD, to.c_str(), RENAME_NOREPLACE) == 0)
        return true;
    // Some file systems can't tell; the folder's lock keeps other copies from creating the target meanwhile.
    return errno == EINVAL && !Exists(to) && std::rename(from.c_str(), to.c_str()) == 0;
}

// Keeps other copies from opening, creating or setting aside the store for a moment.
class FolderLock {
public:
    explicit FolderLock(const fs::path& folder)
        : folder_(open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC)) {
        int code = flock(folder_, LOCK_EX | LOCK_NB);
        for (int naps = 0; code != 0 && errno == EWOULDBLOCK && naps < kMostNaps; ++naps) {
            usleep(kNapMicroseconds);
            code = flock(folder_, LOCK_EX | LOCK_NB);
        }
        // A file system without locks still has a store.
        held_ = code == 0 || errno != EWOULDBLOCK;
    }
    ~FolderLock() {
        if (folder_ >= 0)
            close(folder_);
    }
    FolderLock(const FolderLock&) = delete;
    FolderLock& operator=(const FolderLock&) = delete;

    bool Held() const { return held_; }

private:
    static constexpr useconds_t kNapMicroseconds = 500;
    static constexpr int kMostNaps = 4000;

    int folder_;
    bool held_ = false;
};

// Writes into a file that nobody else sees yet, and remembers whether all went well.
class FillingBackend : public SettingsBackend {
public:
    explicit FillingBackend(StoreFile& store) : store_(store) {}

    std::optional<StoredValue> Read(std::string_view path, std::string_view name) override {
        std::optional<StoredValue> value;
        Note(store_.Read(path, name, value));
        return value;
    }
    void Write(std::string_view path, std::string_view name, const StoredValue& value) override {
        Note(store_.Write(path, name, value));
    }
    bool AllWell() const { return allWell_; }

private:
    void Note(Result result) { allWell_ = allWell_ && result == Result::Done; }

    StoreFile& store_;
    bool allWell_ = true;
};

} // namespace

std::optional<StoredValue> SqliteSettings::Read(std::string_view path, std::string_view name) {
    std::optional<StoredValue> value;
    Attempt(Missing::Fail, [&] { return store_.Read(path, name, value); });
    return value;
}

void SqliteSettings::Write(std::string_view path, std::string_view name, const StoredValue& value) {
    Attempt(Missing::Create, [&] { return store_.Write(path, name, value); });
}

// Runs the action on the open store, and once more on the new one if it finds the store damaged.
template <typename Action>
Result SqliteSettings::Attempt(Missing missing, Action action) {
    Result result = Result::Failed;
    for (int attempt = 0; attempt < 2; ++attempt) {
        if (!Ready(missing))
            return Result::Failed;
        result = action();
        if (result == Result::Damaged && !store_.IsFrozen()) {
            const FolderLock lock(file_.parent_path());
            if (lock.Held() && SetAside())
                continue;
        }
        break;
    }
    if (result != Result::Done || store_.IsFrozen())
        store_.Close();
    return result;
}

// Every use asks whether the path still leads to the open file, as another copy may have set it aside, and
// whether that can still be written.
bool SqliteSettings::Ready(Missing missing) {
    if (store_.IsOpen() && !store_.HasMoved() && !store_.HaveRightsChanged())
        return true;
    if (!file_.is_absolute())
        return false;
    std::error_code error;
    const auto type = fs::status(file_, error).type();
    // Anything but a file could keep the reader waiting for ever.
    if (type != fs::file_type::regular && type != fs::file_type::not_found) {
        store_.Close();
        return false;
    }
    if (type == fs::file_type::not_found) {
        if (missing == Missing::Fail) {
            store_.Close();
            return false;
        }
        MakeFolders(file_.parent_path());
    }
    return Open(missing);
}

bool SqliteSettings::Open(Missing missing) {
    const FolderLock lock(file_.parent_path());
    if (!lock.Held())
        return false;
    // The log beside the path is the old file's when that was deleted, or when it was replaced and its log is
    // still the one we know.
    const auto oldLog = store_.LogIdentity();
    store_.Close();
    if (!Exists(file_) || (oldLog && oldLog == FileIdentity(Beside(file_, "-wal"))))
        RemoveCompanions(file_);

    Result result = store_.Open(file_, missing);
    if (result == Result::Damaged)
        result = SetAside() && missing == Missing::Create ? store_.Open(file_, missing) : Result::Failed;
    if (result != Result::Done)
        store_.Close();
    return result == Result::Done;
}

// Gives the damaged file and what belongs to it another name. Closing comes after renaming: a database that
// has moved leaves its log alone. To be called with the folder locked.
bool SqliteSettings::SetAside() {
    bool done = true;
    if (!store_.HasMoved()) { // else another copy was faster, and the path leads to the new file
        int number = 1;
        fs::path target;
        do {
            target = Beside(file_, ".damaged-" + std::to_string(number++));
        } while (Exists(target));
        done = RenameUnlessThere(file_, target);
        for (const auto suffix : kCompanions)
            if (done && Exists(Beside(file_, suffix)))
                RenameUnlessThere(Beside(file_, suffix), Beside(target, suffix));
    }
    store_.Close();
    return done;
}

bool SqliteSettings::SetUp(const std::function<void(SettingsBackend&)>& fill) {
    if (!file_.is_absolute())
        return false;
    Attempt(Missing::Fail, [this] { return store_.Check(); });
    if (Exists(file_))
        return false;
    MakeFolders(file_.parent_path());
    const FolderLock lock(file_.parent_path());
    return lock.Held() && !Exists(file_) && CreateFilled(fill);
}

// The file gets its name when it is complete, so a set-up that is killed leaves no store behind and the next
// start begins anew.
bool SqliteSettings::CreateFilled(const std::function<void(SettingsBackend&)>& fill) const {
    const fs::path draft = Beside(file_, ".new");
    Remove(draft);
    RemoveCompanions(draft);

    StoreFile store;
    bool complete = store.Open(draft, Missing::Create) == Result::Done && store.Begin() == Result::Done;
    if (complete) {
        FillingBackend backend(store);
        fill(backend);
        complete = backend.AllWell() && store.Commit() == Result::Done;
    }
    store.Close();
    // Closing empties the log into the file; a log that is still there has not found its way.
    complete = complete && !Exists(Beside(draft, "-wal"));
    if (complete) {
        RemoveCompanions(file_);
        complete = RenameUnlessThere(draft, file_);
    }
    if (!complete) {
        Remove(draft);
        RemoveCompanions(draft);
    }
    return complete;
}

} // namespace quillshift
