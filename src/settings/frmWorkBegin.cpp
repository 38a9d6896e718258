#include "settings/frmWorkBegin.h"

#include "platform/qt/Appearance.h"
#include "settings/DialogPicture.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QRadioButton>
#include <QVBoxLayout>

namespace quillshift {
namespace {

constexpr int kTextWidth = 420;

} // namespace

frmWorkBegin::frmWorkBegin(const DialogContext& context, StartChain& chain)
    : StartDialog(context, QStringLiteral("Morvane Quillshift 3.0 - Приступая к работе..."), chain,
                  DialogKind::WorkBegin) {
    auto* frame = Add<QGroupBox>("Frame1", QStringLiteral("Что вы хотите сделать:"));
    auto* rows = new QGridLayout(frame);
    rows->setColumnStretch(1, 1);
    AddOption(*rows, "optOpenDocument", QStringLiteral("Открыть документ"),
              QStringLiteral("Запустить программу и открыть существующий документ на диске."), true);
    auto* createNew = AddOption(*rows, "optCreateNewDocument", QStringLiteral("Создать новый документ"),
                                QStringLiteral("Запустить программу и создать новый документ."), false);
    createNew->setChecked(true); // and with it the chain's `OpenAtStart` is off

    auto* instruction = Add<QLabel>(
        "Label1", QStringLiteral("Пожалуйста выберите действие, которое выполнит программа сразу же после "
                                 "запуска и нажмите 'Ok'. Чтобы закрыть это окно без выполнения каких-либо "
                                 "действий и запустить программу нажмите 'Закрыть'."));
    instruction->setWordWrap(true);
    instruction->setFixedWidth(Larger(kTextWidth));
    auto* cmdOK = AddButton("cmdOK", QStringLiteral("Ok"));
    auto* cmdClose = AddButton("cmdClose", QStringLiteral("Закрыть"));
    cmdOK->setDefault(true);

    auto* buttons = new QHBoxLayout;
    buttons->addWidget(DoNotShowThisDialog());
    buttons->addStretch();
    buttons->addWidget(cmdOK);
    buttons->addWidget(cmdClose);
    auto* all = new QGridLayout(this);
    all->addWidget(DialogPicture(context.platform, u"WorkBegin"), 0, 0, 2, 1, Qt::AlignTop);
    all->addWidget(instruction, 0, 1);
    all->addWidget(frame, 1, 1);
    all->addLayout(buttons, 2, 0, 1, 2);
    all->setSizeConstraint(QLayout::SetFixedSize);
    createNew->setFocus();
    connect(cmdOK, &QPushButton::clicked, this, &frmWorkBegin::GoOn);
    connect(cmdClose, &QPushButton::clicked, this, &frmWorkBegin::Close);
}

QRadioButton* frmWorkBegin::AddOption(QGridLayout& rows, const char* name, const QString& caption,
                                      const QString& explanation, bool openAtStart) {
    auto* option = Add<QRadioButton>(name, caption);
    auto* beside = new QLabel(explanation);
    beside->setWordWrap(true);
    const int row = rows.rowCount();
    rows.addWidget(option, row, 0);
    rows.addWidget(beside, row, 1);
    connect(option, &QRadioButton::toggled, this, [this, openAtStart](bool chosen) {
        if (chosen)
            Chain().OpenAtStart = openAtStart;
    });
    return option;
}

void frmWorkBegin::Close() {
    Chain().OpenAtStart = false;
    GoOn();
}

} // namespace quillshift
