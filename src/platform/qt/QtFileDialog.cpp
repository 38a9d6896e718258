#include "platform/qt/QtFileDialog.h"

#include "platform/qt/DialogOwner.h"
#include "platform/qt/FileKinds.h"
#include "platform/qt/QtText.h"

#include <QDir>
#include <QFileDialog>
#include <QHeaderView>
#include <QLineEdit>
#include <QScreen>
#include <QStandardPaths>
#include <QStyledItemDelegate>
#include <QTreeView>

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

// The extension of a pattern such as "*.txt"; none for "*.*".
QString SuffixOf(const QString& pattern) {
    const QString suffix = pattern.mid(pattern.lastIndexOf(u'.') + 1);
    return suffix == u"*" ? QString() : suffix;
}

// The sizes of files, whose units the toolkit leaves in English.
class RussianSizes final : public QStyledItemDelegate {
public:
    using QStyledItemDelegate::QStyledItemDelegate;

private:
    void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override {
        static constexpr std::pair<const char16_t*, const char16_t*> kUnits[] = {
            {u"байты", u"байт"}, {u"KiB", u"КБ"}, {u"MiB", u"МБ"}, {u"GiB", u"ГБ"}, {u"TiB", u"ТБ"}};
        QStyledItemDelegate::initStyleOption(option, index);
        for (const auto& [toolkits, ours] : kUnits)
            option->text.replace(QStringView(toolkits).toString(), QStringView(ours).toString());
    }
};

// Completes a name without an extension, when saving as when opening. Without a meta-object of its own the
// desktop's dialog may still take its place.
class CompletingDialog final : public QFileDialog {
public:
    CompletingDialog(FileDialog& properties, AcceptMode mode);

private:
    void FollowFilter(const QString& filter);
    void ShowLastName(const QString& path);
    void ShowDetailsWhole();
    void accept() override;

    QStringList extensions_; // one for each of the filters
    QString suffix_;         // that of the chosen one
};

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

CompletingDialog::CompletingDialog(FileDialog& properties, AcceptMode mode)
    : QFileDialog(DialogOwner(), ToQString(properties.DialogTitle), FirstFolder(properties)),
      extensions_(ToQString(properties.DefaultExt).split(u'|')) {
    setAcceptMode(mode);
    setFileMode(mode == AcceptOpen ? ExistingFile : AnyFile);
    const QStringList filters = NameFilters(ToQString(properties.Filter));
    setNameFilters(filters);
    connect(this, &QFileDialog::filterSelected, this, [this](const QString& name) { FollowFilter(name); });
    FollowFilter(filters.value(0));
    ShowLastName(ToQString(properties.FileName));
    ShowDetailsWhole();
    NameFields(*this);
}

void CompletingDialog::FollowFilter(const QString& filter) {
    const qsizetype number = nameFilters().indexOf(filter);
    suffix_ = SuffixOf(extensions_.value(number, extensions_.value(0)));
    if (acceptMode() == AcceptSave)
        setDefaultSuffix(suffix_); // and the toolkit completes the name
}

// A file of another folder is opened from there, but saved here.
void CompletingDialog::ShowLastName(const QString& path) {
    const QFileInfo last(path);
    if (acceptMode() == AcceptSave || last.dir() == directory())
        selectFile(last.fileName());
    else if (auto* const name = findChild<QLineEdit*>(QStringLiteral("fileNameEdit")))
        name->setText(path);
}

// The names give way to sizes, kinds and dates, which are no use in part.
void CompletingDialog::ShowDetailsWhole() {
    auto* const details = findChild<QTreeView*>(QStringLiteral("treeView"));
    if (details == nullptr)
        return;
    details->setItemDelegateForColumn(1, new RussianSizes(details));
    details->header()->setStretchLastSection(false);
    details->header()->setSectionResizeMode(QHeaderView::ResizeToContents);
    details->header()->setSectionResizeMode(0, QHeaderView::Stretch);
    constexpr double kBesideFrame = 0.93;
    resize(sizeHint()
               .expandedTo({fontMetrics().averageCharWidth() * 110, 0})
               .boundedTo(screen()->availableSize() * kBesideFrame));
}

// A file that is there by the name as it was typed is opened.
void CompletingDialog::accept() {
    auto* const name = findChild<QLineEdit*>(QStringLiteral("fileNameEdit"));
    const QFileInfo typed(selectedFiles().value(0));
    if (acceptMode() == AcceptOpen && name != nullptr && !name->text().isEmpty() && !typed.exists() &&
        !typed.fileName().contains(u'.') && !suffix_.isEmpty())
        name->setText(name->text() + u'.' + suffix_);
    QFileDialog::accept();
}

bool RunFileDialog(FileDialog& properties, QFileDialog::AcceptMode mode) {
    FileKinds kinds; // a thread of the dialog asks it to the end
    CompletingDialog dialog(properties, mode);
    dialog.setIconProvider(&kinds);
    const bool accepted = dialog.exec() == QDialog::Accepted;
    // A window manager may still be giving the keyboard back from the dialog's own question, to the dialog.
    if (QWidget* const owner = dialog.parentWidget())
        owner->activateWindow();
    if (!accepted || dialog.selectedFiles().isEmpty())
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
