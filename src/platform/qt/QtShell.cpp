#include "platform/qt/QtShell.h"

#include "platform/qt/QtText.h"
#include "platform/qt/ScreenReaders.h"

#include <QClipboard>
#include <QCoreApplication>
#include <QDesktopServices>
#include <QGuiApplication>
#include <QMimeData>
#include <QProcess>
#include <QStandardPaths>
#include <QUrl>

#include <cstdlib>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/prctl.h>
#include <utility>

namespace quillshift {

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

// The desktop's opener fails at once where nobody takes the link, and may go on for long where somebody does.
bool QtShell::OpenWithDefault(std::u16string_view link) {
    constexpr int kPatience = 1000; // milliseconds
    const QUrl url(ToQString(link));
    const QString opener = QStandardPaths::findExecutable(QStringLiteral("xdg-open"));
    if (opener.isEmpty())
        return QDesktopServices::openUrl(url);
    auto* const process = new QProcess; // lives as long as the opener
    QObject::connect(process, &QProcess::finished, process, &QObject::deleteLater);
    process->setStandardOutputFile(QProcess::nullDevice());
    process->setStandardErrorFile(QProcess::nullDevice());
    process->start(opener, {QString::fromLatin1(url.toEncoded())});
    const bool ended = process->waitForFinished(kPatience);
    return ended ? process->exitCode() == 0 : process->state() == QProcess::Running;
}

void QtShell::Conceal(bool concealed) {
    ::prctl(PR_SET_DUMPABLE, concealed ? 0 : 1);
    QClipboard& clipboard = *QGuiApplication::clipboard();
    if (concealed) {
        // One that another program holds would have to be asked for; the kind of the data tells whose it is.
        const QMimeData* const selected = clipboard.mimeData(QClipboard::Selection);
        if (selected != nullptr && selected->hasText() && !selected->inherits("QInternalMimeData"))
            selection_ = selected->text();
        if (selection_)
            clipboard.clear(QClipboard::Selection);
        ForgetHiddenFromScreenReaders();
    } else if (const auto selection = std::exchange(selection_, std::nullopt)) {
        clipboard.setText(*selection, QClipboard::Selection);
    }
}

void QtShell::EndProcess() {
    std::_Exit(0);
}

} // namespace quillshift
