#pragma once

#include "settings/StartDialog.h"

class QGridLayout;
class QRadioButton;

namespace quillshift {

/// Asks what to begin with: an empty document or one from the disk.
class frmWorkBegin final : public StartDialog {
    Q_OBJECT

public:
    frmWorkBegin(const DialogContext& context, StartChain& chain);

    void reject() override { Close(); } // Escape

private:
    QRadioButton* AddOption(QGridLayout& rows, const char* name, const QString& caption,
                            const QString& explanation, bool openAtStart);
    void Close();
};

} // namespace quillshift
