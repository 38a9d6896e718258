#pragma once

#include <QtGlobal>

class QString;
class QTextBlock;
class QTextLayout;
class QTextLine;

namespace quillshift {

/// Breaks a paragraph into lines for a room of that width, from y = 0 on, in time in proportion to it however
/// long its words are; the lines are those of the toolkit's own layout. Its measures, which are logical
/// pixels, are multiplied by `scale`; the layout brings its own font.
void LayOutParagraph(QTextLayout& layout, const QTextBlock& block, qreal room, qreal scale);
/// Likewise a piece of the line to which the paragraph belongs; `isFirst`: the line begins with it.
void LayOutPiece(QTextLayout& layout, const QString& text, bool isFirst, const QTextBlock& block, qreal room,
                 qreal scale);

/// From the top of a line to that of the next one.
qreal LineAdvance(const QTextLine& line);
/// Of a paragraph that has its lines.
qreal ParagraphHeight(const QTextLayout& layout);

} // namespace quillshift
