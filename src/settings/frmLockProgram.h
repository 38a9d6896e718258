#pragma once

#include "controls/Dialog.h"
#include "settings/ProgramLock.h"

class QLabel;
class QLineEdit;

namespace quillshift {

/// Stands on the screen in the place of all other windows of the locked program. Only the password closes it.
class frmLockProgram final : public Dialog {
    Q_OBJECT

public:
    frmLockProgram(const DialogContext& context, ProgramLock& lock);

    void reject() override {}

protected:
    void closeEvent(QCloseEvent* event) override;
    void changeEvent(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void keyReleaseEvent(QKeyEvent* event) override;

private:
    QWidget* Identification();
    QWidget* Tip();
    void Enter();
    void ShowCapsLock();

    ProgramLock& lock_;
    QLineEdit* txtUser_;
    QLineEdit* txtPassword_;
    QLabel* lblCapsLock_;
};

} // namespace quillshift
