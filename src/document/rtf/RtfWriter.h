#pragma once

#include "base/RichText.h"
#include "document/rtf/RtfTables.h"

#include <string_view>

namespace quillshift {

/// How characters look while a document is read; fonts and colours are numbers still.
struct RtfLook {
    int font = 0;
    int halfPoints = 24;
    int colour = 0;
    int background = 0;
    Script script = Script::Normal;
    bool bold = false;
    bool italic = false;
    bool underline = false;
    bool strike = false;
    bool hidden = false;

    bool operator==(const RtfLook&) const = default;
};

/// Collects the text of a document with its runs and paragraphs.
class RtfWriter {
public:
    RtfWriter(const RtfFontTable& fonts, const RtfColourTable& colours) : fonts_(fonts), colours_(colours) {}

    /// Appends text of one look; it may hold anything but line breaks.
    void Append(std::u16string_view text, const RtfLook& look, const ParagraphFormat& paragraph);
    /// One half of a surrogate pair, or a character; a half without its other half becomes U+FFFD.
    void AppendUnit(char16_t unit, const RtfLook& look, const ParagraphFormat& paragraph);
    void Break(const RtfLook& look, const ParagraphFormat& paragraph);
    /// A table cell ends: the next one is set off by a TAB, the end of the row is not.
    void EndCell() { ++cells_; }
    void EndRow(const RtfLook& look, const ParagraphFormat& paragraph);

    /// The finished text. Where the last paragraph is ended by a break, an empty one follows, as behind the
    /// last line of a plain file.
    RichText Finish();

private:
    void Add(std::u16string_view text, const RtfLook& look);
    void FlushHalf();
    void FlushCells();

    const RtfFontTable& fonts_;
    const RtfColourTable& colours_;
    RichText result_;
    RtfLook look_;              // of the last run
    ParagraphFormat paragraph_; // of the open paragraph
    std::size_t cells_ = 0;     // ended, and not set off yet
    char16_t highHalf_ = 0;     // of a pair that waits for its other half
};

} // namespace quillshift
