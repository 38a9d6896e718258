#pragma once

#include "base/Colour.h"
#include "base/Twips.h"

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

namespace quillshift {

enum class Script { Normal, Superscript, Subscript };
enum class Alignment { Left, Right, Centre, Justified };

/// How a run of characters looks. An empty font name or a size of 0 means the surface's default font.
struct CharacterFormat {
    std::u16string font;
    int halfPoints = 0;
    bool bold = false;
    bool italic = false;
    bool underline = false;
    bool strike = false;
    Script script = Script::Normal;
    std::optional<Colour> colour, background;

    bool operator==(const CharacterFormat&) const = default;
};

/// How a paragraph is set; all lengths in twips.
struct ParagraphFormat {
    Alignment alignment = Alignment::Left;
    Twips leftIndent, rightIndent, firstLineIndent;
    Twips spaceBefore, spaceAfter;
    std::vector<Twips> tabs; ///< from the margin, in order; behind the last one come the surface's own

    bool operator==(const ParagraphFormat&) const = default;
};

/// A text with its formatting, as a reader of rich text hands it to a surface.
struct RichText {
    struct Run {
        std::size_t length; ///< in 16-bit units; a run may reach over paragraph ends
        CharacterFormat format;
    };

    std::u16string text;                     ///< paragraphs separated by CR LF
    std::vector<Run> runs;                   ///< in order; together as long as `text`
    std::vector<ParagraphFormat> paragraphs; ///< one more than CR LF in `text`
};

} // namespace quillshift
