#pragma once

#include "wizard/rescue/Proposals.h"

#include <QFrame>

class QLabel;
class QRadioButton;

namespace quillshift::wizard {

/// A proposal that can be chosen, with the text before and after it; what differs is marked.
class ProposalCard final : public QFrame {
    Q_OBJECT

public:
    ProposalCard(const char* name, QWidget* parent = nullptr);

    QRadioButton& Option() const { return *option_; }
    void Show(const Proposal& proposal);

signals:
    /// Somebody has chosen it.
    void Chosen();

protected:
    void mouseReleaseEvent(QMouseEvent* event) override;
    void changeEvent(QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void ShowTitle();
    void ShowTexts();

    QRadioButton* option_;
    QLabel* before_;
    QLabel* after_;
    Proposal proposal_;
};

} // namespace quillshift::wizard
