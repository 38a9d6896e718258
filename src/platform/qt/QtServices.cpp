#include "platform/qt/QtServices.h"

#include "platform/qt/QtText.h"

#include <QApplication>
#include <QDesktopServices>
#include <QDir>
#include <QFileDialog>
#include <QMessageBox>
#include <QMimeData>
#include <QProcess>
#include <QPushButton>
#include <QScreen>
#include <QStandardPaths>
#include <QTimer>
#include <QUrl>

#include <cstdlib>
#include <fcntl.h>
#include <sys/file.h>

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

// What a new dialog belongs to. A window that was just hidden may still count as the active one, and a dialog
// of a hidden window gets no keyboard.
QWidget* Owner() {
    QWidget* owner = QApplication::activeWindow();
    while (owner != nullptr && !owner->isVisible())
        owner = owner->parentWidget();
    return owner;
}

bool RunFileDialog(FileDialog& properties, QFileDialog::AcceptMode mode) {
    QFileDialog dialog(Owner(), ToQString(properties.DialogTitle), FirstFolder(properties));
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

class QtTimer final : public Timer {
public:
    explicit QtTimer(std::function<void()> tick) {
        timer_.setTimerType(Qt::PreciseTimer);
        QObject::connect(&timer_, &QTimer::timeout, std::move(tick));
    }
    void StartInterval(std::chrono::milliseconds interval) override {
        timer_.setSingleShot(false);
        timer_.start(interval);
    }
    void StartOnce(std::chrono::milliseconds delay) override {
        timer_.setSingleShot(true);
        timer_.start(delay);
    }
    void Stop() override { timer_.stop(); }
    bool IsRunning() const override { return timer_.isActive(); }

private:
    QTimer timer_;
};

TwipsRect ToTwips(const QRect& rect) {
    return {FromPixels(rect.x()), FromPixels(rect.y()), FromPixels(rect.width()), FromPixels(rect.height())};
}

QMessageBox::Icon IconOf(BoxIcon icon) {
    switch (icon) {
    case BoxIcon::None:
        break;
    case BoxIcon::Information:
        return QMessageBox::Information;
    case BoxIcon::Question:
        return QMessageBox::Question;
    case BoxIcon::Critical:
        return QMessageBox::Critical;
    }
    return QMessageBox::NoIcon;
}

} // namespace

bool QtFileDialog::ShowOpen() {
    return RunFileDialog(*this, QFileDialog::AcceptOpen);
}

bool QtFileDialog::ShowSave() {
    return RunFileDialog(*this, QFileDialog::AcceptSave);
}

bool QtFolderDialog::ShowFolder(std::u16string_view start) {
    QFileDialog::Options options;
    options.setFlag(QFileDialog::ShowDirsOnly, (flags & kListFiles) == 0);
    const QString chosen = QFileDialog::getExistingDirectory(
        Owner(), ToQString(DialogTitle), start.empty() ? QDir::homePath() : ToQString(start), options);
    if (chosen.isEmpty())
        return false;
    InitDir = FromQString(chosen);
    return true;
}

BoxAnswer QtMessageBox::Show(BoxIcon icon, BoxButtons buttons, std::u16string_view title,
                             std::u16string_view text) {
    QMessageBox box(Owner());
    box.setWindowTitle(ToQString(title));
    box.setTextFormat(Qt::PlainText); // the texts hold "<" and ">"
    box.setText(ToQString(text));
    box.setIcon(IconOf(icon));
    if (buttons == BoxButtons::Ok) {
        box.addButton(QStringLiteral("ОК"), QMessageBox::AcceptRole);
        box.exec();
        return BoxAnswer::Ok;
    }
    QPushButton* yes = box.addButton(QStringLiteral("&Да"), QMessageBox::YesRole);
    QPushButton* no = box.addButton(QStringLiteral("&Нет"), QMessageBox::NoRole);
    // Escape goes to the cancel button. Where it has no place it is hidden, so that a box that was only
    // closed is told from one that was answered No.
    QPushButton* cancel = box.addButton(QStringLiteral("Отмена"), QMessageBox::RejectRole);
    cancel->setVisible(buttons == BoxButtons::YesNoCancel);
    box.setDefaultButton(yes);
    box.setEscapeButton(cancel);
    box.exec();
    if (box.clickedButton() == yes)
        return BoxAnswer::Yes;
    return box.clickedButton() == no ? BoxAnswer::No : BoxAnswer::Cancel;
}

std::unique_ptr<Timer> QtTimers::Make(std::function<void()> tick) {
    return std::make_unique<QtTimer>(std::move(tick));
}

TwipsRect QtScreens::Primary() const {
    return ToTwips(QGuiApplication::primaryScreen()->geometry());
}

std::vector<TwipsRect> QtScreens::WorkAreas() const {
    std::vector<TwipsRect> areas;
    for (const QScreen* screen : QGuiApplication::screens()) // the primary one comes first
        areas.push_back(ToTwips(screen->availableGeometry()));
    return areas;
}

// Every copy holds a shared lock for as long as it lives, and the system takes it away however the copy ends.
// A copy that gets the lock for itself alone when it starts is therefore the only one.
QtShell::QtShell(const std::filesystem::path& lockFile) {
    const int lock = ::open(lockFile.c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0600);
    if (lock < 0)
        return;
    anotherCopyRuns_ = ::flock(lock, LOCK_EX | LOCK_NB) != 0;
    ::flock(lock, LOCK_SH); // at most for the moment in which another copy asks whether it is alone
}

std::u16string QtShell::ProgramFolder() const {
    return FromQString(QCoreApplication::applicationDirPath());
}

bool QtShell::StartProcess(std::u16string_view program) {
    return QProcess::startDetached(ToQString(program), {});
}

bool QtShell::OpenWithDefault(std::u16string_view link) {
    return QDesktopServices::openUrl(QUrl(ToQString(link)));
}

void QtShell::RunPendingEvents() {
    QCoreApplication::processEvents();
}

void QtShell::EndProcess() {
    std::_Exit(0);
}

} // namespace quillshift
