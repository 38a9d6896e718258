#include "platform/qt/QtProgress.h"

#include "base/Texts.h"
#include "platform/qt/DialogOwner.h"
#include "platform/qt/QtText.h"

#include <QCoreApplication>
#include <QDialog>
#include <QElapsedTimer>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QVBoxLayout>

#include <utility>

namespace quillshift {
namespace {

constexpr qint64 kBeforeShown = 500; // milliseconds
constexpr qint64 kBetweenSteps = 100;
constexpr int kBarSteps = 1000;

class QtProgressWindow final : public QDialog, public ProgressWindow {
public:
    explicit QtProgressWindow(std::u16string_view what)
        : QDialog(DialogOwner()), bar_(new QProgressBar), sinceStep_(kBeforeShown) {
        setWindowTitle(ToQString(kProgramTitle));
        setFont(QFont(QStringLiteral("MS Sans Serif"), 8)); // as every dialog
        setModal(true);
        bar_->setRange(0, kBarSteps);
        bar_->setTextVisible(false);
        bar_->setMinimumWidth(300);
        auto* const stop = new QPushButton(QStringLiteral("Остановить"));
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
        bar_->setValue(static_cast<int>(done * kBarSteps));
        if (!std::exchange(shown_, true))
            show();
        QCoreApplication::processEvents();
        clock_.restart();
        sinceStep_ = kBetweenSteps;
        return !stopped_ && isVisible(); // one that was taken off the screen is cancelled
    }

private:
    QProgressBar* bar_;
    QElapsedTimer clock_;
    qint64 sinceStep_;
    bool shown_ = false;
    bool stopped_ = false;
};

} // namespace

std::unique_ptr<ProgressWindow> QtProgress::Begin(std::u16string_view what) {
    return std::make_unique<QtProgressWindow>(what);
}

} // namespace quillshift
