#include "platform/qt/LongWordLayout.h"

#include <QPainter>
#include <QTextBlock>
#include <QTextBoundaryFinder>
#include <QTextDocument>
#include <QTextFrame>
#include <QTextLayout>

#include <algorithm>

namespace quillshift {
namespace {

struct Word {
    int begin;
    int end; // the blanks behind it left out
};

// In order. A word is what must not be broken where it fits a line.
std::vector<Word> LongWords(const QString& text) {
    std::vector<Word> words;
    const auto longest = static_cast<qsizetype>(kLongWord);
    if (text.size() <= longest)
        return words;
    QTextBoundaryFinder breaks(QTextBoundaryFinder::Line, text);
    for (int begin = 0, next = 0; (next = static_cast<int>(breaks.toNextBoundary())) >= 0; begin = next) {
        int end = next;
        while (end > begin && text[end - 1].isSpace())
            --end;
        if (end - begin > longest)
            words.push_back({begin, end});
    }
    return words;
}

QTextOption OptionOf(const QTextBlock& block, qreal scale) {
    const QTextBlockFormat format = block.blockFormat();
    QTextOption option = block.document()->defaultTextOption();
    option.setTextDirection(block.textDirection());
    option.setTabStopDistance(option.tabStopDistance() * scale);
    QList<QTextOption::Tab> tabs = format.tabPositions();
    for (QTextOption::Tab& tab : tabs)
        tab.position *= scale;
    option.setTabs(tabs);
    if (format.hasProperty(QTextFormat::BlockAlignment))
        option.setAlignment(format.alignment());
    return option;
}

QList<QTextLayout::FormatRange> SelectionsIn(const QTextBlock& block,
                                             const QAbstractTextDocumentLayout::PaintContext& context) {
    QList<QTextLayout::FormatRange> ranges;
    for (const auto& selection : context.selections) {
        const int begin = std::max(selection.cursor.selectionStart() - block.position(), 0);
        const int end = std::min(selection.cursor.selectionEnd() - block.position(), block.length());
        if (begin < end)
            ranges.append({begin, end - begin, selection.format});
    }
    return ranges;
}

// Where the caret is to be drawn in the block's layout; -1 for nowhere. A position below -1 counts from the
// start of what an input method is composing.
int CaretIn(const QTextBlock& block, int position) {
    if (position < -1)
        return block.layout()->preeditAreaText().isEmpty()
                   ? -1
                   : block.layout()->preeditAreaPosition() - position - 2;
    return block.contains(position) ? position - block.position() : -1;
}

} // namespace

bool HasLongWord(std::u16string_view text) {
    std::size_t length = 0;
    return std::any_of(text.begin(), text.end(), [&](char16_t character) {
        const bool ends = character == u' ' || character == u'\t' || character == u'\r' || character == u'\n';
        length = ends ? 0 : length + 1;
        return length > kLongWord;
    });
}

// A line that begins in a long word can be broken anywhere, which needs no look at the rest of the word;
// unless it reaches the word's end, where the rule for words is in force again.
void LayOutParagraph(QTextLayout& layout, const QTextBlock& block, qreal room, qreal scale) {
    const QTextBlockFormat format = block.blockFormat();
    const QTextOption byWords = OptionOf(block, scale);
    QTextOption anywhere = byWords;
    anywhere.setWrapMode(QTextOption::WrapAnywhere);
    const std::vector<Word> words = LongWords(block.text());
    auto word = words.begin();
    const qreal left = format.leftMargin() * scale;
    const qreal width = room - left - format.rightMargin() * scale;
    qreal indent = format.textIndent() * scale;
    qreal y = 0;

    layout.setTextOption(byWords);
    layout.beginLayout();
    for (QTextLine line = layout.createLine(); line.isValid(); line = layout.createLine()) {
        word = std::find_if(word, words.end(), [&](const Word& w) { return w.end > line.textStart(); });
        const auto fill = [&](const QTextOption& option) {
            layout.setTextOption(option);
            line.setLeadingIncluded(true);
            line.setLineWidth(std::max(width - indent, qreal(0)));
        };
        const bool isInWord = word != words.end() && word->begin <= line.textStart();
        if (isInWord)
            fill(anywhere);
        if (!isInWord || line.textStart() + line.textLength() >= word->end)
            fill(byWords);
        line.setPosition({left + indent, y});
        y += line.height();
        indent = 0;
    }
    layout.endLayout();
}

// --- Laying out

qreal LongWordLayout::LineWidth() const {
    constexpr qreal kAnyWidth = 1 << 23; // not shown yet: nothing wraps
    const qreal page = document()->pageSize().width();
    return page > 0 ? page - 2 * document()->documentMargin() : kAnyWidth;
}

void LongWordLayout::LayOut(const QTextBlock& block) const {
    QTextLayout& layout = *block.layout();
    // Or each stroke of the caret would itemise it again.
    layout.setCacheEnabled(!LongWords(block.text()).empty());
    LayOutParagraph(layout, block, LineWidth(), 1);
}

// Puts the blocks below each other; the greater of two margins that meet is kept.
void LongWordLayout::Stack() {
    const qreal margin = document()->documentMargin();
    qreal y = margin;
    qreal below = 0;
    tops_.clear();
    for (QTextBlock block = document()->begin(); block.isValid(); block = block.next()) {
        const QTextBlockFormat format = block.blockFormat();
        y += std::max(below, format.topMargin());
        below = format.bottomMargin();
        block.layout()->setPosition({margin, y});
        tops_.push_back(y);
        y += block.layout()->boundingRect().height();
    }
    height_ = y + below + margin;
}

void LongWordLayout::documentChanged(int from, int /*removed*/, int added) {
    for (QTextBlock block = document()->findBlock(from); block.isValid() && block.position() <= from + added;
         block = block.next())
        LayOut(block);
    Stack();
    emit documentSizeChanged(documentSize());
    emit update();
}

// --- Where things are

// The block there, or the next one where there is a margin; the last one below all.
QTextBlock LongWordLayout::BlockAt(qreal y) const {
    const auto next = std::lower_bound(tops_.begin(), tops_.end(), y);
    const QTextBlock block =
        document()->findBlockByNumber(std::max(static_cast<int>(next - tops_.begin()) - 1, 0));
    const bool isBelow = y > blockBoundingRect(block).bottom() && next != tops_.end();
    return isBelow ? block.next() : block;
}

QSizeF LongWordLayout::documentSize() const {
    return {std::max(document()->pageSize().width(), qreal(0)), height_};
}

QRectF LongWordLayout::frameBoundingRect(QTextFrame* /*frame*/) const {
    return {QPointF(), documentSize()};
}

QRectF LongWordLayout::blockBoundingRect(const QTextBlock& block) const {
    if (!block.isValid())
        return {};
    return {block.layout()->position(), block.layout()->boundingRect().size()};
}

int LongWordLayout::hitTest(const QPointF& point, Qt::HitTestAccuracy accuracy) const {
    const QTextBlock block = BlockAt(point.y());
    const QTextLayout& layout = *block.layout();
    const QPointF inside = point - layout.position();
    int number = 0;
    while (number + 1 < layout.lineCount() && layout.lineAt(number + 1).y() <= inside.y())
        ++number;
    const QTextLine line = layout.lineAt(number);
    if (accuracy == Qt::ExactHit && !line.naturalTextRect().contains(inside))
        return -1;
    if (inside.y() < 0)
        return block.position();
    if (inside.y() >= layout.boundingRect().bottom())
        return block.position() + block.length() - 1;
    return block.position() + line.xToCursor(inside.x());
}

void LongWordLayout::draw(QPainter* painter, const PaintContext& context) {
    const QRectF clip = context.clip.isValid() ? context.clip : QRectF(QPointF(), documentSize());
    painter->setPen(context.palette.color(QPalette::Text));
    for (QTextBlock block = BlockAt(clip.top());
         block.isValid() && block.layout()->position().y() <= clip.bottom(); block = block.next()) {
        block.layout()->draw(painter, {}, SelectionsIn(block, context), clip);
        if (const int caret = CaretIn(block, context.cursorPosition); caret >= 0)
            block.layout()->drawCursor(painter, {}, caret);
    }
}

} // namespace quillshift
