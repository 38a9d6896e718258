#include "platform/qt/Looks.h"

#include "platform/qt/Appearance.h"

#include <QApplication>
#include <QFontInfo>
#include <QPalette>
#include <QProxyStyle>
#include <QStyle>
#include <QStyleFactory>
#include <QStyleOptionButton>

namespace quillshift {
namespace {

// Edges are lines in the colour of the text, and nothing is told by shades.
QPalette HighContrastPalette(bool dark) {
    const QColor ground = dark ? Qt::black : Qt::white;
    const QColor text = dark ? Qt::white : Qt::black;
    QPalette palette(text, ground, text, text, text, text, text, ground, ground);
    palette.setColor(QPalette::ButtonText, text);
    palette.setColor(QPalette::Midlight, ground);
    palette.setColor(QPalette::Shadow, text);
    palette.setColor(QPalette::Highlight, dark ? QColor(90, 220, 255) : QColor(40, 0, 120));
    palette.setColor(QPalette::HighlightedText, ground);
    palette.setColor(QPalette::Link, dark ? QColor(255, 255, 0) : QColor(0, 0, 160));
    palette.setColor(QPalette::AlternateBase, ground);
    palette.setColor(QPalette::ToolTipBase, ground);
    palette.setColor(QPalette::ToolTipText, text);
    const QColor grey = dark ? QColor(170, 170, 170) : QColor(90, 90, 90);
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        palette.setColor(QPalette::Disabled, role, grey);
    palette.setColor(QPalette::PlaceholderText, grey);
    return palette;
}

bool IsDark(const QPalette& palette) {
    return palette.color(QPalette::Window).lightness() < 128;
}

// A style in which nothing moves by itself where that is wished, and greyed text has no double, which in
// black and white would be as strong as the text. Boxes to tick have edges that are seen in the dark, too.
class PlainStyle final : public QProxyStyle {
public:
    PlainStyle(const QString& style, bool still) : QProxyStyle(style), still_(still) {}

    int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                  QStyleHintReturn* returned) const override {
        const bool isOff = hint == SH_EtchDisabledText || (still_ && hint == SH_Widget_Animation_Duration);
        return isOff ? 0 : QProxyStyle::styleHint(hint, option, widget, returned);
    }
    // Their edges are a shade of the window's ground, darker than that.
    void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                       const QWidget* widget) const override {
        const auto* const box = qstyleoption_cast<const QStyleOptionButton*>(option);
        const bool isBox = element == PE_IndicatorCheckBox || element == PE_IndicatorRadioButton;
        if (!isBox || box == nullptr || !IsDark(option->palette))
            return QProxyStyle::drawPrimitive(element, option, painter, widget);
        QStyleOptionButton edged = *box;
        edged.palette.setColor(QPalette::Window, QColor(205, 205, 205));
        QProxyStyle::drawPrimitive(element, &edged, painter, widget);
    }

private:
    bool still_;
};

constexpr Qt::UIEffect kEffects[] = {Qt::UI_AnimateMenu,    Qt::UI_FadeMenu,    Qt::UI_AnimateCombo,
                                     Qt::UI_AnimateTooltip, Qt::UI_FadeTooltip, Qt::UI_AnimateToolBox};

} // namespace

Looks::Looks(QObject* parent)
    : QObject(parent), style_(QApplication::style()->name()), font_(QApplication::font()) {
    Follow({});
}

// In black and white the style is the one that draws edges in the palette's colours: the usual one makes them
// of shades of the ground, of which black has none.
void Looks::Follow(const DesktopWishes& wishes) {
    QApplication::setPalette({});
    const QPalette desktop = QApplication::palette();
    const bool told = IsHighContrast(desktop);
    const bool contrast = told || wishes.highContrast;
    const bool dark = wishes.dark || IsDark(desktop);
    Wear(contrast && style_ == QLatin1String("fusion") ? QStringLiteral("windows") : style_, wishes.calm,
         dark);
    QApplication::setPalette(contrast && !told ? HighContrastPalette(dark) : Readable({}));
    LetEffectsRest(wishes.calm);
    const bool hasX = QGuiApplication::platformName() == QLatin1String("xcb");
    Write(wishes.points, hasX ? 1 : wishes.textFactor);
}

// A desktop that says nothing of it keeps what the toolkit has found.
void Looks::Write(double points, double factor) {
    if (std::exchange(text_, {points, factor}) == std::pair(points, factor))
        return;
    QFont font = font_;
    font.setPointSizeF((points > 0 ? points : QFontInfo(font_).pointSizeF()) * factor);
    QApplication::setFont(font);
}

void Looks::Wear(const QString& style, bool still, bool dark) {
    if (std::exchange(worn_, {style, still, dark}) == std::tuple(style, still, dark))
        return;
    const bool plain = still || dark || style != style_;
    QApplication::setStyle(plain ? new PlainStyle(style, still) : QStyleFactory::create(style));
}

void Looks::LetEffectsRest(bool rest) {
    for (const Qt::UIEffect effect : kEffects)
        if (rest && QApplication::isEffectEnabled(effect))
            resting_.append(effect);
    for (const Qt::UIEffect effect : std::as_const(resting_))
        QApplication::setEffectEnabled(effect, !rest);
    if (!rest)
        resting_.clear();
}

} // namespace quillshift
