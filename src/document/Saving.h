#pragma once

#include "platform/FileSystem.h"
#include "platform/MessageBox.h"

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <string_view>

namespace quillshift {

/// Writes a document and its backup so that nobody's work is lost: what another wrote meanwhile is replaced
/// only after a question, and what the backup doesn't hold is in the desktop's trash before.
class Saving {
public:
    struct Order {
        std::u16string path;
        std::string bytes;
        std::u16string backupPath; ///< empty: no backup
        std::u16string backupText; ///< as the surface holds it
        std::string backupBytes;
        bool isPlainSave = false; ///< no dialog has asked whether to replace the file
    };
    struct Outcome {
        bool written = false; ///< the document was
        bool backedUp = false;
        std::optional<FileMark> mark; ///< of the document
        std::optional<Error> failure; ///< of the document or, once that is written, of its backup
    };

    Saving(FileSystem& files, MessageBox& messageBox) : files_(files), messageBox_(messageBox) {}

    /// Another document takes the place of the one that this run wrote files for.
    void DocumentChanged();
    static std::size_t Digest(std::string_view bytes);
    /// A document was loaded for whose text the file's contents had this digest, perhaps in an earlier run.
    void DocumentLoaded(const std::u16string& path, std::uint64_t digest);
    /// Of the contents that this run knows of a file; 0 if it knows none.
    std::uint64_t KnownDigest(const std::u16string& path) const;

    /// Asks as needed. A No leaves everything as it was.
    Outcome Save(const Order& order);

private:
    // What this run knows of a file: the contents that it last read or wrote there.
    struct Known {
        std::size_t digest = 0;
        bool isOurs = false; // written for the document that is still loaded
    };
    enum class Step { Again, Left };

    Step TryToSave(const Order& order, bool mayAsk, Outcome& outcome);
    void FinishBackup(const Order& order, const Preparation& prepared, Outcome& outcome);
    bool AskAboutChange(const std::u16string& path, const FileContents& found);
    bool KeepInTrash(const std::u16string& path, const FileContents& found, std::string_view bytes);
    bool Remembers(const std::u16string& path, std::string_view bytes) const;
    bool Wrote(const std::u16string& path, std::string_view bytes) const;

    FileSystem& files_;
    MessageBox& messageBox_;
    std::map<std::u16string, Known> known_;
    std::u16string saidToBeItsOwnBackup_;
};

/// A failure of a file, as a person is shown it.
Error FileError(const FileFailure& failure, std::u16string_view path);

} // namespace quillshift
