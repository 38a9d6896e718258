#pragma once

#include <QMap>
#include <QString>
#include <QStringList>
#include <QVariant>

namespace quillshift {

/// What the desktop asks of all programs' looks, besides what the toolkit knows of its palette and font.
struct DesktopWishes {
    bool highContrast = false;
    bool dark = false;
    bool calm = false;     ///< nothing moves by itself
    double points = 0;     ///< of the desktop's font, where it tells them; 0 elsewhere
    double textFactor = 1; ///< of the usual size; where there is X, its density holds it

    bool operator==(const DesktopWishes&) const = default;
};

/// Settings of the desktop as its portal tells them: by group, then by name.
using PortalSettings = QMap<QString, QVariantMap>;

/// The groups in which desktops keep their wishes.
QStringList WishGroups();

/// The wishes in them. What is missing or of an odd type asks for nothing.
DesktopWishes WishesIn(const PortalSettings& settings);

} // namespace quillshift
