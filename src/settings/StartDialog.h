#pragma once

#include "controls/Dialog.h"
#include "settings/StartChain.h"

class QCheckBox;

namespace quillshift {

/// What the dialogs of the start have in common: a box that keeps them from coming again, and a close box
/// that ends the program.
class StartDialog : public Dialog {
    Q_OBJECT

protected:
    StartDialog(const DialogContext& context, const QString& title, StartChain& chain, DialogKind kind);

    /// The box, to be laid out.
    QCheckBox* DoNotShowThisDialog() const { return chkDoNotShowThisDialog_; }
    StartChain& Chain() const { return chain_; }
    /// Goes on with what comes next.
    void GoOn();
    void closeEvent(QCloseEvent* event) override;

private:
    StartChain& chain_;
    DialogKind kind_;
    QCheckBox* chkDoNotShowThisDialog_;
};

} // namespace quillshift
