#include "platform/qt/DesktopWishes.h"

namespace quillshift {
namespace {

const QString kAppearance = QStringLiteral("org.freedesktop.appearance");
const QString kGnome = QStringLiteral("org.gnome.desktop.interface");
const QString kGnomeHelp = QStringLiteral("org.gnome.desktop.a11y.interface");
const QString kPlasma = QStringLiteral("org.kde.kdeglobals.KDE");
const QString kPlasmaFonts = QStringLiteral("org.kde.kdeglobals.General");

// What is out of all proportion is none.
double InBounds(double value, double least, double most, double otherwise) {
    return value >= least && value <= most ? value : otherwise;
}

} // namespace

QStringList WishGroups() {
    return {kAppearance, kGnome, kGnomeHelp, kPlasma, kPlasmaFonts};
}

DesktopWishes WishesIn(const PortalSettings& settings) {
    const auto value = [&](const QString& group, const char* name) {
        return settings.value(group).value(QLatin1String(name));
    };
    const auto isOn = [&](const QString& group, const char* name) { return value(group, name).toInt() == 1; };
    const QString theme = value(kGnome, "gtk-theme").toString();
    const QVariant animations = value(kGnome, "enable-animations");
    const QVariant duration = value(kPlasma, "AnimationDurationFactor");
    const double points = value(kPlasmaFonts, "font").toString().section(u',', 1, 1).toDouble();
    const double factor = value(kGnome, "text-scaling-factor").toDouble();
    return {.highContrast = isOn(kAppearance, "contrast") || isOn(kGnomeHelp, "high-contrast") ||
                            theme.startsWith(QLatin1String("HighContrast")),
            .dark = isOn(kAppearance, "color-scheme") || theme == QLatin1String("HighContrastInverse"),
            .calm = isOn(kAppearance, "reduced-motion") || (animations.isValid() && !animations.toBool()) ||
                    duration.toString() == QLatin1String("0"),
            .points = InBounds(points, 4, 100, 0),
            .textFactor = InBounds(factor, 0.5, 4, 1)};
}

} // namespace quillshift
