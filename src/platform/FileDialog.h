#pragma once

#include <string>
#include <string_view>

namespace quillshift {

/// The desktop's dialog for a file to open or a name to save under. One object is used for all; it keeps its
/// properties between uses, so that `FileName` doubles as the document's path.
class FileDialog {
public:
    virtual ~FileDialog() = default;

    std::u16string Filter;     ///< pairs of a description and a pattern, separated by "|"
    std::u16string DefaultExt; ///< patterns such as "*.txt|*.*", one for each of the filter's; the chosen
                               ///< one's extension is given to a name without any
    std::u16string DialogTitle;
    std::u16string InitDir;   ///< the first folder; empty: left to the dialog
    std::u16string FileName;  ///< full path of the file last chosen
    std::u16string FileTitle; ///< its name without the folder

    /// Both answer whether a file was chosen. A cancelled dialog leaves `FileName` and `FileTitle` as they
    /// were.
    virtual bool ShowOpen() = 0;
    virtual bool ShowSave() = 0;
};

/// The desktop's dialog for a folder.
class FolderDialog {
public:
    virtual ~FolderDialog() = default;

    /// Bit of `flags` that also lists files, to look at.
    static constexpr unsigned kListFiles = 0x4000;

    std::u16string DialogTitle;
    unsigned flags = 0;
    std::u16string InitDir; ///< receives the chosen folder; a cancelled dialog leaves it

    /// Whether a folder was chosen. The dialog begins at `start`, or at the home folder.
    virtual bool ShowFolder(std::u16string_view start = {}) = 0;
};

} // namespace quillshift
