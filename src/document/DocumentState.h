#pragma once

#include "base/PlainBytes.h"
#include "platform/FileSystem.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <variant>

namespace quillshift {

/// A file as this run read or wrote it last, and the text that it showed for it then.
class KnownFile {
public:
    KnownFile(std::u16string_view thePath, const FileMark& theMark, const PlainBytes& text);
    /// Keeps a digest alone.
    KnownFile(std::u16string_view thePath, const FileMark& theMark, std::u16string_view text);

    bool HasText(std::u16string_view text) const;
    bool operator==(const KnownFile&) const = default;

    std::u16string path;
    FileMark mark;

private:
    std::variant<PlainBytes, std::size_t> text_;
};

/// What the program remembers of the document besides its text.
struct DocumentState {
    bool DocumentModified =
        false; ///< counts as changed since it was last saved; nothing clears it but a save
    bool ReopenAvailable = false;
    bool SaveAvailable = false; ///< plain Save may be offered
    bool printing = false;      ///< the text must stay as it is until all of it is on paper

    /// The target of plain Save, this run's own: another copy of the program, a name that the store can't
    /// hold or a file chosen for something else don't change it.
    std::u16string saveTarget;

    std::optional<KnownFile> file; ///< the document's; none where it holds other letters than the text
    /// The file that the document was last read from or written to; empty for one without.
    std::u16string path;
    bool isRich = false;           ///< that file was RTF
    std::uint64_t knownDigest = 0; ///< of its contents then
};

} // namespace quillshift
