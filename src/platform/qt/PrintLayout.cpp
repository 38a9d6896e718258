#include "platform/qt/PrintLayout.h"

#include "platform/qt/LongLines.h"
#include "platform/qt/ParagraphLines.h"

#include <QPainter>
#include <QTextBlock>
#include <QTextDocument>

#include <algorithm>

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

} // namespace

qreal PrintLayout::Scale() const {
    return device_.logicalDpiY() / kScreenDpi;
}

// A paragraph that goes on for pages is laid out once.
const QTextLayout& PrintLayout::LaidOut(const QTextBlock& block, qreal width) {
    if (layout_ && block_ == block.blockNumber() && width_ == width)
        return *layout_;
    layout_ = std::make_unique<QTextLayout>(block.text(), document_.defaultFont(), &device_);
    block_ = block.blockNumber();
    width_ = width;
    QList<QTextLayout::FormatRange> formats = block.textFormats();
    if (grey_)
        for (QTextLayout::FormatRange& range : formats)
            MakeGrey(range.format);
    layout_->setFormats(formats);
    layout_->setCacheEnabled(true);
    LayOutParagraph(*layout_, block, width, Scale());
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
    for (QTextBlock block = document_.findBlock(from); block.isValid(); block = block.next()) {
        const QTextLayout& layout = LaidOut(block, std::max(area.width(), kLeastWidth));
        int number = layout.lineForTextPosition(std::max(from - block.position(), 0)).lineNumber();
        if ((any || from == 0) && !ContinuesLine(block))
            y += std::max(below, block.blockFormat().topMargin()) * Scale();
        below = block.blockFormat().bottomMargin();
        const qreal origin = y - layout.lineAt(number).y();
        for (; number < layout.lineCount(); ++number) {
            const QTextLine line = layout.lineAt(number);
            y = origin + line.y() + line.height();
            if (any && y > area.height())
                return block.position() + line.textStart();
            line.draw(&painter, {area.left(), area.top() + origin});
            any = true;
        }
    }
    return document_.characterCount() - 1;
}

} // namespace quillshift
