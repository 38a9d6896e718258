#include "platform/qt/QtFolderDialog.h"

#include "platform/qt/DialogOwner.h"
#include "platform/qt/FileKinds.h"
#include "platform/qt/QtText.h"

#include <QDir>
#include <QFileDialog>

namespace quillshift {

bool QtFolderDialog::ShowFolder(std::u16string_view start) {
    FileKinds kinds; // a thread of the dialog asks it to the end
    QFileDialog dialog(DialogOwner(), ToQString(DialogTitle),
                       start.empty() ? QDir::homePath() : ToQString(start));
    dialog.setIconProvider(&kinds);
    NameFields(dialog);
    dialog.setFileMode(QFileDialog::Directory);
    dialog.setOption(QFileDialog::ShowDirsOnly, (flags & kListFiles) == 0);
    if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty())
        return false;
    InitDir = FromQString(dialog.selectedFiles().constFirst());
    return true;
}

} // namespace quillshift
