#pragma once

#include "platform/Printers.h"
#include "platform/qt/PrintQueue.h"

#include <QPainter>
#include <QPdfWriter>
#include <QString>
#include <QTemporaryFile>

#include <memory>
#include <optional>

namespace quillshift {

/// Draws each document into a private PDF first, and hands it to a queue of the print system, or writes it to
/// its file, only when it is whole.
class QtPrinter final : public Printer {
public:
    /// Files are written through `files`, which outlives it.
    explicit QtPrinter(FileSystem& files) : files_(files) {}

    /// The queue that is printed to; empty: into a file.
    void SetQueue(const QString& queue);
    const QString& Queue() const { return queue_; }

    bool SetPrintQuality(PrintQuality quality) override;
    bool SetColorMode(PrintColour colours) override;
    bool SetOrientation(PrintOrientation orientation) override;
    bool SetPaperSize(PrintPaper paper) override;
    bool SetCopies(int copies) override;
    bool SetFont(const SurfaceFont& font) override;

    bool IsFile() const override { return queue_.isEmpty(); }
    void SetFile(std::u16string_view path) override { file_ = path; }

    std::optional<PrintFailure> Start(std::u16string_view name) override;
    PrintSheet Sheet() const override;
    int Passes() const override { return IsFile() ? copies_ : 1; }
    void NewPage() override { job_->writer.newPage(); }
    std::optional<PrintFailure> End(const std::function<bool()>& goesOn) override;
    void Cancel() override { job_.reset(); }

    // For the surface that draws; only between `Start` and `End`.

    QPainter& Painter() { return job_->painter; }
    QPaintDevice& Device() { return job_->writer; }
    bool IsGrey() const { return colours_ == PrintColour::Monochrome; }

private:
    // The painter goes first, and the file last.
    struct Job {
        QString name;
        QTemporaryFile pdf;
        QPdfWriter writer{&pdf};
        QPainter painter;
    };
    QStringList QueueArguments(const Job& job) const;
    std::optional<PrintFailure> HandToQueue(const Job& job, const std::function<bool()>& goesOn) const;
    std::optional<PrintFailure> WriteFile(Job& job);
    const PrintQueueFacts& Facts() const;

    FileSystem& files_;
    QString queue_;
    mutable std::optional<PrintQueueFacts> facts_; ///< asked for at their first use
    std::u16string file_;
    std::optional<PrintQuality> quality_;
    PrintColour colours_ = PrintColour::Colour;
    PrintOrientation orientation_ = PrintOrientation::Portrait;
    PrintPaper paper_ = PrintPaper::A4;
    int copies_ = 1;
    QFont font_;
    std::unique_ptr<Job> job_;
};

} // namespace quillshift
