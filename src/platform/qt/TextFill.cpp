#include "platform/qt/TextFill.h"

#include "base/GapText.h"
#include "platform/qt/LongLines.h"
#include "platform/qt/QtText.h"
#include "platform/qt/QtTextFormats.h"

#include <QTextBlockFormat>
#include <QTextCharFormat>
#include <QTextCursor>
#include <QTextDocument>

#include <algorithm>

namespace quillshift {
namespace {

constexpr std::u16string_view kBreak = u"\r\n";

// At once, in 16-bit units: many screens, and few milliseconds.
constexpr std::size_t kPiece = LongLines::kMost / 2;

} // namespace

void TextFill::BeginPlain(std::size_t length) {
    Stop();
    left_ = length;
}

void TextFill::BeginRich(const RichText& text) {
    Stop();
    left_ = text.text.size();
    runs_ = text.runs;
    paragraphs_ = text.paragraphs;
    QTextCursor(&document_).setBlockFormat(ToQt(paragraphs_.front()));
}

void TextFill::Stop() {
    left_ = run_ = paragraph_ = 0;
    isInLine_ = false;
    runs_ = {};
    paragraphs_ = {};
}

void TextFill::Go(const GapText& text, std::chrono::milliseconds time) {
    const auto until = std::chrono::steady_clock::now() + time;
    QTextCursor cursor(&document_);
    cursor.movePosition(QTextCursor::End);
    cursor.beginEditBlock();
    do {
        const std::u16string_view rest = text.View(text.Length() - left_, Ahead());
        const std::size_t end = EndOfPiece(rest);
        if (isInLine_)
            lines_.Continue(cursor);
        if (runs_.empty())
            cursor.insertText(ToQString(rest.substr(0, end)));
        else
            AddRich(cursor, rest.substr(0, end));
        isInLine_ = end < rest.size() && rest.substr(end, kBreak.size()) != kBreak;
        left_ -= end;
    } while (left_ > 0 && std::chrono::steady_clock::now() < until);
    cursor.endEditBlock();
    if (left_ == 0)
        Stop();
}

// How much of what is left tells where a piece ends.
std::size_t TextFill::Ahead() const {
    return lines_.IsParting() ? LongLines::kMost + kBreak.size() : left_;
}

// A line that is too long for a paragraph begins a piece.
std::size_t TextFill::EndOfPiece(std::u16string_view rest) const {
    const std::size_t end = std::min(rest.find(kBreak, kPiece), rest.size());
    if (!lines_.IsParting() || end <= LongLines::kMost)
        return end;
    const std::size_t line = rest.rfind(kBreak, kPiece);
    return line == rest.npos || line == 0 ? PlaceToPart(rest, kPiece) : line;
}

void TextFill::AddRich(QTextCursor& cursor, std::u16string_view piece) {
    while (!piece.empty()) {
        if (runs_[run_].length == 0) {
            ++run_;
            continue;
        }
        const QTextCharFormat format = ToQt(runs_[run_].format);
        const std::u16string_view ofRun = piece.substr(0, runs_[run_].length);
        const bool isBreak = piece.starts_with(kBreak);
        const std::size_t length = isBreak ? kBreak.size() : std::min(ofRun.find(kBreak), ofRun.size());
        if (isBreak)
            cursor.insertBlock(ToQt(paragraphs_[++paragraph_]), format);
        else
            cursor.insertText(ToQString(piece.substr(0, length)), format);
        runs_[run_].length -= length;
        piece.remove_prefix(length);
    }
}

} // namespace quillshift
