#pragma once

#include "controls/Dialog.h"
#include "document/RecoveredTexts.h"

class QTreeWidget;

namespace quillshift {

/// The list of unsaved texts at the start after a crash: one is restored, some are thrown away, the rest
/// stays for later.
class frmRecovery final : public Dialog {
    Q_OBJECT

public:
    frmRecovery(const DialogContext& context, RecoveredTexts& texts);

private:
    void FillList();
    int Chosen() const;
    void Restore();
    void ThrowAway();

    RecoveredTexts& texts_;
    QTreeWidget* list_;
};

} // namespace quillshift
