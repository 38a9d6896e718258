#pragma once

#include "controls/Dialog.h"
#include "recoding/RecodingJob.h"

class QLabel;

namespace quillshift {

class ProgressBar;

/// The progress dialog of a recoding job. Only the job closes it.
class frmDecoding final : public Dialog, private DecodingView {
    Q_OBJECT

public:
    frmDecoding(const DialogContext& context, RecodingJob& job);
    ~frmDecoding() override;

    void reject() override { job_.AskToStop(); }

protected:
    void closeEvent(QCloseEvent* event) override;

private:
    void SetWaiting(bool waiting) override;
    void SetCode(std::u16string_view pair) override;
    void Hide() override;
    void SetProgress(float percentage) override;

    RecodingJob& job_;
    QLabel* lblCode;
    ProgressBar* progressBar;
};

} // namespace quillshift
