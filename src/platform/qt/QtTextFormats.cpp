#include "platform/qt/QtTextFormats.h"

#include "platform/qt/QtText.h"

#include <QTextOption>

#include <algorithm>

namespace quillshift {
namespace {

QColor ToQt(Colour colour) {
    return {colour.Red(), colour.Green(), colour.Blue()};
}

} // namespace

QTextCharFormat ToQt(const CharacterFormat& from) {
    QTextCharFormat to;
    if (!from.font.empty())
        to.setFontFamilies({ToQString(from.font)});
    if (from.halfPoints > 0)
        to.setFontPointSize(from.halfPoints / 2.0);
    if (from.bold)
        to.setFontWeight(QFont::Bold);
    to.setFontItalic(from.italic);
    to.setFontUnderline(from.underline);
    to.setFontStrikeOut(from.strike);
    if (from.script != Script::Normal)
        to.setVerticalAlignment(from.script == Script::Superscript ? QTextCharFormat::AlignSuperScript
                                                                   : QTextCharFormat::AlignSubScript);
    if (from.colour)
        to.setForeground(ToQt(*from.colour));
    if (from.background)
        to.setBackground(ToQt(*from.background));
    return to;
}

QTextBlockFormat ToQt(const ParagraphFormat& from) {
    const auto px = [](Twips length) { return static_cast<qreal>(length.value) / kTwipsPerPixel; };
    QTextBlockFormat to;
    switch (from.alignment) {
    case Alignment::Left:
        to.setAlignment(Qt::AlignLeft);
        break;
    case Alignment::Right:
        to.setAlignment(Qt::AlignRight);
        break;
    case Alignment::Centre:
        to.setAlignment(Qt::AlignHCenter);
        break;
    case Alignment::Justified:
        to.setAlignment(Qt::AlignJustify);
        break;
    }
    to.setLeftMargin(px(from.leftIndent));
    to.setRightMargin(px(from.rightIndent));
    to.setTextIndent(px(from.firstLineIndent));
    to.setTopMargin(px(from.spaceBefore));
    to.setBottomMargin(px(from.spaceAfter));
    // The widget counts from where the first line begins. That is left of the others under a list's number,
    // and their beginning is a stop then.
    std::vector<Twips> stops = from.tabs;
    stops.push_back(from.leftIndent);
    std::sort(stops.begin(), stops.end());
    QList<QTextOption::Tab> tabs;
    for (const Twips stop : stops)
        if (const qreal place = px(stop - from.leftIndent - from.firstLineIndent); place > 0)
            tabs.append({place, QTextOption::LeftTab});
    if (!tabs.isEmpty())
        to.setTabPositions(tabs);
    return to;
}

} // namespace quillshift
