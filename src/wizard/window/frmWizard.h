#pragma once

#include "controls/Dialog.h"
#include "wizard/rescue/Proposals.h"
#include "wizard/rescue/Rescue.h"

#include <QTimer>

#include <array>

class QButtonGroup;
class QComboBox;
class QLabel;
class QStackedLayout;
class QTreeView;

namespace quillshift {
class ProgressBarWidget;
}

namespace quillshift::wizard {

class ProposalCard;
class RescueModel;

/// Finds out what happened to texts, files and whole folders, and repairs them.
class frmWizard final : public Dialog {
    Q_OBJECT

public:
    frmWizard(const DialogContext& context, Rescue& rescue);

    /// Lists files and folders, by the bytes of their names.
    void List(const std::vector<std::string>& names);

protected:
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dragMoveEvent(QDragMoveEvent* event) override;
    void dropEvent(QDropEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

private:
    static constexpr std::size_t kCards = kProposals + 2; ///< with one of a neighbour's, and none

    QWidget* Sources();
    QWidget* Files();
    QWidget* Proposals();
    QWidget* Work();
    void ConnectAll();

    void AddFiles();
    void AddFolder();
    void Paste();
    void TakeText(std::u16string text);
    void ChooseTarget();
    void Choose(std::size_t card);
    void ChooseForLikeIt();
    void Copy();
    void RepairAll();
    void ReturnAll();
    void Clear();
    void StopOrClose();

    void Watch();
    void WatchText();
    void FollowWork();
    void ShowRow();
    void Enable(DialogButton& button, bool enabled);
    void ShowWork();
    std::optional<std::size_t> Current() const;

    Rescue& rescue_;
    RescueModel* model_;
    QTreeView* lstFiles;
    QLabel *lblHint, *lblSource, *lblTarget, *lblState;
    QStackedLayout* filesOrHint_ = nullptr;
    std::array<ProposalCard*, kCards> cards_{};
    QButtonGroup* options_;
    QComboBox* cmbTarget;
    ProgressBarWidget* progressBar;
    DialogButton *cmdFiles, *cmdFolder, *cmdPaste, *cmdClear, *cmdLikeIt, *cmdCopy, *cmdRepair, *cmdReturn,
        *cmdClose;
    std::vector<Proposal> proposals_;
    QTimer watch_;
};

} // namespace quillshift::wizard
