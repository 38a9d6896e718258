#include "document/frmReplace.h"

#include <QComboBox>

namespace quillshift {

frmReplace::frmReplace(const DialogContext& context, Search& search)
    : SearchDialog(context, QStringLiteral("Найти и заменить"), search, search.ReplaceState()),
      state_(search.ReplaceState()),
      cmdReplace(AddSearchButton("cmdReplace", QStringLiteral("&Заменить"))),
      cmdReplaceAll(AddSearchButton("cmdReplaceAll", QStringLiteral("Заменить &все"))) {
    auto* const cboReplace =
        AddText("cboReplace", QStringLiteral("За&менить на:"), &SearchState::replacement);
    setTabOrder(findChild<QComboBox*>(QStringLiteral("cboFind")), cboReplace);
    setTabOrder(findChild<QPushButton*>(QStringLiteral("cmdFind")), cmdReplace);
    setTabOrder(cmdReplace, cmdReplaceAll);
    connect(cmdReplace, &QPushButton::clicked, this, [&search] { search.Replace(); });
    connect(cmdReplaceAll, &QPushButton::clicked, this, [&search] { search.ReplaceAll(); });
    ShowState();
}

void frmReplace::ShowState() {
    SearchDialog::ShowState();
    cmdReplace->setEnabled(state_.goesOn);
    cmdReplaceAll->setEnabled(state_.goesOn);
}

} // namespace quillshift
