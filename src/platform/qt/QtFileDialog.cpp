#include "platform/qt/QtFileDialog.h"

#include "platform/qt/DialogOwner.h"
#include "platform/qt/QtText.h"

#include <QDir>
#include <QFileDialog>
#include <QStandardPaths>

namespace quillshift {
namespace {

// "description|pattern|description|pattern|" in Qt's words: one entry per pair.
QStringList NameFilters(const QString& filter) {
    const QStringList parts = filter.split(u'|');
    QStringList filters;
    for (qsizetype i = 0; i + 1 < parts.size(); i += 2) {
        const QString& description = parts[i];
        const QString pattern = u'(' + parts[i + 1] + u')';
        filters << (description.endsWith(pattern) ? description : description + u' ' + pattern);
    }
    return filters;
}

// The extension that a name without one is given under a filter: none under "*.*".
QString SuffixOf(const QString& nameFilter) {
    const qsizetype at = nameFilter.lastIndexOf(QLatin1String("(*."));
    const QString suffix = at < 0 ? QString() : nameFilter.mid(at + 3).chopped(1);
    return suffix == u"*" ? QString() : suffix;
}

QString FirstFolder(const FileDialog& properties) {
    QString wanted = ToQString(properties.InitDir);
    if (!wanted.isEmpty() && QDir(wanted).exists())
        return wanted;
    const QString file = ToQString(properties.FileName);
    if (!file.isEmpty() && QFileInfo(file).dir().exists())
        return QFileInfo(file).path();
    QString documents = QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
    return QDir(documents).exists() ? documents : QDir::homePath();
}

bool RunFileDialog(FileDialog& properties, QFileDialog::AcceptMode mode) {
    QFileDialog dialog(DialogOwner(), ToQString(properties.DialogTitle), FirstFolder(properties));
    const bool opens = mode == QFileDialog::AcceptOpen;
    dialog.setAcceptMode(mode);
    dialog.setFileMode(opens ? QFileDialog::ExistingFile : QFileDialog::AnyFile);
    const QStringList filters = NameFilters(ToQString(properties.Filter));
    dialog.setNameFilters(filters);
    if (!opens) {
        const auto follow = [&dialog](const QString& filter) { dialog.setDefaultSuffix(SuffixOf(filter)); };
        QObject::connect(&dialog, &QFileDialog::filterSelected, &dialog, follow);
        follow(filters.value(0));
        dialog.selectFile(QFileInfo(ToQString(properties.FileName)).fileName());
    }
    if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty())
        return false;
    const QFileInfo chosen(dialog.selectedFiles().constFirst());
    properties.FileName = FromQString(chosen.absoluteFilePath());
    properties.FileTitle = FromQString(chosen.fileName());
    return true;
}

} // namespace

bool QtFileDialog::ShowOpen() {
    return RunFileDialog(*this, QFileDialog::AcceptOpen);
}

bool QtFileDialog::ShowSave() {
    return RunFileDialog(*this, QFileDialog::AcceptSave);
}

} // namespace quillshift
