#pragma once

#include "controls/Dialog.h"

namespace quillshift {

/// Shows the licence, the file License.rtf of the program's folder; an empty view where there is none. The
/// text can be selected and copied.
class frmLicense final : public Dialog {
    Q_OBJECT

public:
    explicit frmLicense(const DialogContext& context);
};

} // namespace quillshift
