#pragma once

#include "platform/FileSystem.h"

#include <array>
#include <string>
#include <string_view>

namespace quillshift {

/// What is told of the document's file, as text.
struct DocumentProperties {
    std::u16string name, location, size;
    std::array<std::u16string, 3> dates; ///< created, changed, opened
    bool hidden = false;
    bool readOnly = false;
    bool hasFile = false; ///< else all of the above are placeholders
};

/// Asks the disk about the document's file. An empty path, and a file that is there no longer, give the
/// placeholders of a document that was never saved.
DocumentProperties PropertiesOf(std::u16string_view path, FileSystem& files);

/// A moment in UTC, given in seconds since the beginning of 1970, such as "03.03.2005 г., 9:0:5".
std::u16string DateText(std::int64_t seconds);

/// A size in its largest unit, three digits long and cut, not rounded: "1,46 КБ". Less than 1024 bytes are
/// told exactly.
std::u16string SizeText(std::uint64_t bytes);

} // namespace quillshift
