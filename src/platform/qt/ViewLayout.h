#pragma once

#include "base/BlockHeights.h"

#include <QAbstractTextDocumentLayout>
#include <QPaintDevice>
#include <QTextBlock>

#include <utility>
#include <vector>

namespace quillshift {

/// A layout of paragraphs that makes the lines of what is seen or asked for alone, so that a key costs as
/// much in a book as in a letter. The lines are those of the toolkit's own layout; it knows no tables, lists
/// or pictures.
///
/// A paragraph without lines has a height by estimate. When it gets its lines what is below moves: what the
/// view shows stays where it is seen, and gets other coordinates, which `viewMoved` tells.
class ViewLayout final : public QAbstractTextDocumentLayout {
    Q_OBJECT

public:
    /// `screen` tells the density.
    ViewLayout(QTextDocument* document, const QPaintDevice& screen);

    /// How many times as large as they are all measures are shown.
    qreal Zoom() const { return device_.zoom; }
    void SetZoom(qreal zoom);

    /// Makes the lines of what is in sight and of as much around it. `top` is where the view begins, `height`
    /// its height, `toEnd` whether the view is to show the end. Answers where the view has to begin for that:
    /// what was in sight and still is stays where it is.
    int BringIntoView(int top, int height, bool toEnd);
    /// Where in the document a paragraph should end whose line goes on in the next one, so that its last row
    /// is as long as the line has it.
    int PlaceOfBorder(const QTextBlock& block) const;
    /// The first in sight that ends elsewhere; an invalid one if there is none.
    QTextBlock MisplacedBorder() const;
    /// The paragraph with that line of the text, the first being 0, and the number of the line in it. Behind
    /// the last line: none, and how many lines are missing.
    std::pair<QTextBlock, int> FindLine(int line);

    void draw(QPainter* painter, const PaintContext& context) override;
    int hitTest(const QPointF& point, Qt::HitTestAccuracy accuracy) const override;
    int pageCount() const override { return 1; }
    QSizeF documentSize() const override;
    QRectF frameBoundingRect(QTextFrame* frame) const override;
    QRectF blockBoundingRect(const QTextBlock& block) const override;

signals:
    void viewMoved(int top);

protected:
    void documentChanged(int from, int removed, int added) override;

private:
    using Block = BlockHeights::Block;

    /// The screen, that many times as dense: the toolkit gets the sizes of letters from it.
    struct ZoomedDevice final : QPaintDevice {
        explicit ZoomedDevice(const QPaintDevice& device) : screen(device) {}
        QPaintEngine* paintEngine() const override { return nullptr; }
        int metric(PaintDeviceMetric metric) const override;

        const QPaintDevice& screen;
        qreal zoom = 1;
    };

    qreal GapAbove(const QTextBlock& block) const;
    qreal LineWidth() const;
    void MeasureFont();
    bool HasLines(const QTextBlock& block) const { return block.layout()->lineCount() > 0; }
    Block Measured(const QTextBlock& block, const QTextLayout& layout) const;
    std::vector<Block> Estimated(QTextBlock block, std::size_t count) const;
    QTextBlock BlockAt(qreal y) const;
    qreal TopOf(std::size_t number, const QTextBlock& block) const;

    void MakeLines(const QTextBlock& block, std::size_t number);
    void MakeLinesAround(std::size_t number, std::int64_t above, std::int64_t below);
    template <typename Work>
    void Correct(Work work);

    ZoomedDevice device_;
    BlockHeights heights_; ///< each with the margin above it
    qreal lineHeight_ = 1; ///< of the default font
    qreal letterWidth_ = 1;
    int viewTop_ = 0;
    int viewHeight_ = 0;
};

} // namespace quillshift
