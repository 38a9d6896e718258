#pragma once

#include "controls/Dialog.h"
#include "platform/TextSurface.h"

class QCheckBox;
class QLineEdit;
class QListWidget;

namespace quillshift {

/// Puts the date, the time or both in at the caret, in a form that is picked from a list.
class frmInsertTimeAndDate final : public Dialog {
    Q_OBJECT

public:
    frmInsertTimeAndDate(const DialogContext& context, TextSurface& document);

private:
    void FillDates();
    void Update();
    void Insert();

    TextSurface& document_;
    QListWidget* lstDates;
    QCheckBox* chkAutoUpdate;
    QLineEdit* txtUpdate; ///< never shown: carries the chosen row over to the next filling
};

} // namespace quillshift
