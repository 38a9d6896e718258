#include "settings/frmWelcome.h"

#include "platform/qt/Appearance.h"
#include "settings/DialogPicture.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QLabel>

namespace quillshift {
namespace {

constexpr int kTextWidth = 420;

} // namespace

frmWelcome::frmWelcome(const DialogContext& context, StartChain& chain)
    : StartDialog(context, QStringLiteral("Morvane Quillshift 3.0 - Приветствие..."), chain,
                  DialogKind::Welcome) {
    auto* lblWelcome = Add<QLabel>(
        "lblWelcome",
        QStringLiteral(
            "Добро Пожаловать в программу Morvane Quillshift. Эта программа предназначена для "
            "перекодирования текста (текстовых файлов). Программа поддерживает пять различных кодировок "
            "DOS 866, WINDOWS 1251, ISO 8859-5, UNIX KOI-8, MAC Apple. Программа также может быть "
            "использована для восстановления русских текстов, испорченных в процессе передачи по электроной "
            "почте, а также для перекодирования собственных текстов. Кроме того при помощи данного "
            "конвертера можно как создавать новые, так и редактировать уже созданные текстовые документы. "
            "Имеется возможность внедрять данные из других документов в документ программы."));
    lblWelcome->setWordWrap(true);
    lblWelcome->setFixedWidth(Larger(kTextWidth));
    auto* cmdContinue = AddButton("cmdContinue", QStringLiteral("Продолжить"));
    cmdContinue->setDefault(true);

    auto* all = new QGridLayout(this);
    all->addWidget(DialogPicture(context.platform, u"Welcome"), 0, 0, Qt::AlignTop);
    all->addWidget(lblWelcome, 0, 1, 1, 2);
    all->addWidget(DoNotShowThisDialog(), 1, 1);
    all->addWidget(cmdContinue, 1, 2, Qt::AlignRight);
    all->setSizeConstraint(QLayout::SetFixedSize);
    connect(cmdContinue, &QPushButton::clicked, this, &frmWelcome::GoOn);
    cmdContinue->setFocus();
}

} // namespace quillshift
