#include "document/frmPrinting.h"

#include "platform/qt/QtText.h"

#include <QCheckBox>
#include <QFormLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QVBoxLayout>

namespace quillshift {

frmPrinting::frmPrinting(const DialogContext& context, modPrint& print)
    : Dialog(context, QStringLiteral("Печать документа")), print_(print) {
    const auto wrapped = [this](const char* name, const QString& text) {
        auto* label = Add<QLabel>(name, text);
        label->setWordWrap(true);
        return label;
    };
    auto* information = new QGroupBox(QStringLiteral("Параметры печати:"));
    auto* rows = new QFormLayout(information);
    const PrintInformation told = print_.Information();
    AddInformation(*rows, "lblDefaultPrinter", QStringLiteral("Принтер:"), told.printer);
    AddInformation(*rows, "lblPrintQuality", QStringLiteral("Качество печати:"), told.quality);
    AddInformation(*rows, "lblPrintColor", QStringLiteral("Тип печати:"), told.colours);
    AddInformation(*rows, "lblOrientation", QStringLiteral("Ориентация:"), told.orientation);
    AddInformation(*rows, "lblCopies", QStringLiteral("Количество копий:"), told.copies);
    AddInformation(*rows, "lblPaperSize", QStringLiteral("Размер бумаги:"), told.paper);
    auto* chkDonotShowThisDialog =
        Add<QCheckBox>("chkDonotShowThisDialog", QStringLiteral("&Не показывать больше это сообщение"));
    auto* cmdPrint = AddButton("cmdPrint", QStringLiteral("&Печать"));
    auto* cmdClose = AddButton("cmdClose", QStringLiteral("&Закрыть"));

    auto* buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(cmdPrint);
    buttons->addWidget(cmdClose);
    auto* all = new QVBoxLayout(this);
    all->addWidget(
        wrapped("lblPaper", QStringLiteral("Вставьте чистый лист бумаги в лоток для подачи бумаги и "
                                           "нажмите 'Печать'. Чтобы закрыть это окно нажмите "
                                           "'Закрыть'.")));
    all->addWidget(information);
    all->addWidget(wrapped("lblSettings", QStringLiteral("Вы можете настроить параметры печати в параметрах "
                                                         "программы.")));
    all->addWidget(chkDonotShowThisDialog);
    all->addLayout(buttons);
    all->setSizeConstraint(QLayout::SetFixedSize);
    information->setMinimumWidth(fontMetrics().averageCharWidth() * 64);

    cmdPrint->setDefault(true);
    cmdPrint->setFocus();
    connect(chkDonotShowThisDialog, &QCheckBox::toggled, this,
            [this](bool ticked) { print_.ShowDialogBefore(!ticked); });
    connect(cmdPrint, &QPushButton::clicked, this, &frmPrinting::Print);
    connect(cmdClose, &QPushButton::clicked, this, &QDialog::reject);
}

void frmPrinting::AddInformation(QFormLayout& rows, const char* name, const QString& label,
                                 const std::u16string& text) {
    auto* shown = Add<QLabel>(name, ToQString(text));
    shown->setTextFormat(Qt::PlainText);
    rows.addRow(new QLabel(label), shown); // there is nothing to go to by a letter
}

void frmPrinting::Print() {
    print_.Confirm();
    accept();
}

} // namespace quillshift
