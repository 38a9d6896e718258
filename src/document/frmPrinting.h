#pragma once

#include "controls/Dialog.h"
#include "document/modPrint.h"

class QFormLayout;

namespace quillshift {

/// Shows how the document is going to be printed, and asks for paper.
class frmPrinting final : public Dialog {
    Q_OBJECT

public:
    frmPrinting(const DialogContext& context, modPrint& print);

private:
    void AddInformation(QFormLayout& rows, const char* name, const QString& label,
                        const std::u16string& text);
    void Print();

    modPrint& print_;
};

} // namespace quillshift
