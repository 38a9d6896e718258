#pragma once

#include <QFont>
#include <QPalette>

class QApplication;

namespace quillshift {

/// How the program's windows look and speak, whatever the desktop is set to: Russian texts of the toolkit,
/// near relatives of the fonts that are asked for, greyed text that can be read. To be called once.
void DressUp(QApplication& application);

/// A desktop's colours with greyed text and links that can be read.
QPalette Readable(QPalette palette);

/// The one font of dialogs and boxes.
inline QFont DialogFont() {
    return {QStringLiteral("MS Sans Serif"), 8};
}

} // namespace quillshift
