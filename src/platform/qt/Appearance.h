#pragma once

#include <QFont>

class QApplication;

namespace quillshift {

/// How the program's windows look and speak, whatever the desktop is set to: Russian texts of the toolkit,
/// near relatives of the fonts that are asked for, greyed text that can be read. To be called once.
void DressUp(QApplication& application);

/// The one font of dialogs and boxes.
inline QFont DialogFont() {
    return {QStringLiteral("MS Sans Serif"), 8};
}

} // namespace quillshift
