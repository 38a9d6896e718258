#pragma once

#include <QFont>
#include <QIcon>
#include <QPalette>

class QApplication;

namespace quillshift {

class FileSystem;

/// How the program's windows look and speak, whatever the desktop is set to: Russian texts of the toolkit,
/// near relatives of the fonts that are asked for, greyed text that can be read. To be called once.
void DressUp(QApplication& application);

/// Dates and sizes in the file dialog, too. To be called before the application is made.
void WriteDatesInRussian();

/// An icon of the program's own files, in all its sizes. Empty where it can't be read: what stands there may
/// be anything.
QIcon ReadIcon(FileSystem& files, const QString& path);

/// A desktop's colours with greyed text and links that can be read.
QPalette Readable(QPalette palette);

/// The one font of dialogs and boxes.
inline QFont DialogFont() {
    return {QStringLiteral("MS Sans Serif"), 8};
}

} // namespace quillshift
