#pragma once

#include "base/RichText.h"

#include <chrono>
#include <cstddef>
#include <string_view>
#include <vector>

class QTextCursor;
class QTextDocument;

namespace quillshift {

class GapText;
class LongLines;

/// Fills an empty document with a text bit by bit, from front to back, whole lines or parts of long ones at a
/// time. What is in the document may be edited meanwhile, but for its last line.
class TextFill {
public:
    TextFill(QTextDocument& document, LongLines& lines) : document_(document), lines_(lines) {}

    /// A plain text of this length.
    void BeginPlain(std::size_t length);
    void BeginRich(const RichText& text);
    void Stop();

    /// How much of the text is not in the document, in 16-bit units.
    std::size_t Left() const { return left_; }
    /// Fills in the next lines, and more until the time is over. `text` ends with what is left, and is looked
    /// at no further than what comes into the document; its breaks are CR LF.
    void Go(const GapText& text, std::chrono::milliseconds time);

private:
    std::size_t Ahead() const;
    std::size_t EndOfPiece(std::u16string_view rest) const;
    void AddRich(QTextCursor& cursor, std::u16string_view piece);

    QTextDocument& document_;
    LongLines& lines_;
    std::size_t left_ = 0;
    bool isInLine_ = false;           // the rest goes on with the last line in the document
    std::vector<RichText::Run> runs_; // none of a plain text; the first one's length is that of its rest
    std::vector<ParagraphFormat> paragraphs_;
    std::size_t run_ = 0;       // the rest begins in it
    std::size_t paragraph_ = 0; // the last one in the document
};

} // namespace quillshift
