#include "base/TextChange.h"
#include "base/Texts.h"
#include "platform/qt/LongLines.h"
#include "platform/qt/QtText.h"
#include "platform/qt/QtTextSurface.h"
#include "platform/qt/TextAccess.h"
#include "platform/qt/TextFind.h"
#include "platform/qt/ViewLayout.h"

#include <QTextBlock>
#include <QTextDocument>
#include <QTextLayout>

#include <limits>
#include <utility>
#include <vector>

namespace quillshift {
namespace {

struct Edit {
    std::size_t place;
    std::u16string went;
    std::u16string came;
};

// What an edit of the document between two of its positions will be, with the halves of pairs that it makes
// or parts.
Edit EditOf(const QTextDocument& document, const Replacement& one, int begin, int end,
            std::u16string_view by) {
    const auto unitAt = [&](int position) {
        const bool isThere = position >= 0 && position < document.characterCount() - 1;
        return std::u16string(isThere ? 1 : 0, document.characterAt(position).unicode());
    };
    const std::u16string before = unitAt(begin - 1);
    const std::u16string behind = unitAt(end);
    const Halves cut = CutHalves(before + one.went + behind, {before.size(), one.went.size(), by.size()}, by);
    const std::u16string cutBefore = before.substr(before.size() - cut.before);
    const std::u16string cutBehind = behind.substr(0, cut.behind);
    return {.place = one.place - cut.before,
            .went = cutBefore + one.went + cutBehind,
            .came = (cutBefore + std::u16string(by)) + cutBehind};
}

} // namespace

std::optional<std::size_t> QtTextSurface::FindIn(std::u16string_view text, std::u16string_view wanted,
                                                 std::size_t start, FindOptions options) const {
    return FindText(text, wanted, start, options);
}

void QtTextSurface::ReplaceEach(const std::function<const Replacement*()>& next, std::u16string_view by) {
    const std::u16string whole = WithWholeBreaks(by);
    FillAll();
    std::vector<Edit> edits;
    QTextCursor cursor(document());
    replacing_ = true;
    cursor.beginEditBlock();
    while (const Replacement* const one = next()) {
        const int begin = lines_->DocumentPosition(one->place);
        const int end = lines_->DocumentPosition(one->place + one->went.size());
        edits.push_back(EditOf(*document(), *one, begin, end, whole));
        cursor.setPosition(begin);
        cursor.setPosition(end, QTextCursor::KeepAnchor);
        lines_->Insert(cursor, ToQString(whole));
    }
    mirror_ = GapText(lines_->TextBetween(0, document()->characterCount() - 1));
    cursor.endEditBlock();
    if (!edits.empty())
        setTextCursor(cursor);
    replacing_ = false;
    noted_ = CurrentSelection();
    for (const Edit& edit : edits)
        Raise({.place = edit.place, .went = edit.went, .came = edit.came});
    if (edits.empty())
        return;
    AnnounceSelection(*this);
    if (OnSelChange)
        OnSelChange();
}

// --- Lines

std::optional<std::size_t> QtTextSurface::LineIndex(int line) const {
    const auto lineStart = [this](const QTextBlock& block, int number) {
        layout_->blockBoundingRect(block); // makes its lines
        return SurfacePosition(block.position() + block.layout()->lineAt(number).textStart());
    };
    FillAll();
    if (line == -1) {
        const QTextCursor cursor = textCursor();
        const QTextBlock block = cursor.block();
        layout_->blockBoundingRect(block);
        return lineStart(block, block.layout()->lineForTextPosition(cursor.positionInBlock()).lineNumber());
    }
    const_cast<QtTextSurface&>(*this).PlaceAllBorders();
    const auto [block, number] = layout_->FindLine(line);
    return block.isValid() && line >= 0 ? std::optional(lineStart(block, number)) : std::nullopt;
}

int QtTextSurface::LineCount() const {
    FillAll();
    const_cast<QtTextSurface&>(*this).PlaceAllBorders();
    constexpr int kMore = std::numeric_limits<int>::max();
    return kMore - layout_->FindLine(kMore).second;
}

Rect QtTextSurface::SelectionOnScreen() const {
    QTextCursor begin = textCursor();
    begin.setPosition(begin.selectionStart());
    QTextCursor end = textCursor();
    end.setPosition(end.selectionEnd());
    const QRect first = cursorRect(begin);
    QRect place = first | cursorRect(end);
    if (place.height() > first.height()) { // several lines
        place.setLeft(0);
        place.setRight(viewport()->width() - 1);
    }
    place &= viewport()->rect();
    if (place.isEmpty() || !isVisible())
        return {};
    const QPoint corner = viewport()->mapToGlobal(place.topLeft());
    return RectAt(corner.x(), corner.y(), place.width(), place.height());
}

void QtTextSurface::SetFocus() {
    window()->activateWindow();
    setFocus();
}

} // namespace quillshift
