#include "platform/qt/QtFolderDialog.h"

#include "platform/qt/DialogOwner.h"
#include "platform/qt/QtText.h"

#include <QDir>
#include <QFileDialog>

namespace quillshift {

bool QtFolderDialog::ShowFolder(std::u16string_view start) {
    QFileDialog::Options options;
    options.setFlag(QFileDialog::ShowDirsOnly, (flags & kListFiles) == 0);
    const QString chosen = QFileDialog::getExistingDirectory(
        DialogOwner(), ToQString(DialogTitle), start.empty() ? QDir::homePath() : ToQString(start), options);
    if (chosen.isEmpty())
        return false;
    InitDir = FromQString(chosen);
    return true;
}

} // namespace quillshift
