#include "controls/JobProgress.h"

#include "base/Texts.h"
#include "controls/ProgressBarWidget.h"
#include "platform/qt/Appearance.h"
#include "platform/qt/DialogOwner.h"
#include "platform/qt/QtText.h"

#include <QCoreApplication>
#include <QDialog>
#include <QElapsedTimer>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include <utility>

namespace quillshift {
namespace {

constexpr qint64 kBeforeShown = 500; // milliseconds
constexpr qint64 kBetweenSteps = 100;

class JobWindow final : public QDialog, public ProgressWindow {
public:
    explicit JobWindow(std::u16string_view what)
        : QDialog(DialogOwner()), bar_(new ProgressBarWidget), sinceStep_(kBeforeShown) {
        setWindowTitle(ToQString(kProgramTitle));
        setFont(DialogFont());
        setModal(true);
        bar_->setAccessibleName(ToQString(what));
        bar_->Change([](qsProgressBar& bar) {
            bar.Segments = true;
            bar.BarColor = SystemColour::Highlight; // one that shows on dark desktops, too
        });
        auto* const stop = new QPushButton(QStringLiteral("&Остановить"));
        auto* const rows = new QVBoxLayout(this);
        rows->addWidget(new QLabel(ToQString(what)));
        rows->addWidget(bar_);
        rows->addWidget(stop, 0, Qt::AlignRight);
        rows->setSizeConstraint(QLayout::SetFixedSize);
        connect(stop, &QPushButton::clicked, this, &QDialog::reject);
        clock_.start();
    }
    void reject() override { stopped_ = true; } // by the button, Escape or the close box

    bool IsDue() const override { return clock_.elapsed() >= sinceStep_; }
    bool Step(double done) override {
        bar_->Change([done](qsProgressBar& bar) { bar.Value = static_cast<std::int32_t>(done * bar.Max); });
        if (!std::exchange(shown_, true))
            show();
        QCoreApplication::processEvents();
        clock_.restart();
        sinceStep_ = kBetweenSteps;
        return !stopped_ && isVisible(); // one that was taken off the screen is cancelled
    }

private:
    ProgressBarWidget* bar_;
    QElapsedTimer clock_;
    qint64 sinceStep_;
    bool shown_ = false;
    bool stopped_ = false;
};

} // namespace

std::unique_ptr<ProgressWindow> JobProgress::Begin(std::u16string_view what) {
    return std::make_unique<JobWindow>(what);
}

} // namespace quillshift
