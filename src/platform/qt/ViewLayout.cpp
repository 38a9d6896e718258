#include "platform/qt/ViewLayout.h"

#include "platform/qt/LongLines.h"
#include "platform/qt/ParagraphLines.h"

#include <QFontMetricsF>
#include <QPainter>
#include <QTextDocument>
#include <QTextLayout>

#include <algorithm>
#include <cmath>
#include <utility>

namespace quillshift {
namespace {

// The toolkit's own layout counts in these, too: its sums are exact.
constexpr int kUnits = 64; // in a pixel

std::int64_t ToUnits(qreal pixels) {
    return static_cast<std::int64_t>(pixels * kUnits);
}

qreal ToPixels(std::int64_t units) {
    return static_cast<qreal>(units) / kUnits;
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

ViewLayout::ViewLayout(QTextDocument* document, const QPaintDevice& screen)
    : QAbstractTextDocumentLayout(document), device_(screen) {
    setPaintDevice(&device_);
}

int ViewLayout::ZoomedDevice::metric(PaintDeviceMetric metric) const {
    switch (metric) {
    case PdmDpiX:
        return static_cast<int>(std::lround(screen.logicalDpiX() * zoom));
    case PdmDpiY:
        return static_cast<int>(std::lround(screen.logicalDpiY() * zoom));
    case PdmDevicePixelRatio:
        return static_cast<int>(screen.devicePixelRatio());
    case PdmDevicePixelRatioScaled:
        return static_cast<int>(std::lround(screen.devicePixelRatioF() * devicePixelRatioFScale()));
    default:
        return QPaintDevice::metric(metric);
    }
}

void ViewLayout::SetZoom(qreal zoom) {
    device_.zoom = zoom;
    documentChanged(0, 0, document()->characterCount() - 1);
}

// --- Heights

// Of two margins that meet the greater one is kept, and none above the first paragraph.
qreal ViewLayout::GapAbove(const QTextBlock& block) const {
    const QTextBlock before = block.previous();
    return before.isValid() && !ContinuesLine(block)
               ? Zoom() * std::max(block.blockFormat().topMargin(), before.blockFormat().bottomMargin())
               : 0;
}

qreal ViewLayout::LineWidth() const {
    constexpr qreal kAnyWidth = 1 << 23; // not shown yet: nothing wraps
    const qreal page = document()->pageSize().width();
    return page > 0 ? page - 2 * document()->documentMargin() : kAnyWidth;
}

void ViewLayout::MeasureFont() {
    QTextLayout sample(QStringLiteral("x"), document()->defaultFont(), paintDevice());
    sample.beginLayout();
    const QTextLine line = sample.createLine();
    sample.endLayout();
    lineHeight_ = LineAdvance(line);
    letterWidth_ = std::max(QFontMetricsF(document()->defaultFont(), paintDevice()).averageCharWidth(), 1.0);
}

ViewLayout::Block ViewLayout::Measured(const QTextBlock& block, const QTextLayout& layout) const {
    return {static_cast<std::int32_t>(ToUnits(GapAbove(block)) + ToUnits(ParagraphHeight(layout))),
            layout.lineCount()};
}

// Of so many paragraphs from one on. Most have the format of the one before, which saves asking for it.
std::vector<ViewLayout::Block> ViewLayout::Estimated(QTextBlock block, std::size_t count) const {
    const qreal linesPerLetter = letterWidth_ / std::max(LineWidth(), 1.0);
    std::vector<Block> estimates;
    estimates.reserve(count);
    std::int64_t gap = 0;
    bool continues = false;
    for (int format = -1, before = -1; estimates.size() < count; block = block.next()) {
        const int now = block.blockFormatIndex();
        if (now != format || before != format || estimates.size() < 2 || continues != ContinuesLine(block))
            gap = ToUnits(GapAbove(block));
        before = std::exchange(format, now);
        continues = ContinuesLine(block);
        const qreal lines = std::ceil(std::max(block.length() - 1, 1) * linesPerLetter);
        estimates.push_back({static_cast<std::int32_t>(gap + ToUnits(lines * lineHeight_)), 0});
    }
    return estimates;
}

// --- Making lines

void ViewLayout::MakeLines(const QTextBlock& block, std::size_t number) {
    if (HasLines(block))
        return;
    LayOutParagraph(*block.layout(), block, LineWidth(), Zoom());
    heights_.Set(number, Measured(block, *block.layout()));
}

void ViewLayout::MakeLinesAround(std::size_t number, std::int64_t above, std::int64_t below) {
    const QTextBlock middle = document()->findBlockByNumber(static_cast<int>(number));
    MakeLines(middle, number);
    std::size_t at = number;
    for (QTextBlock block = middle.previous(); above > 0 && block.isValid(); block = block.previous()) {
        MakeLines(block, --at);
        above -= heights_.At(at).height;
    }
    at = number;
    for (QTextBlock block = middle.next(); below > 0 && block.isValid(); block = block.next()) {
        MakeLines(block, ++at);
        below -= heights_.At(at).height;
    }
}

// Does what may change heights, and tells what has changed.
template <typename Work>
void ViewLayout::Correct(Work work) {
    const QSizeF size = documentSize();
    const std::size_t kept = heights_.BlockAt(ToUnits(viewTop_ - document()->documentMargin()));
    const std::int64_t above = heights_.Above(kept);
    work();
    if (const std::int64_t by = heights_.Above(kept) - above; by != 0) {
        viewTop_ = std::max(0, viewTop_ + static_cast<int>(std::lround(ToPixels(by))));
        emit viewMoved(viewTop_);
    }
    if (size != documentSize())
        emit documentSizeChanged(documentSize());
}

int ViewLayout::BringIntoView(int top, int height, bool toEnd) {
    const qreal margin = document()->documentMargin();
    const QSizeF size = documentSize();
    const auto atTop = [&](int y) { return heights_.BlockAt(ToUnits(y - margin)); };
    std::size_t kept = atTop(viewTop_);
    if (const qreal y = margin + ToPixels(heights_.Above(kept)); y < top || y >= top + height)
        kept = atTop(top);
    if (toEnd)
        kept = heights_.Count() - 1;
    const qreal inside = top - margin - ToPixels(heights_.Above(kept));
    viewHeight_ = height;
    MakeLinesAround(kept, ToUnits(toEnd ? 2 * height : height + std::max(-inside, 0.0)), ToUnits(2 * height));
    const qreal end = documentSize().height() - height;
    const qreal most = ToPixels(heights_.At(kept).height);
    const qreal now = toEnd ? end : margin + ToPixels(heights_.Above(kept)) + std::min(inside, most);
    viewTop_ = std::max(0, static_cast<int>(std::lround(now)));
    const int answer = viewTop_;
    if (size != documentSize())
        emit documentSizeChanged(documentSize());
    return answer;
}

int ViewLayout::PlaceOfBorder(const QTextBlock& block) const {
    constexpr int kAhead = 2000; // more than a row has
    const QTextBlock next = block.next();
    const int end = block.position() + block.length() - 1;
    QTextLayout forgotten(block);
    const QTextLayout* layout = block.layout();
    if (!HasLines(block)) {
        LayOutParagraph(forgotten, block, LineWidth(), Zoom());
        layout = &forgotten;
    }
    const int begin = layout->lineAt(layout->lineCount() - 1).textStart();
    const QString text = block.text().mid(begin) + next.text().left(kAhead);
    const int inside = block.length() - 1 - begin;
    QList<QTextLayout::FormatRange> formats;
    for (const auto& [part, from] : {std::pair(block, -begin), {next, inside}})
        for (QTextLayout::FormatRange range : part.textFormats()) {
            range.length += std::min(range.start + from, 0);
            range.start = std::max(range.start + from, 0);
            if (range.length > 0)
                formats.append(range);
        }
    QTextLayout row(text, document()->defaultFont(), paintDevice());
    row.setFormats(formats);
    LayOutPiece(row, text, begin == 0 && !ContinuesLine(block), block, LineWidth(), Zoom());
    const int length = row.lineAt(0).textLength();
    return row.lineCount() > 1 ? end + length - inside : end;
}

QTextBlock ViewLayout::MisplacedBorder() const {
    QTextBlock block = BlockAt(viewTop_);
    for (; block.isValid() && blockBoundingRect(block).top() < viewTop_ + viewHeight_; block = block.next())
        if (const QTextBlock next = block.next();
            ContinuesLine(next) && block.layout()->preeditAreaText().isEmpty() &&
            next.layout()->preeditAreaText().isEmpty() &&
            blockBoundingRect(block).bottom() < viewTop_ + viewHeight_ &&
            PlaceOfBorder(block) != block.position() + block.length() - 1)
            return block;
    return {};
}

std::pair<QTextBlock, int> ViewLayout::FindLine(int line) {
    QTextBlock block = document()->begin();
    Correct([&] {
        for (std::size_t number = 0; number < heights_.Count(); block = block.next(), ++number) {
            if (heights_.At(number).lines == 0) {
                QTextLayout lines(block); // to be forgotten: there may be a million
                LayOutParagraph(lines, block, LineWidth(), Zoom());
                heights_.Set(number, Measured(block, lines));
            }
            const int count = heights_.At(number).lines;
            if (line < count)
                break;
            line -= count;
        }
    });
    return {block, line};
}

void ViewLayout::documentChanged(int from, int /*removed*/, int added) {
    constexpr std::size_t kAtOnce = 64;
    constexpr int kLettersAtOnce = 1 << 16;
    const int end = document()->characterCount() - 1;
    const QTextBlock begin = document()->findBlock(std::min(from, end));
    const QTextBlock last = document()->findBlock(std::min(from + added, end));
    const auto blocks = static_cast<std::size_t>(document()->blockCount());
    const auto first = static_cast<std::size_t>(begin.blockNumber());
    const std::size_t came = static_cast<std::size_t>(last.blockNumber()) - first + 1;
    const std::size_t went = came + heights_.Count() - blocks;
    if (went > heights_.Count() - std::min(first, heights_.Count())) { // the notice tells not all of it
        heights_ = {};
        return documentChanged(0, 0, end);
    }
    if (came == blocks)
        MeasureFont();

    const QSizeF size = documentSize();
    const std::int64_t old = heights_.Above(first + went) - heights_.Above(first);
    std::size_t cleared = 0;
    for (QTextBlock each = begin; cleared < came; each = each.next(), ++cleared)
        each.clearLayout();
    heights_.Replace(first, went, Estimated(begin, came));
    QTextBlock block = begin;
    const bool isLittle = came <= kAtOnce && last.position() - begin.position() < kLettersAtOnce;
    for (std::size_t i = 0; isLittle && i < came; ++i, block = block.next())
        MakeLines(block, first + i);
    if (const QTextBlock next = last.next(); next.isValid()) // the margin above it may be another one
        heights_.Set(first + came,
                     HasLines(next) ? Measured(next, *next.layout()) : Estimated(next, 1).front());

    const qreal top = ToPixels(heights_.Above(first));
    const std::int64_t now = heights_.Above(first + came) - heights_.Above(first);
    constexpr qreal kAll = 1 << 30;
    emit update({0, top, kAll, now == old ? document()->documentMargin() + ToPixels(now) : kAll});
    if (size != documentSize())
        emit documentSizeChanged(documentSize());
}

// --- Where things are

// The block there, or the next one where there is a margin; the last one below all. Its lower edge is a
// block's.
QTextBlock ViewLayout::BlockAt(qreal y) const {
    return document()->findBlockByNumber(
        static_cast<int>(heights_.BlockAt(ToUnits(y - document()->documentMargin()) - 1)));
}

qreal ViewLayout::TopOf(std::size_t number, const QTextBlock& block) const {
    return document()->documentMargin() + ToPixels(heights_.Above(number) + ToUnits(GapAbove(block)));
}

QSizeF ViewLayout::documentSize() const {
    return {std::max(document()->pageSize().width(), qreal(0)),
            ToPixels(heights_.Height()) + 2 * document()->documentMargin()};
}

QRectF ViewLayout::frameBoundingRect(QTextFrame* /*frame*/) const {
    return {QPointF(), documentSize()};
}

// Who asks for a place may be about to show it, and what is around it: that gets its lines first, as they
// would move the place.
QRectF ViewLayout::blockBoundingRect(const QTextBlock& block) const {
    const auto number = static_cast<std::size_t>(block.blockNumber());
    if (!block.isValid() || number >= heights_.Count())
        return {};
    if (!HasLines(block)) {
        auto& self = const_cast<ViewLayout&>(*this);
        self.Correct([&] { self.MakeLinesAround(number, ToUnits(viewHeight_), ToUnits(viewHeight_)); });
        self.MakeLines(block, number); // the notices may have changed the width
    }
    block.layout()->setPosition({document()->documentMargin(), TopOf(number, block)});
    return {block.layout()->position(), block.layout()->boundingRect().size()};
}

int ViewLayout::hitTest(const QPointF& point, Qt::HitTestAccuracy accuracy) const {
    const QTextBlock block = BlockAt(point.y());
    if (!block.isValid()) // in the midst of a change
        return -1;
    const QPointF inside = point - blockBoundingRect(block).topLeft();
    const QTextLayout& layout = *block.layout();
    int number = 0;
    while (number + 1 < layout.lineCount() && layout.lineAt(number + 1).y() <= inside.y())
        ++number;
    const QTextLine line = layout.lineAt(number);
    const auto inSight = [&](int place) { // a part of a line ends where the next one begins
        return place == block.length() - 1 && ContinuesLine(block.next())
                   ? layout.previousCursorPosition(place)
                   : place;
    };
    if (accuracy == Qt::ExactHit && !line.naturalTextRect().contains(inside))
        return -1;
    if (inside.y() < 0)
        return block.position();
    if (inside.y() >= layout.boundingRect().bottom())
        return block.position() + inSight(block.length() - 1);
    const bool onLetter = accuracy == Qt::ExactHit;
    return block.position() +
           inSight(line.xToCursor(inside.x(), onLetter ? QTextLine::CursorOnCharacter
                                                       : QTextLine::CursorBetweenCharacters));
}

void ViewLayout::draw(QPainter* painter, const PaintContext& context) {
    const QRectF clip = context.clip.isValid() ? context.clip : QRectF(QPointF(), documentSize());
    const QVariant caretWidth = property("cursorWidth");
    painter->setPen(context.palette.color(QPalette::Text));
    QTextBlock block = BlockAt(clip.top());
    auto number = static_cast<std::size_t>(block.blockNumber());
    for (; block.isValid() && blockBoundingRect(block).top() <= clip.bottom();
         block = block.next(), ++number) {
        block.layout()->draw(painter, {}, SelectionsIn(block, context), clip);
        if (const int caret = CaretIn(block, context.cursorPosition); caret >= 0)
            block.layout()->drawCursor(painter, {}, caret, caretWidth.isValid() ? caretWidth.toInt() : 1);
    }
}

} // namespace quillshift
