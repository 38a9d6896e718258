#include "platform/posix/StoreFile.h"

#include <fcntl.h>
#include <sqlite3.h>
#include <string>
#include <sys/stat.h>
#include <unistd.h>

namespace quillshift {
namespace {

// Writers take turns. A turn lasts some ten microseconds, so short naps let dozens of copies through; the
// bound is for a copy that was stopped in the middle of its turn.
constexpr useconds_t kNapMicroseconds = 500;
constexpr int kMostNaps = 4000;

// In the key the name comes first: the paths share their first fifty letters, and comparing those at each
// step of the search takes a tenth of a read.
const std::string kTable = "value("
                           "path TEXT NOT NULL COLLATE NOCASE,"
                           "name TEXT NOT NULL COLLATE NOCASE,"
                           "type INTEGER NOT NULL,"
                           "data BLOB NOT NULL,"
                           "PRIMARY KEY(name, path)) WITHOUT ROWID";

int WaitForTurn(void* /*unused*/, int naps) {
    if (naps >= kMostNaps)
        return 0;
    usleep(kNapMicroseconds);
    return 1;
}

StoreFile::Result ResultOf(int code) {
    switch (code & 0xFF) {
    case SQLITE_OK:
    case SQLITE_ROW:
    case SQLITE_DONE:
        return StoreFile::Result::Done;
    case SQLITE_CORRUPT:
    case SQLITE_NOTADB:
        return StoreFile::Result::Damaged;
    default:
        return StoreFile::Result::Failed;
    }
}

int BindText(sqlite3_stmt* statement, int index, std::string_view text) {
    return sqlite3_bind_text(statement, index, text.data(), static_cast<int>(text.size()), SQLITE_STATIC);
}

// For its owner alone, as a password and the clipboard are in it; the files beside it get the same rights. An
// existing file is left alone: closing it would take away the database's locks on it.
void CreatePrivate(const std::filesystem::path& file) {
    const int made = open(file.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, S_IRUSR | S_IWUSR);
    if (made >= 0)
        close(made);
}

// The file as an address that asks for it as it is, without locks and without a log.
std::string FrozenAddress(const std::filesystem::path& file) {
    constexpr std::string_view kDigits = "0123456789ABCDEF";
    std::string address = "file:";
    for (const char byte : file.native()) {
        if (byte != '%' && byte != '?' && byte != '#') {
            address += byte;
            continue;
        }
        const auto code = static_cast<unsigned char>(byte);
        address += {'%', kDigits[code >> 4U], kDigits[code & 0xFU]};
    }
    return address + "?mode=ro&immutable=1";
}

} // namespace

std::optional<std::uintmax_t> FileIdentity(const std::filesystem::path& file) {
    struct stat status {};
    if (stat(file.c_str(), &status) != 0)
        return std::nullopt;
    return status.st_ino;
}

std::filesystem::path Beside(const std::filesystem::path& file, std::string_view suffix) {
    return std::filesystem::path(file) += suffix;
}

void StoreFile::Closer::operator()(sqlite3* connection) const {
    sqlite3_close_v2(connection);
}

void StoreFile::Closer::operator()(sqlite3_stmt* statement) const {
    sqlite3_finalize(statement);
}

int StoreFile::Connect(const char* name, int flags) {
    sqlite3* connection = nullptr;
    const int code = sqlite3_open_v2(name, &connection, flags | SQLITE_OPEN_NOMUTEX, nullptr);
    connection_.reset(connection);
    if (code == SQLITE_OK)
        sqlite3_busy_handler(connection, WaitForTurn, nullptr);
    return code;
}

StoreFile::Result StoreFile::Open(const std::filesystem::path& file, Missing missing) {
    Close();
    if (missing == Missing::Create)
        CreatePrivate(file);
    Result result = ResultOf(Connect(file.c_str(), SQLITE_OPEN_READWRITE));
    if (result == Result::Done)
        result = Prepare();
    // Where the log's index can't be made, as on a full disk, the file alone is the store unless a log with
    // something in it lies beside it. Should another copy write there meanwhile, a torn page is no damage.
    if (result == Result::Failed && (sqlite3_errcode(connection_.get()) & 0xFF) != SQLITE_BUSY) {
        std::error_code error;
        const auto logSize = std::filesystem::file_size(Beside(file, "-wal"), error);
        if (error || logSize == 0) {
            Close();
            frozen_ = true;
            result = ResultOf(Connect(FrozenAddress(file).c_str(), SQLITE_OPEN_READONLY | SQLITE_OPEN_URI));
            if (result == Result::Done)
                result = Prepare();
            if (result == Result::Damaged)
                result = Result::Failed;
        }
    }
    if (result == Result::Done)
        logIdentity_ = FileIdentity(Beside(file, "-wal"));
    else if (result == Result::Failed)
        Close(); // a damaged file stays open, so that its owner can still tell whether it has moved
    return result;
}

// With a write-ahead log a reader never waits for a writer. A write is in the log's file, and so with the
// system, when its statement returns: killing the program can't lose it. "synchronous=NORMAL" leaves out only
// the wait for the disk, which matters when the power fails, and even then the file stays whole.
StoreFile::Result StoreFile::Prepare() {
    const std::string setUp = "PRAGMA journal_mode=WAL;"
                              "PRAGMA synchronous=NORMAL;"
                              "PRAGMA journal_size_limit=1048576;"
                              "CREATE TABLE IF NOT EXISTS " +
                              kTable;
    const bool readOnly = sqlite3_db_readonly(connection_.get(), "main") == 1;
    int code = CheckShape();
    if (code == SQLITE_OK && !readOnly)
        code = sqlite3_exec(connection_.get(), setUp.c_str(), nullptr, nullptr, nullptr);
    if (code == SQLITE_OK)
        code = PrepareStatement("SELECT type, data FROM value WHERE path = ?1 AND name = ?2", read_);
    if (code == SQLITE_OK)
        code = PrepareStatement(
            "INSERT INTO value(path, name, type, data) VALUES(?1, ?2, ?3, ?4) "
            "ON CONFLICT(name, path) DO UPDATE SET type = excluded.type, data = excluded.data",
            write_);
    // Our statements are right, so an error in one means that the tables are somebody else's.
    if (code == SQLITE_ERROR && !readOnly)
        return Result::Damaged;
    return ResultOf(code);
}

// Nothing in the file is run: a view, a trigger or a column that computes might never end. So there is only
// the table as it is made here, or none yet; what the database's own analysis leaves does no harm.
int StoreFile::CheckShape() {
    for (const int feature :
         {SQLITE_DBCONFIG_TRUSTED_SCHEMA, SQLITE_DBCONFIG_ENABLE_TRIGGER, SQLITE_DBCONFIG_ENABLE_VIEW})
        sqlite3_db_config(connection_.get(), feature, 0, nullptr);
    Statement shapes;
    int code = PrepareStatement("SELECT sql IS 'CREATE TABLE ' || ?1 FROM sqlite_schema "
                                "WHERE NOT (type = 'table' AND name LIKE 'sqlite_stat%')",
                                shapes);
    if (code != SQLITE_OK)
        return code;
    BindText(shapes.get(), 1, kTable);
    while ((code = sqlite3_step(shapes.get())) == SQLITE_ROW)
        if (sqlite3_column_int(shapes.get(), 0) == 0)
            return SQLITE_CORRUPT;
    return code == SQLITE_DONE ? SQLITE_OK : code;
}

int StoreFile::PrepareStatement(const char* sql, Statement& statement) {
    sqlite3_stmt* prepared = nullptr;
    const int code =
        sqlite3_prepare_v3(connection_.get(), sql, -1, SQLITE_PREPARE_PERSISTENT, &prepared, nullptr);
    statement.reset(prepared);
    return code;
}

void StoreFile::Close() {
    if (HaveRightsChanged()) // the log is left for who can write
        sqlite3_db_config(connection_.get(), SQLITE_DBCONFIG_NO_CKPT_ON_CLOSE, 1, nullptr);
    read_.reset();
    write_.reset();
    connection_.reset();
    frozen_ = false;
    logIdentity_.reset();
}

bool StoreFile::HaveRightsChanged() const {
    sqlite3* connection = connection_.get();
    const char* file = connection != nullptr ? sqlite3_db_filename(connection, "main") : nullptr;
    return file != nullptr && (sqlite3_db_readonly(connection, "main") == 0) != (access(file, W_OK) == 0);
}

bool StoreFile::HasMoved() const {
    int moved = 0;
    sqlite3_file_control(connection_.get(), "main", SQLITE_FCNTL_HAS_MOVED, &moved);
    return moved != 0;
}

StoreFile::Result StoreFile::Check() {
    Statement check;
    if (const int code = PrepareStatement("PRAGMA quick_check(1)", check); code != SQLITE_OK)
        return ResultOf(code);
    const int code = sqlite3_step(check.get());
    if (code != SQLITE_ROW)
        return ResultOf(code);
    const auto* answer = reinterpret_cast<const char*>(sqlite3_column_text(check.get(), 0));
    return answer != nullptr && std::string_view(answer) == "ok" ? Result::Done : Result::Damaged;
}

StoreFile::Result StoreFile::Read(std::string_view path, std::string_view name,
                                  std::optional<StoredValue>& value) {
    sqlite3_stmt* read = read_.get();
    BindText(read, 1, path);
    BindText(read, 2, name);
    const int code = sqlite3_step(read);
    if (code == SQLITE_ROW) {
        const int type = sqlite3_column_int(read, 0);
        const auto* data = static_cast<const char*>(sqlite3_column_blob(read, 1));
        const auto size = static_cast<std::size_t>(sqlite3_column_bytes(read, 1));
        if (type == static_cast<int>(ValueType::Text) || type == static_cast<int>(ValueType::Number))
            value = StoredValue{static_cast<ValueType>(type), data != nullptr ? std::string(data, size) : ""};
    }
    sqlite3_reset(read); // ends the read, so that the log can be written back
    return ResultOf(code);
}

StoreFile::Result StoreFile::Write(std::string_view path, std::string_view name, const StoredValue& value) {
    sqlite3_stmt* write = write_.get();
    BindText(write, 1, path);
    BindText(write, 2, name);
    sqlite3_bind_int(write, 3, static_cast<int>(value.type));
    int code = sqlite3_bind_blob64(write, 4, value.data.data(), value.data.size(), SQLITE_STATIC);
    if (code == SQLITE_OK)
        code = sqlite3_step(write);
    sqlite3_reset(write);
    return ResultOf(code);
}

StoreFile::Result StoreFile::Run(const char* sql) {
    return ResultOf(sqlite3_exec(connection_.get(), sql, nullptr, nullptr, nullptr));
}

} // namespace quillshift
