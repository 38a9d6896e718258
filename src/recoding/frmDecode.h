#pragma once

#include "controls/Dialog.h"
#include "recoding/modDecode.h"

#include <array>
#include <functional>

class QGroupBox;
class QRadioButton;

namespace quillshift {

/// Lets the user pick a source and a target by hand.
class frmDecode final : public Dialog {
    Q_OBJECT

public:
    /// `recode` runs the job with the chosen pair.
    frmDecode(Settings& settings, SoundEvents& sounds, QWidget* parent,
              std::function<void(Direction)> recode);

    // In order of the character sets.
    std::array<QRadioButton*, kCharsets> sourceOptions;
    std::array<QRadioButton*, kCharsets> targetOptions;
    DialogButton* cmdDecode;
    DialogButton* cmdCancel;

private:
    QGroupBox* OptionFrame(const QString& caption, const QString& nameEnd,
                           std::array<QRadioButton*, kCharsets>& options);
    void UpdateTargets();
    void Recode();

    std::function<void(Direction)> recode_;
};

} // namespace quillshift
