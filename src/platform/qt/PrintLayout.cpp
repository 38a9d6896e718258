#include "platform/qt/PrintLayout.h"

#include "platform/qt/LongLines.h"
#include "platform/qt/ParagraphLines.h"

#include <QPainter>
#include <QTextBlock>
#include <QTextDocument>

#include <algorithm>
#include <utility>

namespace quillshift {
namespace {

constexpr qreal kScreenDpi = 96; // of logical pixels

void MakeGrey(QTextCharFormat& format) {
    for (const auto role : {QTextFormat::ForegroundBrush, QTextFormat::BackgroundBrush}) {
        if (!format.hasProperty(role))
            continue;
        const int grey = qGray(format.brushProperty(role).color().rgb());
        format.setProperty(role, QBrush(QColor(grey, grey, grey)));
    }
}

// The paragraph with a letter of the line that begins with another, and how many are before it in that.
std::pair<QTextBlock, int> PlaceIn(QTextBlock line, int letter) {
    for (; letter >= line.length() - 1 && ContinuesLine(line.next()); line = line.next())
        letter -= line.length() - 1;
    return {line, letter};
}

int PositionOf(const QTextBlock& line, int letter) {
    const auto [part, inside] = PlaceIn(line, letter);
    return part.position() + inside;
}

} // namespace

qreal PrintLayout::Scale() const {
    return device_.logicalDpiY() / kScreenDpi;
}

// At least one row of it is whole.
void PrintLayout::LayOutFrom(const QTextBlock& line, int letter, qreal width) {
    block_ = line.blockNumber();
    width_ = width;
    begin_ = letter;
    auto [part, from] = PlaceIn(line, letter);
    QString text;
    QList<QTextLayout::FormatRange> formats;
    do {
        for (QTextLayout::FormatRange range : part.textFormats()) {
            if (grey_)
                MakeGrey(range.format);
            range.length -= std::max(from - range.start, 0);
            range.start = std::max(range.start - from, 0) + static_cast<int>(text.size());
            if (range.length > 0)
                formats.append(range);
        }
        text += part.text().mid(std::exchange(from, 0));
        part = part.next();
        isLast_ = !ContinuesLine(part);
        layout_ = std::make_unique<QTextLayout>(text, document_.defaultFont(), &device_);
        layout_->setFormats(formats);
        layout_->setCacheEnabled(true);
        LayOutPiece(*layout_, text, letter == 0, line, width, Scale());
    } while (WholeRows() == 0);
}

// What goes on for pages is laid out once.
const QTextLayout& PrintLayout::LaidOut(const QTextBlock& line, int letter, qreal width) {
    if (!layout_ || block_ != line.blockNumber() || width_ != width || letter < begin_)
        LayOutFrom(line, 0, width);
    for (int behind = 0; !isLast_; LayOutFrom(line, behind, width)) {
        behind = begin_ + layout_->lineAt(WholeRows()).textStart();
        if (letter < behind)
            break;
    }
    return *layout_;
}

// What is above the first paragraph of a further page is left out; of two margins that meet the greater one
// is kept.
int PrintLayout::Paint(QPainter& painter, const QRectF& area, int from) {
    constexpr qreal kLeastWidth = 1;
    painter.setPen(Qt::black);
    bool any = false;
    qreal y = 0;
    qreal below = 0;
    const QTextBlock part = document_.findBlock(from);
    QTextBlock line = FirstOfLine(part);
    int letter = from - line.position() - (part.blockNumber() - line.blockNumber());
    for (; line.isValid(); line = LastOfLine(line).next(), letter = 0) {
        if (any || from == 0)
            y += std::max(below, line.blockFormat().topMargin()) * Scale();
        below = line.blockFormat().bottomMargin();
        for (bool isWhole = false; !isWhole; isWhole = isLast_) {
            const QTextLayout& layout = LaidOut(line, letter, std::max(area.width(), kLeastWidth));
            int number = layout.lineForTextPosition(letter - begin_).lineNumber();
            const qreal origin = y - layout.lineAt(number).y();
            for (; number < WholeRows(); ++number) {
                const QTextLine row = layout.lineAt(number);
                y = origin + row.y() + row.height();
                letter = begin_ + row.textStart();
                if (any && y > area.height())
                    return PositionOf(line, letter);
                row.draw(&painter, {area.left(), area.top() + origin});
                any = true;
                letter += row.textLength();
            }
        }
    }
    return document_.characterCount() - 1;
}

} // namespace quillshift
