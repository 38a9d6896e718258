#pragma once

#include "platform/FileSystem.h"
#include "platform/posix/FileBytes.h"

#include <cstddef>

namespace quillshift {

/// Files of the machine. A file is replaced by writing a neighbour and renaming it over; where that would
/// lose the owner, a hard link or an access list, or the folder doesn't allow it, the file is overwritten
/// while a safety copy of its old contents exists.
class PosixFiles : public FileSystem {
public:
    /// The largest file that is read; a larger one is a failure.
    static constexpr std::size_t kLargestFile = std::size_t{256} << 20U;

    /// `safetyFolder`: where safety copies live; empty: the user's cache folder. Made when first needed.
    explicit PosixFiles(std::string safetyFolder = {}) : safetyFolder_(std::move(safetyFolder)) {}

    FileContents Read(std::u16string_view path) override;
    /// By the bytes of the name, which on this system need be no text.
    static FileContents ReadNative(const std::string& native);
    std::optional<FileMark> MarkOf(std::u16string_view path) override;
    /// Devices and pipes are written straight; one that accepts nothing for a few seconds is a failure. If
    /// the old contents could neither be replaced nor put back, the description names their safety copy.
    Written Replace(std::u16string_view path, std::string_view bytes, const Expected& expected) override;
    Written ReplaceNative(const std::string& native, std::string_view bytes, const Expected& expected) const;
    Preparation PrepareBackup(std::u16string_view path, std::string_view bytes,
                              std::u16string_view document) override;
    std::optional<FileFacts> Facts(std::u16string_view path) override;
    bool IsLink(std::u16string_view path) override;
    std::optional<FileFailure> CopyToTrash(std::u16string_view path, std::string_view bytes) override;

private:
    Written Overwrite(OpenFile& file, const std::string& path, std::string_view bytes) const;

    std::string safetyFolder_;
};

} // namespace quillshift
