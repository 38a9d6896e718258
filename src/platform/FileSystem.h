#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace quillshift {

/// Why a file could not be read or written: the number a person is shown, and a Russian description of it.
struct FileFailure {
    int number = 0; ///< 53 not found, 70 no permission, 76 no such folder, 61 disk full, 75 anything else
    std::u16string description;
};

struct FileContents {
    std::string bytes;
    std::optional<FileFailure> failure; ///< when set, `bytes` is empty
};

class FileSystem {
public:
    virtual ~FileSystem() = default;

    /// The whole of a regular file. Anything else (a folder, a device, a pipe) is a failure, and so is a file
    /// that shrinks while it is read.
    virtual FileContents Read(std::u16string_view path) = 0;

    /// Replaces a file's contents, or creates it. On failure the earlier contents are intact. Mode, owner and
    /// links of an existing file are kept.
    virtual std::optional<FileFailure> Write(std::u16string_view path, std::string_view bytes) = 0;
};

} // namespace quillshift
