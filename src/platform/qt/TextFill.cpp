#include "platform/qt/TextFill.h"

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

void TextFill::Go(std::u16string_view text, std::chrono::milliseconds time) {
    const auto end = std::chrono::steady_clock::now() + time;
    QTextCursor cursor(&document_);
    cursor.movePosition(QTextCursor::End);
    cursor.beginEditBlock();
    do {
        const std::u16string_view rest = text.substr(text.size() - left_);
        const int begin = cursor.position();
        left_ -= runs_.empty() ? AddPlain(cursor, rest) : AddRich(cursor, rest);
        if (!runs_.empty())
            lines_.Tidy(begin, cursor.position());
    } while (left_ > 0 && std::chrono::steady_clock::now() < end);
    cursor.endEditBlock();
    if (left_ == 0)
        Stop();
}

std::size_t TextFill::AddPlain(QTextCursor& cursor, std::u16string_view rest) {
    const std::u16string_view near =
        lines_.IsParting() ? rest.substr(0, LongLines::kMost + kBreak.size()) : rest;
    std::size_t end = std::min(near.find(kBreak, kPiece), rest.size());
    if (lines_.IsParting() && end > LongLines::kMost)
        end = PlaceToPart(rest, kPiece);
    if (isInLine_)
        lines_.Continue(cursor);
    cursor.insertText(ToQString(rest.substr(0, end)));
    isInLine_ = end < rest.size() && rest.substr(end, kBreak.size()) != kBreak;
    return end;
}

// To the end of a line behind so many units: what follows begins with a break.
std::size_t TextFill::AddRich(QTextCursor& cursor, std::u16string_view rest) {
    std::size_t at = 0;
    for (; run_ < runs_.size(); ++run_) {
        const QTextCharFormat format = ToQt(runs_[run_].format);
        std::size_t& length = runs_[run_].length;
        while (length > 0) {
            if (rest.substr(at, kBreak.size()) == kBreak) {
                if (at >= kPiece)
                    return at;
                cursor.insertBlock(ToQt(paragraphs_[++paragraph_]), format);
                at += kBreak.size();
                length -= kBreak.size();
                continue;
            }
            const std::size_t stop = std::min(rest.substr(0, at + length).find(kBreak, at), at + length);
            cursor.insertText(ToQString(rest.substr(at, stop - at)), format);
            length -= stop - at;
            at = stop;
        }
    }
    return at;
}

} // namespace quillshift
