#include "recoding/frmDecoding.h"

#include "controls/ProgressBar.h"
#include "platform/qt/QtText.h"

#include <QCloseEvent>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QVBoxLayout>

namespace quillshift {

frmDecoding::frmDecoding(const DialogContext& context, RecodingJob& job)
    : Dialog(context, QStringLiteral("Перекодирование...")),
      job_(job),
      lblCode(Add<QLabel>("lblCode")),
      progressBar(Add<ProgressBar>("progressBar")) {
    auto* txtPath = Add<QLineEdit>("txtPath", ToQString(job.DocumentName()));
    txtPath->setReadOnly(true);
    txtPath->setMinimumWidth(320);
    progressBar->SetCalculatePercentage(false);
    progressBar->setAccessibleName(QStringLiteral("Выполнено"));

    auto* details = new QGroupBox(QStringLiteral("Подробности:"));
    auto* rows = new QGridLayout(details);
    rows->addWidget(LabelFor(txtPath, QStringLiteral("Файл:")), 0, 0);
    rows->addWidget(txtPath, 0, 1);
    rows->addWidget(new QLabel(QStringLiteral("Кодировка:")), 1, 0);
    rows->addWidget(lblCode, 1, 1);

    auto* done = new QGroupBox(QStringLiteral("Выполнено:"));
    (new QVBoxLayout(done))->addWidget(progressBar);

    auto* cmdCancel = AddButton("cmdCancel", QStringLiteral("Отмена"));
    auto* all = new QVBoxLayout(this);
    all->addWidget(details);
    all->addWidget(done);
    all->addWidget(cmdCancel, 0, Qt::AlignRight);
    all->setSizeConstraint(QLayout::SetFixedSize);
    connect(cmdCancel, &QPushButton::clicked, this, &frmDecoding::reject);
    job_.Attach(*this);
}

frmDecoding::~frmDecoding() {
    job_.Detach(*this);
}

void frmDecoding::closeEvent(QCloseEvent* event) {
    event->ignore();
    job_.AskToStop();
}

void frmDecoding::SetWaiting(bool waiting) {
    if (waiting)
        setCursor(Qt::WaitCursor);
    else
        unsetCursor();
}

void frmDecoding::SetCode(std::u16string_view pair) {
    lblCode->setText(ToQString(pair));
}

// A short walk is over before the window manager has given the dialog the keyboard. That word would come to a
// hidden window, and all keys with it; so its window goes, and is made anew when it shows again.
void frmDecoding::Hide() {
    hide();
    destroy();
}

void frmDecoding::SetProgress(float percentage) {
    progressBar->SetValue(percentage);
}

} // namespace quillshift
