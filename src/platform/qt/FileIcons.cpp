#include "platform/qt/FileIcons.h"

#include "platform/qt/QtText.h"

#include <QMimeDatabase>

namespace quillshift {

QIcon IconOfFile(std::u16string_view path, const QIcon& otherwise) {
    const QMimeType kind = QMimeDatabase().mimeTypeForFile(ToQString(path), QMimeDatabase::MatchExtension);
    return QIcon::fromTheme(kind.iconName(), QIcon::fromTheme(kind.genericIconName(), otherwise));
}

} // namespace quillshift
