#pragma once

#include "controls/Dialog.h"
#include "recoding/RecodingJob.h"

#include <array>

class QGroupBox;
class QRadioButton;

namespace quillshift {

/// Lets the user pick a source and a target by hand.
class frmDecode final : public Dialog {
    Q_OBJECT

public:
    frmDecode(const DialogContext& context, RecodingJob& job);

private:
    using Options = std::array<QRadioButton*, kCharsets>; // in order of the character sets

    QGroupBox* OptionFrame(const QString& caption, const char* nameEnd, Options& options);
    void UpdateTargets();
    void Recode();

    RecodingJob& job_;
    Options sources_{};
    Options targets_{};
};

} // namespace quillshift
