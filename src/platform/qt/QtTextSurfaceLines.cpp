// How a long line, which the document has in parts, is one line to the user.

#include "platform/qt/LongLines.h"
#include "platform/qt/QtText.h"
#include "platform/qt/QtTextSurface.h"
#include "platform/qt/ViewLayout.h"

#include <QKeyEvent>
#include <QScopedValueRollback>
#include <QTextBlock>
#include <QTextDocument>
#include <QTextDocumentFragment>

#include <algorithm>
#include <limits>
#include <utility>

namespace quillshift {
namespace {

// Whether a step by words goes on where a part begins.
bool IsWithinWord(const QTextDocument& document, int begin) {
    const auto kind = [&](int position) {
        const QChar letter = document.characterAt(position);
        const bool parts = letter.unicode() < 128 && !letter.isLetterOrNumber() && letter != u'_';
        return letter.isSpace() ? 0 : parts ? 1 : 2;
    };
    return kind(begin) == 0 || kind(begin) == kind(begin - 2);
}

// By a word, which does not end where a part does.
void SelectWord(QTextCursor& cursor, bool isNext) {
    const auto step = isNext ? QTextCursor::NextWord : QTextCursor::PreviousWord;
    cursor.movePosition(step, QTextCursor::KeepAnchor);
    const QTextDocument& document = *cursor.document();
    const int place = cursor.position();
    if (isNext && cursor.atBlockEnd() && ContinuesLine(cursor.block().next())) {
        cursor.setPosition(place + 1, QTextCursor::KeepAnchor);
        if (IsWithinWord(document, place + 1))
            cursor.movePosition(step, QTextCursor::KeepAnchor);
    } else if (!isNext && cursor.atBlockStart() && ContinuesLine(cursor.block()) &&
               IsWithinWord(document, place)) {
        cursor.setPosition(place - 1, QTextCursor::KeepAnchor);
        cursor.movePosition(step, QTextCursor::KeepAnchor);
    }
}

} // namespace

void QtTextSurface::TidyLines() {
    const QScopedValueRollback replacing(replacing_, true);
    const int from = std::exchange(tidyFrom_, std::numeric_limits<int>::max());
    const int to = std::exchange(tidyTo_, -1);
    if (from <= to)
        lines_->Tidy(from, to);
}

// A part of a line ends where a row does, once the rows are seen; answers whether one did not.
bool QtTextSurface::PlaceBorders() {
    constexpr int kTries = 8; // more than there are in sight
    const QScopedValueRollback replacing(replacing_, true);
    int moved = 0;
    for (QTextBlock block; moved < kTries && (block = layout_->MisplacedBorder()).isValid(); ++moved)
        lines_->MoveBorder(block.position(), layout_->PlaceOfBorder(block));
    return moved > 0;
}

// Each row depends on those before it in the line.
void QtTextSurface::PlaceAllBorders() {
    const QScopedValueRollback replacing(replacing_, true);
    for (QTextBlock block = document()->begin(); block.isValid(); block = block.next())
        if (ContinuesLine(block.next())) {
            const int place = layout_->PlaceOfBorder(block);
            if (place != block.position() + block.length() - 1) {
                const int begin = block.position();
                lines_->MoveBorder(begin, place);
                block = document()->findBlock(begin);
            }
        }
}

// Two parts meet at a place that is one to the user: the caret is found at the later one's beginning, and
// goes back from the earlier one's end. What a key erases up to a word's end is selected for it.
void QtTextSurface::StepOverPart(const QKeyEvent& event) {
    constexpr QKeySequence::StandardKey kBack[] = {
        QKeySequence::MoveToPreviousChar, QKeySequence::SelectPreviousChar, QKeySequence::MoveToPreviousWord,
        QKeySequence::SelectPreviousWord};
    QTextCursor cursor = textCursor();
    const auto matches = [&](auto key) { return event.matches(key); };
    const bool erases = event.key() == Qt::Key_Backspace && !cursor.hasSelection();
    const bool erasesNext = matches(QKeySequence::DeleteEndOfWord);
    const bool erasesWord =
        !cursor.hasSelection() && (erasesNext || matches(QKeySequence::DeleteStartOfWord));
    const bool stepsBack = cursor.atBlockStart() && ContinuesLine(cursor.block()) &&
                           (erases || std::any_of(std::begin(kBack), std::end(kBack), matches));
    if (!stepsBack && !erasesWord)
        return;
    const QScopedValueRollback replacing(replacing_, true); // nothing moves in the text
    if (stepsBack)
        cursor.setPosition(cursor.position() - 1,
                           cursor.hasSelection() ? QTextCursor::KeepAnchor : QTextCursor::MoveAnchor);
    if (erasesWord)
        SelectWord(cursor, erasesNext);
    setTextCursor(cursor);
}

// What goes to a row's end, or up and down, stays in the row; what goes by words stops where one begins.
void QtTextSurface::LeavePartsEnd(const QKeyEvent& event) {
    constexpr int kToRow[] = {Qt::Key_End, Qt::Key_Up, Qt::Key_Down, Qt::Key_PageUp, Qt::Key_PageDown};
    const bool toNextWord =
        event.matches(QKeySequence::MoveToNextWord) || event.matches(QKeySequence::SelectNextWord);
    const bool toLastWord =
        event.matches(QKeySequence::MoveToPreviousWord) || event.matches(QKeySequence::SelectPreviousWord);
    QTextCursor cursor = textCursor();
    const auto mode = cursor.hasSelection() ? QTextCursor::KeepAnchor : QTextCursor::MoveAnchor;
    const bool isAtEnd = cursor.atBlockEnd() && ContinuesLine(cursor.block().next());
    const bool isAtBegin = cursor.atBlockStart() && ContinuesLine(cursor.block());
    const int border = cursor.position() + (isAtEnd ? 1 : 0);
    if (isAtEnd) {
        const bool stays = std::find(std::begin(kToRow), std::end(kToRow), event.key()) != std::end(kToRow);
        cursor.movePosition(stays ? QTextCursor::PreviousCharacter : QTextCursor::NextCharacter, mode);
        if (toNextWord && IsWithinWord(*document(), border))
            cursor.movePosition(QTextCursor::NextWord, mode);
        setTextCursor(cursor);
    } else if (isAtBegin && toLastWord && IsWithinWord(*document(), border)) {
        cursor.setPosition(border - 1, mode);
        cursor.movePosition(QTextCursor::PreviousWord, mode);
        setTextCursor(cursor);
    }
}

// The toolkit has selected a paragraph and its end for the third click.
void QtTextSurface::SelectWholeLine() {
    QTextCursor cursor = textCursor();
    const QTextBlock block = document()->findBlock(cursor.anchor());
    const QTextBlock next = block.next();
    if (cursor.anchor() != block.position() ||
        cursor.position() != (next.isValid() ? next.position() : document()->characterCount() - 1) ||
        !(ContinuesLine(block) || ContinuesLine(next)))
        return;
    cursor.setPosition(block.position());
    lines_->SelectWholeLines(cursor);
    cursor.movePosition(QTextCursor::NextCharacter, QTextCursor::KeepAnchor);
    setTextCursor(cursor);
}

// As one edit, with the formats.
void QtTextSurface::MoveText(QTextCursor& selection, QTextCursor& target) {
    target.beginEditBlock();
    lines_->JoinSelected(selection);
    const QTextDocumentFragment moved = selection.selection();
    lines_->Insert(selection, {});
    target.insertFragment(moved);
    target.endEditBlock();
}

} // namespace quillshift
