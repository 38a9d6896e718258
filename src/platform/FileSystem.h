#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace quillshift {

/// Why a file could not be read or written: the number a person is shown, and a Russian description of it.
struct FileFailure {
    int number = 0; ///< 53 not found, 70 no permission, 76 no such folder, 61 disk full, 75 anything else
    std::u16string description;
};

/// Tells a file's contents from those that stood there at another time, without reading them.
struct FileMark {
    std::uint64_t device = 0;
    std::uint64_t number = 0; ///< among the files of its device
    std::int64_t size = 0;
    std::int64_t seconds = 0; ///< and nanoseconds, when the contents were changed last
    std::int64_t nanoseconds = 0;

    bool operator==(const FileMark&) const = default;
};

struct FileContents {
    std::string bytes;
    std::optional<FileFailure> failure; ///< when set, `bytes` is empty
    bool isFile = false;                ///< a regular file stands there, readable or not
    bool isUnknown = false;             ///< it can't be told whether anything stands there
    FileMark mark{};                    ///< of a file that was read
};

/// What the disk tells of a file without opening it. Times are seconds since the beginning of 1970, UTC.
struct FileFacts {
    std::uint64_t size = 0;
    std::optional<std::int64_t> created; ///< not every disk keeps it
    std::int64_t modified = 0;
    std::int64_t accessed = 0;
    bool hidden = false;   ///< its name begins with a dot
    bool readOnly = false; ///< this user may not write it
};

/// What a save believes to stand at its target.
struct Expected {
    enum class What { Anything, Nothing, Bytes };
    What what = What::Anything;
    std::string_view bytes;
};

struct Written {
    std::optional<FileFailure> failure;
    bool replaced = false;   ///< the failure came later: the earlier contents may be gone
    bool unexpected = false; ///< another file stood at the target than was expected, and stands there still
    std::optional<FileMark> mark{}; ///< of a regular file that was written
};

/// A backup that is on the disk already, beside its place and under a name of its own. It goes away again
/// unless it was put there.
class PreparedBackup {
public:
    virtual ~PreparedBackup() = default;

    /// Replaces in one step whatever stands at the place, with no wider rights than the document has by now.
    virtual std::optional<FileFailure> PutInPlace() = 0;
};

struct Preparation {
    std::unique_ptr<PreparedBackup> backup; ///< none after a failure, or where the place is the document's
    std::optional<FileFailure> failure;
    bool isDocument = false; ///< the place is the document itself
};

class FileSystem {
public:
    virtual ~FileSystem() = default;

    /// The whole of a regular file. Anything else (a folder, a device, a pipe) is a failure, and so is a file
    /// that shrinks while it is read.
    virtual FileContents Read(std::u16string_view path) = 0;

    /// The mark of a regular file. May be asked from any thread, and waits for as long as the disk does.
    virtual std::optional<FileMark> MarkOf(std::u16string_view path) = 0;

    /// Replaces a file's contents, or creates it. On failure the earlier contents are intact. Mode, owner and
    /// links of an existing file are kept. What is expected is compared while other copies of the program are
    /// kept from writing the same file.
    virtual Written Replace(std::u16string_view path, std::string_view bytes, const Expected& expected) = 0;
    std::optional<FileFailure> Write(std::u16string_view path, std::string_view bytes) {
        return Replace(path, bytes, {}).failure;
    }

    /// Writes a backup of `document` as far as it can be without touching what stands at `path`.
    virtual Preparation PrepareBackup(std::u16string_view path, std::string_view bytes,
                                      std::u16string_view document) = 0;

    /// Links are followed. Nothing for a path that can't be asked about.
    virtual std::optional<FileFacts> Facts(std::u16string_view path) = 0;

    /// Whether the name itself is a link, wherever it leads.
    virtual bool IsLink(std::u16string_view path) = 0;

    /// Puts a copy of the file's contents, which the caller has read, into the desktop's trash, as if the
    /// file had been thrown away. It is on the disk when this answers.
    virtual std::optional<FileFailure> CopyToTrash(std::u16string_view path, std::string_view bytes) = 0;
};

} // namespace quillshift
