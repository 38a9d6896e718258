#include "platform/qt/LongLines.h"

#include "platform/qt/QtText.h"

#include <QTextBoundaryFinder>
#include <QTextCursor>
#include <QTextDocument>

#include <algorithm>
#include <utility>

namespace quillshift {
namespace {

constexpr std::u16string_view kBreak = u"\r\n";

// Parts are made half as long as they may become, so that typing seldom parts them again; two that are
// together no longer than `kJoined`, or one of them no longer than `kScrap`, become one.
constexpr int kPart = 16'000;
constexpr int kJoined = 24'000;
constexpr int kScrap = 4'000;

int LengthOf(const QTextBlock& block) {
    return block.length() - 1;
}

// Whether an edit has made one character of what stands on both sides of the border.
bool PartACharacter(const QTextBlock& one, const QTextBlock& other) {
    constexpr int kBehind = 64; // a character to a reader is seldom longer
    const QString before = one.text().right(kBehind);
    QTextBoundaryFinder finder(QTextBoundaryFinder::Grapheme, before + other.text().left(kBehind));
    finder.setPosition(before.size());
    return !finder.isAtBoundary();
}

bool AreToBeJoined(const QTextBlock& one, const QTextBlock& other) {
    return ContinuesLine(other) &&
           (LengthOf(one) + LengthOf(other) <= kJoined ||
            std::min(LengthOf(one), LengthOf(other)) <= kScrap || PartACharacter(one, other));
}

} // namespace

// On a paragraph that continues a line; it goes with the paragraph, and a new one has none. The document, and
// so the marks, can be gone later than what counts them.
struct LongLines::Continues final : QTextBlockUserData {
    explicit Continues(std::shared_ptr<int> marks) : count(std::move(marks)) { ++*count; }
    Continues(const Continues&) = delete;
    Continues& operator=(const Continues&) = delete;
    ~Continues() override { --*count; }
    std::shared_ptr<int> count;
};

bool ContinuesLine(const QTextBlock& block) {
    return block.userData() != nullptr;
}

QTextBlock FirstOfLine(QTextBlock block) {
    while (ContinuesLine(block))
        block = block.previous();
    return block;
}

QTextBlock LastOfLine(QTextBlock block) {
    while (ContinuesLine(block.next()))
        block = block.next();
    return block;
}

std::size_t PlaceToPart(std::u16string_view line, std::size_t most) {
    constexpr std::size_t kNear = 1'000;
    constexpr std::size_t kBehind = 64; // a character to a reader is no longer
    const std::size_t begin = most > kNear ? most - kNear : 0;
    const auto isLastBlank = [&](std::size_t at) { return line[at] == u' ' && line[at + 1] != u' '; };
    std::size_t blank = most - 1;
    while (blank > begin && !isLastBlank(blank))
        --blank;
    if (isLastBlank(blank)) {
        // Not the blank under a mark.
        QTextBoundaryFinder finder(QTextBoundaryFinder::Grapheme, ToQString(line.substr(blank, kBehind)));
        if (finder.toNextBoundary() == 1)
            return blank + 1;
    }
    QTextBoundaryFinder finder(QTextBoundaryFinder::Grapheme,
                               ToQString(line.substr(begin, most - begin + kBehind)));
    finder.setPosition(static_cast<qsizetype>(most - begin));
    if (!finder.isAtBoundary())
        finder.toPreviousBoundary();
    return finder.position() > 0 ? begin + static_cast<std::size_t>(finder.position()) : most;
}

LongLines::LongLines(QTextDocument& document) : document_(document), blocks_(document.blockCount()) {}

void LongLines::Mark(QTextBlock block, bool continues) {
    if (ContinuesLine(block) != continues)
        block.setUserData(continues ? new Continues(marks_) : nullptr);
}

// --- What is where

int LongLines::PartsUpTo(int block) const {
    return static_cast<int>(std::upper_bound(parts_.begin(), parts_.end(), block) - parts_.begin());
}

// What a notice tells lies between two places: the paragraph with the first begins as it did before. The
// toolkit may have kept the mark of a later one for it.
void LongLines::Follow(int from, int added) {
    const int blocks = document_.blockCount();
    const int old = std::exchange(blocks_, blocks);
    if (*marks_ == 0 && parts_.empty())
        return;
    const int end = document_.characterCount() - 1;
    QTextBlock block = document_.findBlock(std::min(from, end));
    const int first = block.blockNumber();
    const int came = document_.findBlock(std::min(from + added, end)).blockNumber() - first;
    const int went = came + old - blocks;
    if (went < 0 || first + went >= old) { // the notice tells not all of it
        parts_.clear();
        for (block = document_.begin(); block.isValid(); block = block.next())
            if (ContinuesLine(block))
                parts_.push_back(block.blockNumber());
        return;
    }
    auto behind = std::upper_bound(parts_.begin(), parts_.end(), first);
    Mark(block, behind != parts_.begin() && *std::prev(behind) == first);
    behind = parts_.erase(behind, std::upper_bound(behind, parts_.end(), first + went));
    for (auto part = behind; part != parts_.end(); ++part)
        *part += came - went;
    std::vector<int> parts;
    for (int i = 1; i <= came; ++i)
        if (block = block.next(); ContinuesLine(block))
            parts.push_back(first + i);
    parts_.insert(behind, parts.begin(), parts.end());
}

std::size_t LongLines::Length() const {
    return static_cast<std::size_t>(document_.characterCount() + document_.blockCount() - 2) -
           2 * parts_.size();
}

std::size_t LongLines::TextPosition(int documentPosition) const {
    const int block = document_.findBlock(documentPosition).blockNumber();
    return static_cast<std::size_t>(documentPosition + block - 2 * PartsUpTo(block));
}

int LongLines::DocumentPosition(std::size_t textPosition) const {
    const int wanted = static_cast<int>(textPosition);
    const auto breaksBefore = [this](int block) { return block - 2 * PartsUpTo(block); };
    int low = 0; // a block that begins at or before the position
    int high = document_.blockCount();
    while (high - low > 1) {
        const int middle = low + (high - low) / 2;
        if (document_.findBlockByNumber(middle).position() + breaksBefore(middle) <= wanted)
            low = middle;
        else
            high = middle;
    }
    const QTextBlock block = document_.findBlockByNumber(low);
    return std::min(wanted - breaksBefore(low), block.position() + LengthOf(block));
}

std::u16string LongLines::TextBetween(int from, int to) const {
    std::u16string text;
    const QTextBlock first = document_.findBlock(from);
    const int breaks = document_.findBlock(to).blockNumber() - first.blockNumber();
    text.reserve(static_cast<std::size_t>(to - from) + static_cast<std::size_t>(breaks));
    for (QTextBlock block = first; block.isValid() && block.position() <= to; block = block.next()) {
        const QString line = block.text();
        const int begin = std::max(0, from - block.position());
        const int end = std::min(static_cast<int>(line.size()), to - block.position());
        text += ViewOf(line).substr(static_cast<std::size_t>(begin), static_cast<std::size_t>(end - begin));
        if (block.position() + block.length() <= to && !ContinuesLine(block.next()))
            text += kBreak;
    }
    return text;
}

void LongLines::SelectWholeLines(QTextCursor& cursor) const {
    const QTextBlock first = FirstOfLine(document_.findBlock(cursor.selectionStart()));
    const QTextBlock last = LastOfLine(document_.findBlock(cursor.selectionEnd()));
    cursor.setPosition(first.position());
    cursor.setPosition(last.position() + LengthOf(last), QTextCursor::KeepAnchor);
}

// --- Parting

void LongLines::Continue(QTextCursor& cursor) {
    cursor.beginEditBlock(); // or the layout would hear of it before it is marked
    const int place = cursor.position();
    cursor.insertBlock();
    Mark(cursor.block(), true);
    Follow(place, 1);
    cursor.endEditBlock();
}

void LongLines::Join(const QTextBlock& block) {
    const int place = block.position() - 1;
    QTextCursor cursor(&document_);
    cursor.setPosition(place);
    cursor.setPosition(place + 1, QTextCursor::KeepAnchor);
    cursor.removeSelectedText();
    Follow(place, 0);
}

void LongLines::MoveBorder(int from, int to) {
    QTextCursor cursor(&document_);
    cursor.beginEditBlock();
    Join(document_.findBlock(from).next());
    cursor.setPosition(to);
    Continue(cursor);
    cursor.endEditBlock();
}

void LongLines::JoinSelected(const QTextCursor& cursor) {
    const int begin = cursor.selectionStart();
    for (QTextBlock block = document_.findBlock(cursor.selectionEnd()); block.position() > begin;) {
        const int before = block.position() - 1;
        if (ContinuesLine(block))
            Join(block);
        block = document_.findBlock(before);
    }
}

void LongLines::Part(const QTextBlock& block) {
    const QString text = block.text();
    const int begin = block.position();
    const auto line = ViewOf(text);
    const std::size_t parts = (line.size() + kPart - 1) / kPart;
    QTextCursor cursor(&document_);
    for (std::size_t end = line.size(), part = parts - 1; part > 0; --part) { // from behind: places stay
        end = PlaceToPart(line, std::min(line.size() / parts * part, end - 1));
        cursor.setPosition(begin + static_cast<int>(end));
        Continue(cursor);
    }
}

bool LongLines::IsTidy(QTextBlock block, int behind) const {
    for (; block.isValid() && block.position() <= document_.characterCount() - behind; block = block.next())
        if (LengthOf(block) > static_cast<int>(kMost) || AreToBeJoined(block, block.next()))
            return false;
    return true;
}

void LongLines::Tidy(int from, int to) {
    if (!parting_)
        return;
    const int behind = document_.characterCount() - to; // which stays as it is
    QTextBlock block = document_.findBlock(from);
    if (ContinuesLine(block))
        block = block.previous();
    if (IsTidy(block, behind))
        return;
    QTextCursor edit(&document_);
    edit.beginEditBlock();
    for (; block.isValid() && block.position() <= document_.characterCount() - behind; block = block.next()) {
        for (QTextBlock next = block.next(); AreToBeJoined(block, next);) {
            const int place = block.position();
            Join(next);
            block = document_.findBlock(place);
            next = block.next();
        }
        if (LengthOf(block) > static_cast<int>(kMost)) {
            const int place = block.position();
            const int length = LengthOf(block);
            Part(block);
            block = document_.findBlock(place + length); // in the last part, or the one before it
        }
    }
    edit.endEditBlock();
}

void LongLines::Insert(QTextCursor& cursor, const QString& text) {
    const int place = cursor.selectionStart();
    cursor.insertText(text);
    Follow(place, cursor.position() - place);
    Tidy(place, cursor.position());
}

} // namespace quillshift
