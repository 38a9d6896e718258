#pragma once

#include "controls/Dialog.h"
#include "document/FullScreen.h"

namespace quillshift {

/// The small window over the full screen whose only content is the button that ends the mode. It is above all
/// others, and the user's place for it is kept.
class frmFScreenB final : public Dialog {
    Q_OBJECT

public:
    frmFScreenB(const DialogContext& context, FullScreen& mode);

    void StorePlace();
    void reject() override { mode_.End(); }

protected:
    void closeEvent(QCloseEvent* event) override;

private:
    FullScreen& mode_;
};

} // namespace quillshift
