#pragma once

#include "controls/Dialog.h"

class QGridLayout;

namespace quillshift {

/// Tells which program and version this is, and how to reach its author.
class frmAbout final : public Dialog {
    Q_OBJECT

public:
    explicit frmAbout(const DialogContext& context);

private:
    void AddLink(QGridLayout& rows, const char* name, const QString& label, std::u16string_view caption,
                 std::u16string_view address);
};

} // namespace quillshift
