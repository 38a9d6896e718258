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
/// laid out, so that memory doesn't grow with the document.
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
    const QTextLayout& LaidOut(const QTextBlock& block, qreal width);

    const QTextDocument& document_;
    const QPaintDevice& device_;
    bool grey_;
    std::unique_ptr<QTextLayout> layout_; ///< of the block of this number, for this width
    int block_ = -1;
    qreal width_ = 0;
};

} // namespace quillshift
