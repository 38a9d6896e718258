#include "platform/qt/Appearance.h"

#include <QApplication>
#include <QLibraryInfo>
#include <QLocale>
#include <QPalette>
#include <QTranslator>

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

// The stored font names stay as they are; what is shown is a near relative.
void ShowFontRelatives() {
    const QStringList relatives{QStringLiteral("Liberation Sans"), QStringLiteral("DejaVu Sans")};
    for (const auto* name : {"MS Sans Serif", "Tahoma"})
        QFont::insertSubstitutions(QLatin1String(name), relatives);
}

// The toolkit's grey for what is disabled falls below 2:1; a middle one has over 3:1 on light and dark alike.
void KeepGreyedTextReadable() {
    QPalette palette;
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        palette.setColor(QPalette::Disabled, role, QColor(128, 128, 128));
    QApplication::setPalette(palette);
}

} // namespace

void DressUp(QApplication& application) {
    SpeakRussian(application);
    ShowFontRelatives();
    KeepGreyedTextReadable();
}

} // namespace quillshift
