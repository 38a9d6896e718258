#include "settings/StartDialog.h"

#include <QCheckBox>
#include <QCloseEvent>

namespace quillshift {

StartDialog::StartDialog(const DialogContext& context, const QString& title, StartChain& chain,
                         DialogKind kind)
    : Dialog(context, title),
      chain_(chain),
      kind_(kind),
      chkDoNotShowThisDialog_(
          Add<QCheckBox>("chkDoNotShowThisDialog", QStringLiteral("Не показывать больше это сообщение"))) {}

void StartDialog::GoOn() {
    chain_.GoOn(kind_, chkDoNotShowThisDialog_->isChecked());
}

void StartDialog::closeEvent(QCloseEvent* event) {
    event->accept();
    chain_.Leave(kind_);
}

} // namespace quillshift
