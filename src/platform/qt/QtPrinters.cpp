#include "platform/qt/QtPrinters.h"

#include "platform/qt/QtText.h"

#include <QScopedValueRollback>

#include <csignal>
#include <sys/prctl.h>

namespace quillshift {

QtPrinters::QtPrinters(FileSystem& files) : printer_(files) {
    // The program ends at once, and a question that nobody answers would outlive it.
    asked_->setChildProcessModifier([] { ::prctl(PR_SET_PDEATHSIG, SIGKILL); });
    connect(asked_.get(), &QProcess::finished, this, &QtPrinters::TakeAnswer);
}

void QtPrinters::TakeAnswer() {
    queues_ = QString::fromLocal8Bit(asked_->readAllStandardOutput()).split(u'\n', Qt::SkipEmptyParts);
    if (OnNames && !waits_)
        OnNames(List());
}

// The print system's own program: a server that doesn't answer holds up nobody else.
std::vector<std::u16string> QtPrinters::Names() {
    constexpr int kPatience = 1000; // milliseconds
    if (AreKnown()) {
        const QScopedValueRollback waiting(waits_, true);
        asked_->start(QStringLiteral("lpstat"), {QStringLiteral("-e")}, QIODevice::ReadOnly);
        asked_->waitForFinished(kPatience);
    }
    return List();
}

std::vector<std::u16string> QtPrinters::List() const {
    std::vector<std::u16string> names;
    for (const QString& queue : queues_)
        names.push_back(FromQString(queue));
    names.emplace_back(kIntoFile);
    return names;
}

bool QtPrinters::MakeCurrent(std::u16string_view name) {
    const QString queue = name == kIntoFile ? QString() : ToQString(name);
    if (!queue.isEmpty() && !queues_.contains(queue))
        return false;
    printer_.SetQueue(queue);
    return true;
}

std::u16string QtPrinters::CurrentName() const {
    return printer_.IsFile() ? std::u16string(kIntoFile) : FromQString(printer_.Queue());
}

} // namespace quillshift
