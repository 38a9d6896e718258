#include "platform/qt/cFontCache.h"

#include "platform/qt/Appearance.h"
#include "platform/qt/QtText.h"

#include <QGuiApplication>
#include <QScreen>

#include <algorithm>
#include <cmath>

namespace quillshift {
namespace {

constexpr int kPointsPerInch = 72;

// Of a font of the design, which is larger where the user wants larger text.
double DotsPerInch() {
    const QScreen* screen = QGuiApplication::primaryScreen();
    return TextScale() * (screen != nullptr ? screen->logicalDotsPerInchY() : 96);
}

QFont MakeFont(const FontSpec& spec, double dpi) {
    QFont font(ToQString(spec.name));
    font.setPixelSize(std::max(1, static_cast<int>(std::lround(spec.points * dpi / kPointsPerInch))));
    font.setWeight(spec.bold ? QFont::Bold : QFont::Normal);
    font.setItalic(spec.italic);
    font.setUnderline(spec.underline);
    font.setStrikeOut(spec.strikeOut);
    return font;
}

} // namespace

const cFontCache::Record& cFontCache::Find(const FontSpec& spec) {
    const double dpi = DotsPerInch();
    const auto found = std::find_if(records_.begin(), records_.end(), [&](const Record& record) {
        return record.spec == spec && record.dpi == dpi;
    });
    if (found != records_.end())
        return *found;
    const QFont font = MakeFont(spec, dpi);
    return records_.emplace_back(Record{spec, dpi, font, QFontMetrics(font)});
}

} // namespace quillshift
