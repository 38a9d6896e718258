#pragma once

#include "document/SearchDialog.h"

namespace quillshift {

/// Finds a text in the document.
class frmFind final : public SearchDialog {
    Q_OBJECT

public:
    frmFind(const DialogContext& context, Search& search);
};

} // namespace quillshift
