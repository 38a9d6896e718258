#pragma once

#include "platform/qt/ChildProcess.h"
#include "platform/qt/QtPrinter.h"

#include <QObject>
#include <QStringList>

namespace quillshift {

/// The queues of the print system, and the printer that prints into a file.
class QtPrinters final : public QObject, public Printers {
    Q_OBJECT

public:
    explicit QtPrinters(FileSystem& files);

    std::vector<std::u16string> Names() override;
    bool AreKnown() const override { return asked_->state() == QProcess::NotRunning; }
    bool MakeCurrent(std::u16string_view name) override;
    Printer& Current() override { return printer_; }
    std::u16string CurrentName() const override;

private:
    void TakeAnswer();
    std::vector<std::u16string> List() const;

    ChildProcess asked_{new QProcess};
    bool waits_ = false; ///< `Names` does, and gives the answer itself
    QStringList queues_; ///< as they were told last
    QtPrinter printer_;
};

} // namespace quillshift
