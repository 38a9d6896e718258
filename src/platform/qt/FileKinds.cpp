#include "platform/qt/FileKinds.h"

#include <QMimeDatabase>

namespace quillshift {

QIcon FileKinds::icon(const QFileInfo& file) const {
    return file.isDir() ? QFileIconProvider::icon(file) : icon(File);
}

QString FileKinds::type(const QFileInfo& file) const {
    if (file.isDir())
        return file.isRoot() ? QStringLiteral("Диск") : QStringLiteral("Папка");
    const QMimeType kind = QMimeDatabase().mimeTypeForFile(file, QMimeDatabase::MatchExtension);
    return kind.isDefault() ? QStringLiteral("Файл") : kind.comment();
}

} // namespace quillshift
