#include "platform/qt/Appearance.h"

#include "platform/FileSystem.h"
#include "platform/qt/DesktopWatch.h"
#include "platform/qt/Looks.h"
#include "platform/qt/QtText.h"
#include "platform/qt/ScreenScale.h"

#include <QApplication>
#include <QBuffer>
#include <QFontInfo>
#include <QImageReader>
#include <QLibraryInfo>
#include <QLocale>
#include <QPalette>
#include <QTranslator>

#include <algorithm>
#include <cmath>
#include <cstdlib>

namespace quillshift {
namespace {

// The toolkit's own dialogs speak Russian, whatever the desktop's language is.
void SpeakRussian(QApplication& application) {
    QLocale::setDefault(QLocale(QLocale::Russian));
    auto* translator = new QTranslator(&application);
    if (translator->load(QLocale(QLocale::Russian), QStringLiteral("qtbase"), QStringLiteral("_"),
                         QLibraryInfo::path(QLibraryInfo::TranslationsPath)))
        QCoreApplication::installTranslator(translator);
}

constexpr int kMiddle = 128; // of lightness

// The stored font names stay as they are; what is shown is a near relative.
void ShowFontRelatives() {
    const QStringList relatives{QStringLiteral("Liberation Sans"), QStringLiteral("DejaVu Sans")};
    for (const auto* name : {"MS Sans Serif", "Tahoma"})
        QFont::insertSubstitutions(QLatin1String(name), relatives);
}

} // namespace

// The file dialog writes dates and sizes as the system's locale has them, which is read from the environment
// at its first use. Programs that are started from here keep the user's.
void WriteDatesInRussian() {
    const bool wasSet = qEnvironmentVariableIsSet("LC_ALL");
    const QByteArray before = qgetenv("LC_ALL");
    qputenv("LC_ALL", "ru_RU.UTF-8");
    QLocale::system().name();
    if (wasSet)
        qputenv("LC_ALL", before);
    else
        qunsetenv("LC_ALL");
}

QIcon ReadIcon(FileSystem& files, const QString& path) {
    QByteArray bytes = QByteArray::fromStdString(files.Read(FromQString(path)).bytes);
    QBuffer device(&bytes);
    QImageReader reader(&device, "ico");
    QIcon icon;
    for (int number = 0; reader.jumpToImage(number); ++number)
        icon.addPixmap(QPixmap::fromImage(reader.read()));
    return icon;
}

void DressUp(QApplication& application) {
    SpeakRussian(application);
    ShowFontRelatives();
    auto* const looks = new Looks(&application);
    QObject::connect(new DesktopWatch(&application), &DesktopWatch::Changed, looks, &Looks::Follow);
    FollowScaleOfScreens(application);
}

// The toolkit's grey for what is disabled falls below 2:1; a middle one has over 3:1 on light and dark alike.
// Its blue of links is for light ground. The shades that edges are drawn in, it makes of the ground: black
// has none.
QPalette Readable(QPalette palette) {
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        palette.setColor(QPalette::Disabled, role, QColor(128, 128, 128));
    const int ground = palette.color(QPalette::Window).lightness();
    if (ground < kMiddle && palette.color(QPalette::Link).lightness() <= kMiddle)
        palette.setColor(QPalette::Link, QColor(110, 170, 255));
    if (IsHighContrast(palette))
        for (const auto role : {QPalette::Light, QPalette::Mid, QPalette::Dark, QPalette::Shadow})
            palette.setColor(role, palette.color(QPalette::Active, QPalette::WindowText));
    return palette;
}

double TextScale() {
    constexpr double kUsualPoints = 9;
    return std::max(1.0, QFontInfo(QApplication::font()).pointSizeF() / kUsualPoints);
}

int Larger(int px) {
    return static_cast<int>(std::lround(px * TextScale()));
}

QFont DialogFont() {
    constexpr double kDesignPoints = 8;
    QFont font(QStringLiteral("MS Sans Serif"));
    font.setPointSizeF(kDesignPoints * TextScale());
    return font;
}

// Black and white, or as good as that: no other desktop has both its windows and its texts so.
bool IsHighContrast(const QPalette& palette) {
    constexpr int kExtremes = 245;
    const auto apart = [&](QPalette::ColorRole text, QPalette::ColorRole ground) {
        return std::abs(palette.color(QPalette::Active, text).lightness() -
                        palette.color(QPalette::Active, ground).lightness()) >= kExtremes;
    };
    return apart(QPalette::WindowText, QPalette::Window) && apart(QPalette::Text, QPalette::Base);
}

} // namespace quillshift
