#pragma once

#include <QAbstractTextDocumentLayout>

#include <string_view>
#include <vector>

namespace quillshift {

/// In 16-bit units: a word that is longer counts as long.
inline constexpr std::size_t kLongWord = 4096;

/// Whether a text holds a long word, which Qt's own layout is too slow for: for each line that a word fills,
/// it measures the word to its end.
bool HasLongWord(std::u16string_view text);

/// Breaks a paragraph into lines for a room of that width, from y = 0 on, in time in proportion to it. Its
/// measures, which are logical pixels, are multiplied by `scale`; the layout brings its own font.
void LayOutParagraph(QTextLayout& layout, const QTextBlock& block, qreal room, qreal scale);

/// A layout of paragraphs that takes time in proportion to the text, however long its words are. Breaks lines
/// where Qt's own layout does; knows no tables, lists or pictures.
class LongWordLayout final : public QAbstractTextDocumentLayout {
    Q_OBJECT

public:
    explicit LongWordLayout(QTextDocument* document) : QAbstractTextDocumentLayout(document) {}

    void draw(QPainter* painter, const PaintContext& context) override;
    int hitTest(const QPointF& point, Qt::HitTestAccuracy accuracy) const override;
    int pageCount() const override { return 1; }
    QSizeF documentSize() const override;
    QRectF frameBoundingRect(QTextFrame* frame) const override;
    QRectF blockBoundingRect(const QTextBlock& block) const override;

protected:
    void documentChanged(int from, int removed, int added) override;

private:
    qreal LineWidth() const;
    void LayOut(const QTextBlock& block) const;
    void Stack();
    QTextBlock BlockAt(qreal y) const;

    std::vector<qreal> tops_; // of the blocks
    qreal height_ = 0;
};

} // namespace quillshift
