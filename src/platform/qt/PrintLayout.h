#pragma once

#include <QRectF>
#include <QTextLayout>

#include <memory>

class QPainter;
class QPaintDevice;
class QTextBlock;
class QTextDocument;

namespace quillshift {

/// Paints a document page by page in the measures of a printer. Only the paragraph that is being painted is
/// laid out, so that memory doesn't grow with the document; a line of several paragraphs piece by piece, each
/// of which begins with the last row of the one before.
class PrintLayout {
public:
    /// Both outlive it. `grey`: colours become greys of the same lightness.
    PrintLayout(const QTextDocument& document, const QPaintDevice& device, bool grey)
        : document_(document), device_(device), grey_(grey) {}

    /// Paints what fits into the area, in the device's pixels, from a position of the document on; at least
    /// one line. Answers the position of the first character that did not fit, or that of the end.
    int Paint(QPainter& painter, const QRectF& area, int from);

private:
    qreal Scale() const;
    /// The piece of the line that begins with a paragraph in which the row with a letter of the line is
    /// whole.
    const QTextLayout& LaidOut(const QTextBlock& line, int letter, qreal width);
    void LayOutFrom(const QTextBlock& line, int letter, qreal width);
    /// How many of the rows are whole.
    int WholeRows() const { return layout_->lineCount() - (isLast_ ? 0 : 1); }

    const QTextDocument& document_;
    const QPaintDevice& device_;
    bool grey_;
    std::unique_ptr<QTextLayout> layout_; ///< of a piece of the line with this block, for this width ...
    int block_ = -1;
    qreal width_ = 0;
    int begin_ = 0;       ///< ... from this letter of the line on ...
    bool isLast_ = false; ///< ... to the line's end
};

} // namespace quillshift
