#pragma once

#include "platform/TextSurface.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace quillshift {

/// What belongs to an unsaved text besides itself.
struct RecoveryPlace {
    std::uint64_t caret = 0;
    bool isRich = false; ///< it came from RTF
    bool reopenAvailable = false;
    bool saveAvailable = false;
    bool isLocked = false;         ///< nobody but the user is to see it
    std::uint64_t knownDigest = 0; ///< of the file's contents as they were last read or written
    std::u16string path;           ///< of the document; empty for one without a file
    std::u16string saveTarget;

    bool operator==(const RecoveryPlace&) const = default;
};

struct RecoveredText {
    std::u16string text;
    RecoveryPlace place;
};

// A recovery file is a text, the edits that it has seen since and the places belonging to them, one record
// each. Every record carries its length and two checksums, of the length and of the contents.

/// A whole file.
std::string RecoveryFile(std::u16string_view text, const RecoveryPlace& place);
/// What is appended to one.
std::string EditRecord(std::size_t place, std::size_t went, std::u16string_view came);
std::string PlaceRecord(const RecoveryPlace& place);

/// What a file holds; nothing if it is damaged. A last record that was not written whole, as by a kill or a
/// power cut, is no damage: it counts as not written.
std::optional<RecoveredText> ReadRecoveryFile(std::string_view bytes);

} // namespace quillshift
