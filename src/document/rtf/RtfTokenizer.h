#pragma once

#include <cstddef>
#include <optional>
#include <string_view>

namespace quillshift {

/// One piece of RTF. The views point into the input.
struct RtfToken {
    enum class Kind {
        End,
        GroupStart,
        GroupEnd,
        Word,   ///< `text` is its name, `number` its parameter
        Symbol, ///< `character` is what stands behind the backslash
        Byte,   ///< `character` is the byte a `\'hh` gives
        Text,   ///< `text` is a span of bytes without line breaks and NULs
    };

    Kind kind = Kind::End;
    std::string_view text = {};
    std::optional<int> number = {};
    char character = 0;
};

/// Cuts RTF into its pieces, one after another. Line breaks of the file and the data of `\bin` are passed
/// over.
class RtfTokenizer {
public:
    explicit RtfTokenizer(std::string_view bytes) : rest_(bytes) {}

    RtfToken Next();

private:
    RtfToken Control();
    RtfToken HexByte();
    RtfToken Word();
    std::optional<int> Parameter();

    std::string_view rest_;
};

} // namespace quillshift
