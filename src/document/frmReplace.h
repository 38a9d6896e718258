#pragma once

#include "document/SearchDialog.h"

namespace quillshift {

/// Finds a text and puts another one in its place, once or everywhere.
class frmReplace final : public SearchDialog {
    Q_OBJECT

public:
    frmReplace(const DialogContext& context, Search& search);

private:
    void ShowState() override;

    const SearchState& state_;
    DialogButton* cmdReplace;
    DialogButton* cmdReplaceAll;
};

} // namespace quillshift
