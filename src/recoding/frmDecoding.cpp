#include "recoding/frmDecoding.h"

#include "controls/ProgressBar.h"
#include "platform/MessageBox.h"
#include "platform/qt/QtText.h"

#include <QApplication>
#include <QCloseEvent>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QVBoxLayout>
#include <QWindow>

namespace quillshift {

frmDecoding::frmDecoding(Settings& settings, SoundEvents& sounds, QWidget* parent,
                         std::function<void()> cancel)
    : Dialog(settings, sounds, parent),
      txtPath(new QLineEdit),
      lblCode(new QLabel),
      progressBar(new ProgressBar),
      cmdCancel(new DialogButton(QStringLiteral("Отмена"), sounds)),
      cancel_(std::move(cancel)) {
    setWindowTitle(QStringLiteral("Перекодирование..."));
    txtPath->setReadOnly(true);
    txtPath->setMinimumWidth(320);

    auto* details = new QGroupBox(QStringLiteral("Подробности:"));
    auto* rows = new QGridLayout(details);
    rows->addWidget(new QLabel(QStringLiteral("Файл:")), 0, 0);
    rows->addWidget(txtPath, 0, 1);
    rows->addWidget(new QLabel(QStringLiteral("Кодировка:")), 1, 0);
    rows->addWidget(lblCode, 1, 1);

    auto* done = new QGroupBox(QStringLiteral("Выполнено:"));
    (new QVBoxLayout(done))->addWidget(progressBar);

    auto* all = new QVBoxLayout(this);
    all->addWidget(details);
    all->addWidget(done);
    all->addWidget(cmdCancel, 0, Qt::AlignRight);
    all->setSizeConstraint(QLayout::SetFixedSize);
    connect(cmdCancel, &QPushButton::clicked, this, [this] { cancel_(); });
}

void frmDecoding::closeEvent(QCloseEvent* event) {
    event->ignore();
    cancel_();
}

DecodingDialog::DecodingDialog(Settings& settings, SoundEvents& sounds, MessageBox& messageBox,
                               QWidget* owner)
    : settings_(settings), sounds_(sounds), messageBox_(messageBox), owner_(owner) {}

DecodingDialog::~DecodingDialog() = default;

void DecodingDialog::Create(std::u16string_view path) {
    dialog_ = std::make_unique<frmDecoding>(settings_, sounds_, owner_, [this] { AskToCancel(); });
    dialog_->txtPath->setText(ToQString(path));
}

// The dialog may be in the middle of an event of its own, so it goes when that is over.
void DecodingDialog::Destroy() {
    if (!dialog_)
        return;
    dialog_->hide();
    dialog_.release()->deleteLater();
}

void DecodingDialog::SetWaiting(bool waiting) {
    if (waiting)
        dialog_->setCursor(Qt::WaitCursor);
    else
        dialog_->unsetCursor();
}

void DecodingDialog::SetCode(std::u16string_view pair) {
    dialog_->lblCode->setText(ToQString(pair));
}

// Shown without a modal wait, and above the dialog that started the job if one is up: only so can its button
// be reached then.
void DecodingDialog::Show() {
    dialog_->winId();
    const QWidget* above = QApplication::activeModalWidget();
    dialog_->windowHandle()->setTransientParent((above ? above : owner_)->windowHandle());
    dialog_->show();
    dialog_->progressBar->SetCalculatePercentage(false);
}

void DecodingDialog::Hide() {
    if (dialog_)
        dialog_->hide();
}

void DecodingDialog::SetProgress(float percentage) {
    // Gone once the user has cancelled it; the job notices at the head of its next step.
    if (dialog_)
        dialog_->progressBar->SetValue(percentage);
}

void DecodingDialog::AskToCancel() {
    const BoxAnswer answer = messageBox_.Ask(u"Вы действительно хотите отменить перекодирование?");
    if (answer != BoxAnswer::Yes)
        return;
    StopRecoding();
    Destroy();
}

} // namespace quillshift
