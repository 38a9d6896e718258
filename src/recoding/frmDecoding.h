#pragma once

#include "controls/Dialog.h"
#include "recoding/DecodingView.h"

#include <functional>
#include <memory>

class QLabel;
class QLineEdit;

namespace quillshift {

class MessageBox;
class ProgressBar;

/// The progress dialog of a recoding job.
class frmDecoding final : public Dialog {
    Q_OBJECT

public:
    /// `cancel` asks the user whether to stop; the dialog is not closed by it.
    frmDecoding(Settings& settings, SoundEvents& sounds, QWidget* parent, std::function<void()> cancel);

    QLineEdit* txtPath;
    QLabel* lblCode;
    ProgressBar* progressBar;
    DialogButton* cmdCancel;

protected:
    void closeEvent(QCloseEvent* event) override;
    void reject() override { cancel_(); }

private:
    std::function<void()> cancel_;
};

/// Owns the progress dialog: created at the first job, hidden at a job's end, destroyed by a stop.
class DecodingDialog final : public DecodingView {
public:
    DecodingDialog(Settings& settings, SoundEvents& sounds, MessageBox& messageBox, QWidget* owner);
    ~DecodingDialog() override;

    /// Asks the job to stop; called when the user cancels and says yes.
    std::function<void()> StopRecoding;

    bool IsCreated() const override { return dialog_ != nullptr; }
    void Create(std::u16string_view path) override;
    void Destroy() override;
    void SetWaiting(bool waiting) override;
    void SetCode(std::u16string_view pair) override;
    void Show() override;
    void Hide() override;
    void SetProgress(float percentage) override;

private:
    void AskToCancel();

    Settings& settings_;
    SoundEvents& sounds_;
    MessageBox& messageBox_;
    QWidget* owner_;
    std::unique_ptr<frmDecoding> dialog_;
};

} // namespace quillshift
