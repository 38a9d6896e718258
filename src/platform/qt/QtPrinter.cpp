#include "platform/qt/QtPrinter.h"

#include "platform/qt/ChildProcess.h"
#include "platform/qt/QtText.h"

#include <algorithm>
#include <array>

namespace quillshift {
namespace {

constexpr int kResolution = 600; // dots to the inch
constexpr qreal kTwipsPerPoint = 20;

struct PaperRow {
    PrintPaper paper;
    QSizeF millimetres;
    const char* media; ///< as the print system calls it
};
const std::array kPapers{PaperRow{PrintPaper::A3, {297, 420}, "iso_a3_297x420mm"},
                         PaperRow{PrintPaper::A4, {210, 297}, "iso_a4_210x297mm"},
                         PaperRow{PrintPaper::A5, {148, 210}, "iso_a5_148x210mm"},
                         PaperRow{PrintPaper::B4, {250, 354}, "Custom.250x354mm"},
                         PaperRow{PrintPaper::B5, {182, 257}, "jis_b5_182x257mm"}};

const PaperRow& RowOf(PrintPaper paper) {
    return *std::find_if(kPapers.begin(), kPapers.end(),
                         [paper](const PaperRow& row) { return row.paper == paper; });
}

PrintFailure Failure(const QString& description) {
    constexpr int kPrinterError = 482;
    return {kPrinterError, FromQString(description)};
}

// Draft and low are one step there.
int QualityStep(PrintQuality quality) {
    switch (quality) {
    case PrintQuality::Draft:
    case PrintQuality::Low:
        return 3;
    case PrintQuality::Medium:
        return 4;
    case PrintQuality::High:
        break;
    }
    return 5;
}

} // namespace

void QtPrinter::SetQueue(const QString& queue) {
    queue_ = queue;
    facts_.reset();
}

const PrintQueueFacts& QtPrinter::Facts() const {
    if (!facts_)
        facts_ = IsFile() ? PrintQueueFacts{} : AskPrintQueue(queue_.toStdString());
    return *facts_;
}

bool QtPrinter::SetPrintQuality(PrintQuality quality) {
    quality_ = quality;
    return true;
}

bool QtPrinter::SetColorMode(PrintColour colours) {
    colours_ = colours;
    return true;
}

bool QtPrinter::SetOrientation(PrintOrientation orientation) {
    orientation_ = orientation;
    return true;
}

bool QtPrinter::SetPaperSize(PrintPaper paper) {
    const QSize size = (RowOf(paper).millimetres * 100).toSize();
    if (!Facts().Takes(size.width(), size.height()))
        return false;
    paper_ = paper;
    return true;
}

bool QtPrinter::SetCopies(int copies) {
    copies_ = std::max(copies, 1);
    return copies >= 1;
}

bool QtPrinter::SetFont(const SurfaceFont& font) {
    if (!font.name.empty())
        font_.setFamily(ToQString(font.name));
    if (font.points > 0)
        font_.setPointSizeF(static_cast<qreal>(font.points));
    return true;
}

std::optional<PrintFailure> QtPrinter::Start(std::u16string_view name) {
    job_ = std::make_unique<Job>();
    job_->name = ToQString(name);
    if (!job_->pdf.open()) {
        job_.reset();
        return Failure(QStringLiteral("Нет места для временного файла печати"));
    }
    QPdfWriter& writer = job_->writer;
    writer.setResolution(kResolution);
    writer.setTitle(job_->name);
    writer.setCreator(QStringLiteral("Morvane Quillshift"));
    const QPageSize paper(RowOf(paper_).millimetres, QPageSize::Millimeter, {}, QPageSize::ExactMatch);
    const bool isLandscape = orientation_ == PrintOrientation::Landscape;
    writer.setPageLayout(
        {paper, isLandscape ? QPageLayout::Landscape : QPageLayout::Portrait, QMarginsF(0, 0, 0, 0)});
    if (!job_->painter.begin(&writer)) {
        job_.reset();
        return Failure(QStringLiteral("Не удалось начать печать"));
    }
    job_->painter.setFont(font_);
    return std::nullopt;
}

// A sheet on its side is turned against the clock for the printer.
PrintSheet QtPrinter::Sheet() const {
    const QSizeF points = job_->writer.pageLayout().fullRect(QPageLayout::Point).size();
    const Twips width{static_cast<float>(points.width() * kTwipsPerPoint)};
    const Twips height{static_cast<float>(points.height() * kTwipsPerPoint)};
    const bool isLandscape = orientation_ == PrintOrientation::Landscape;
    const auto& edges = Facts().edges;
    const auto edge = [&](int upright, int turned) {
        return Twips{static_cast<float>(isLandscape ? turned : upright) * 0.567F};
    };
    const Twips left = edge(edges.left, edges.bottom);
    const Twips top = edge(edges.top, edges.left);
    return {.width = width,
            .height = height,
            .left = left,
            .top = top,
            .scaleWidth = width - left - edge(edges.right, edges.top),
            .scaleHeight = height - top - edge(edges.bottom, edges.right)};
}

std::optional<PrintFailure> QtPrinter::End(const std::function<bool()>& goesOn) {
    const std::unique_ptr<Job> job = std::move(job_);
    job->painter.end();
    // The writer doesn't tell of a disk that is full.
    constexpr int kTail = 16;
    job->pdf.flush();
    if (!job->pdf.seek(std::max<qint64>(job->pdf.size() - kTail, 0)) || !job->pdf.readAll().contains("%%EOF"))
        return Failure(QStringLiteral("Не хватило места для временного файла печати"));
    return IsFile() ? WriteFile(*job) : HandToQueue(*job, goesOn);
}

std::optional<PrintFailure> QtPrinter::WriteFile(Job& job) {
    job.pdf.seek(0);
    const QByteArray bytes = job.pdf.readAll();
    auto failure = files_.Write(file_, {bytes.constData(), static_cast<std::size_t>(bytes.size())});
    if (failure)
        failure->description = u"«" + file_ + u"»\r\n" + failure->description;
    return failure;
}

QStringList QtPrinter::QueueArguments(const Job& job) const {
    QStringList arguments{
        QStringLiteral("-d"),
        queue_,
        QStringLiteral("-t"),
        job.name,
        QStringLiteral("-n"),
        QString::number(copies_),
        QStringLiteral("-o"),
        QStringLiteral("media=") + QLatin1String(RowOf(paper_).media),
        QStringLiteral("-o"),
        QStringLiteral("print-color-mode=") + QLatin1String(IsGrey() ? "monochrome" : "color")};
    if (quality_)
        arguments << QStringLiteral("-o") << QStringLiteral("print-quality=%1").arg(QualityStep(*quality_));
    return arguments << QStringLiteral("--") << job.pdf.fileName();
}

// The print system's own program, so that a server that doesn't answer can be left.
std::optional<PrintFailure> QtPrinter::HandToQueue(const Job& job,
                                                   const std::function<bool()>& goesOn) const {
    constexpr int kBetweenQuestions = 20; // milliseconds
    const ChildProcess lp(new QProcess);
    lp->start(QStringLiteral("lp"), QueueArguments(job));
    while (!lp->waitForFinished(kBetweenQuestions) && lp->state() != QProcess::NotRunning)
        if (!goesOn())
            return std::nullopt;
    if (lp->error() == QProcess::FailedToStart)
        return Failure(QStringLiteral("Система печати не установлена"));
    if (lp->exitStatus() == QProcess::NormalExit && lp->exitCode() == 0)
        return std::nullopt;
    return Failure(QStringLiteral("Принтер «%1» не принял документ\r\n%2")
                       .arg(queue_, QString::fromLocal8Bit(lp->readAllStandardError()).trimmed()));
}

} // namespace quillshift
