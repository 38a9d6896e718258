#pragma once

#include "controls/Dialog.h"
#include "document/GoToLine.h"

class QLineEdit;

namespace quillshift {

/// Asks for the number of the line to go to.
class frmGoTo final : public Dialog {
    Q_OBJECT

public:
    frmGoTo(const DialogContext& context, GoToLine& lines);

    /// Selects what is written there.
    void BringUp() override;

protected:
    bool event(QEvent* event) override;

private:
    void Go();

    GoToLine& lines_;
    QLineEdit* txtGo;
};

} // namespace quillshift
