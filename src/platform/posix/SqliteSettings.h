#pragma once

#include "platform/SettingsBackend.h"
#include "platform/posix/StoreFile.h"

#include <filesystem>
#include <functional>

namespace quillshift {

/// The settings store in one SQLite file, shared by all running copies of the program. The file is opened at
/// the first use and created by the first write. Where it can't be read values are absent, where it can't be
/// written writes vanish. A file that is deleted or replaced meanwhile is noticed at the next use; a damaged
/// one is renamed to "….damaged-1" (or the next free number), and the store goes on empty. For one thread.
class SqliteSettings : public SettingsBackend {
public:
    /// `file`: an absolute path; a relative one, as comes from a missing home folder, means no store at all.
    explicit SqliteSettings(std::filesystem::path file) : file_(std::move(file)) {}

    std::optional<StoredValue> Read(std::string_view path, std::string_view name) override;
    void Write(std::string_view path, std::string_view name, const StoredValue& value) override;

    /// To be called once at start: if there is no file, creates it with what `fill` writes, all or nothing,
    /// and tells whether it did. A damaged file is set aside here and counts as missing; one that is found
    /// damaged or deleted later is followed by an empty store. An existing empty store stays empty.
    bool SetUp(const std::function<void(SettingsBackend&)>& fill);

private:
    template <typename Action>
    StoreFile::Result Attempt(StoreFile::Missing missing, Action action);
    bool Ready(StoreFile::Missing missing);
    bool Open(StoreFile::Missing missing);
    bool SetAside();
    bool CreateFilled(const std::function<void(SettingsBackend&)>& fill) const;

    std::filesystem::path file_;
    StoreFile store_;
};

} // namespace quillshift
