#include "platform/qt/ParagraphLines.h"

#include "platform/qt/LongLines.h"

#include <QStyle>
#include <QTextBlock>
#include <QTextBoundaryFinder>
#include <QTextDocument>
#include <QTextLayout>

#include <algorithm>
#include <cmath>

namespace quillshift {
namespace {

// In 16-bit units: a word that is longer counts as long. For each line that a word fills, the toolkit
// measures the word to its end.
constexpr qsizetype kLongWord = 4096;

constexpr int kUnits = 64; // in a pixel, of the toolkit's own layout

struct Word {
    int begin;
    int end; // the blanks behind it left out
};

// Spares most long lines the search for all places where they may be broken.
bool HasRoomForLongWord(const QString& text) {
    for (qsizetype begin = 0; text.size() - begin > kLongWord;) {
        const qsizetype blank = text.indexOf(QLatin1Char(' '), begin);
        if (blank < 0 || blank - begin > kLongWord)
            return true;
        begin = blank + 1;
    }
    return false;
}

// In order. A word is what must not be broken where it fits a line.
std::vector<Word> LongWords(const QString& text) {
    std::vector<Word> words;
    if (!HasRoomForLongWord(text))
        return words;
    QTextBoundaryFinder breaks(QTextBoundaryFinder::Line, text);
    for (int begin = 0, next = 0; (next = static_cast<int>(breaks.toNextBoundary())) >= 0; begin = next) {
        int end = next;
        while (end > begin && text[end - 1].isSpace())
            --end;
        if (end - begin > kLongWord)
            words.push_back({begin, end});
    }
    return words;
}

QTextOption OptionOf(const QTextBlock& block) {
    const QTextBlockFormat format = block.blockFormat();
    QTextOption option = block.document()->defaultTextOption();
    option.setTextDirection(FirstOfLine(block).textDirection());
    option.setTabs(format.tabPositions()); // which the toolkit scales by the layout's font or device
    const bool hasOwn = format.hasProperty(QTextFormat::BlockAlignment);
    option.setAlignment(
        QStyle::visualAlignment(option.textDirection(), hasOwn ? format.alignment() : option.alignment()));
    return option;
}

} // namespace

void LayOutParagraph(QTextLayout& layout, const QTextBlock& block, qreal room, qreal scale) {
    LayOutPiece(layout, block.text(), !ContinuesLine(block), block, room, scale);
}

// A line that begins in a long word can be broken anywhere, which needs no look at the rest of the word;
// unless it reaches the word's end, where the rule for words is in force again.
void LayOutPiece(QTextLayout& layout, const QString& text, bool isFirst, const QTextBlock& block, qreal room,
                 qreal scale) {
    const QTextBlockFormat format = block.blockFormat();
    const QTextOption byWords = OptionOf(block);
    QTextOption anywhere = byWords;
    anywhere.setWrapMode(QTextOption::WrapAnywhere);
    const std::vector<Word> words = LongWords(text);
    // Or each stroke of the caret would itemise it again.
    layout.setCacheEnabled(layout.cacheEnabled() || !words.empty());
    auto word = words.begin();
    const auto measure = [scale](qreal pixels) { return std::trunc(pixels * scale * kUnits) / kUnits; };
    const qreal left = measure(format.leftMargin());
    const qreal width = room - left - measure(format.rightMargin());
    qreal indent = isFirst ? measure(format.textIndent()) : 0;
    qreal y = 0;
    const bool isLeftToRight = byWords.textDirection() != Qt::RightToLeft;

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
        line.setPosition({left + (isLeftToRight ? indent : 0), y});
        y += LineAdvance(line);
        indent = 0;
    }
    layout.endLayout();
}

qreal LineAdvance(const QTextLine& line) {
    return std::ceil(line.ascent() + line.descent() + line.leading());
}

qreal ParagraphHeight(const QTextLayout& layout) {
    const QTextLine last = layout.lineAt(layout.lineCount() - 1);
    return last.y() + LineAdvance(last);
}

} // namespace quillshift
