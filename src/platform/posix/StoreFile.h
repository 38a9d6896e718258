#pragma once

#include "platform/SettingsBackend.h"

#include <cstdint>
#include <filesystem>
#include <memory>
#include <optional>
#include <string_view>

struct sqlite3;
struct sqlite3_stmt;

namespace quillshift {

/// One connection to a store file: one table `value(path, name, type, data)`. It tells what failed and leaves
/// the consequences to its owner.
class StoreFile {
public:
    enum class Result {
        Done,
        Damaged, ///< the file is no store: not a database, malformed, or of another shape
        Failed,  ///< not now: missing, not permitted, busy for too long, disk full
    };
    enum class Missing { Fail, Create };

    /// Connects, and creates the table if the file is empty or `missing` lets it be created.
    Result Open(const std::filesystem::path& file, Missing missing);
    void Close();
    bool IsOpen() const { return connection_ != nullptr; }
    /// Whether the connection sees the file as it was when it was opened. Such a connection has to be closed
    /// after use, for it would miss what others write.
    bool IsFrozen() const { return frozen_; }

    /// Whether the path no longer leads to the open file: it was deleted or replaced.
    bool HasMoved() const;
    /// Whether the file can be written by now, or can't any more, as on a disk that turns read-only after an
    /// error. The log's index is mapped into memory from there: using such a connection further would end the
    /// process.
    bool HaveRightsChanged() const;
    /// The identity of the open file's log; nothing if it has none.
    std::optional<std::uintmax_t> LogIdentity() const { return logIdentity_; }
    /// Reads through the whole file.
    Result Check();

    Result Read(std::string_view path, std::string_view name, std::optional<StoredValue>& value);
    Result Write(std::string_view path, std::string_view name, const StoredValue& value);
    /// Everything written between the two is stored at once or not at all.
    Result Begin() { return Run("BEGIN IMMEDIATE"); }
    Result Commit() { return Run("COMMIT"); }

private:
    struct Closer {
        void operator()(sqlite3* connection) const;
        void operator()(sqlite3_stmt* statement) const;
    };
    using Statement = std::unique_ptr<sqlite3_stmt, Closer>;

    int Connect(const char* name, int flags);
    Result Prepare();
    int CheckShape();
    int PrepareStatement(const char* sql, Statement& statement);
    Result Run(const char* sql);

    std::unique_ptr<sqlite3, Closer> connection_; // outlives its statements
    Statement read_;
    Statement write_;
    bool frozen_ = false;
    std::optional<std::uintmax_t> logIdentity_;
};

/// What identifies a file whatever its name; nothing if there is none.
std::optional<std::uintmax_t> FileIdentity(const std::filesystem::path& file);
/// The name of one of the files the database keeps beside a store: "-wal", "-shm" or "-journal".
std::filesystem::path Beside(const std::filesystem::path& file, std::string_view suffix);

} // namespace quillshift
