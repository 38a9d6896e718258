#pragma once

#include <QFont>
#include <QIcon>
#include <QPalette>

class QApplication;

namespace quillshift {

class FileSystem;

/// How the program's windows look and speak, whatever the desktop is set to: Russian texts of the toolkit,
/// near relatives of the fonts that are asked for, greyed text that can be read; in black and white, without
/// motion, with larger text and at another scale where the desktop asks for it, also later. To be called
/// once.
void DressUp(QApplication& application);

/// Dates and sizes in the file dialog, too. To be called before the application is made.
void WriteDatesInRussian();

/// An icon of the program's own files, in all its sizes. Empty where it can't be read: what stands there may
/// be anything.
QIcon ReadIcon(FileSystem& files, const QString& path);

/// A desktop's colours with greyed text and links that can be read, and edges that can be seen.
QPalette Readable(QPalette palette);

/// Whether these are the colours of a desktop whose users need black and white.
bool IsHighContrast(const QPalette& palette);

/// How much larger than usual the user wants text to be; 1 or more.
double TextScale();
/// A length that holds text, as much larger.
int Larger(int px);

/// The one font of dialogs and boxes.
QFont DialogFont();

} // namespace quillshift
