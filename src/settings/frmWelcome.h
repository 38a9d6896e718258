#pragma once

#include "settings/StartDialog.h"

namespace quillshift {

/// Tells a newcomer what the program is for.
class frmWelcome final : public StartDialog {
    Q_OBJECT

public:
    frmWelcome(const DialogContext& context, StartChain& chain);

    void reject() override { GoOn(); } // Escape
};

} // namespace quillshift
