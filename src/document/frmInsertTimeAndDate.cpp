#include "document/frmInsertTimeAndDate.h"

#include "document/TimeAndDate.h"
#include "platform/qt/QtText.h"

#include <QCheckBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QVBoxLayout>

namespace quillshift {

frmInsertTimeAndDate::frmInsertTimeAndDate(const DialogContext& context, TextSurface& document)
    : Dialog(context, QStringLiteral("Время и дата")),
      document_(document),
      lstDates(Add<QListWidget>("lstDates")),
      chkAutoUpdate(Add<QCheckBox>("chkAutoUpdate", QStringLiteral("&Автоматически обновлять"))),
      txtUpdate(Add<QLineEdit>("txtUpdate", this)) {
    txtUpdate->hide();
    txtUpdate->setAccessibleName(QStringLiteral("Номер формата"));
    auto* formats = Add<QLabel>("lblFormats", QStringLiteral("&Доступные форматы:"));
    formats->setBuddy(lstDates);
    auto* cmdInsert = AddButton("cmdInsert", QStringLiteral("&Вставить"));
    auto* cmdClose = AddButton("cmdClose", QStringLiteral("&Закрыть"));

    auto* buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(cmdInsert);
    buttons->addWidget(cmdClose);
    auto* all = new QVBoxLayout(this);
    all->addWidget(formats);
    all->addWidget(lstDates);
    all->addWidget(chkAutoUpdate);
    all->addLayout(buttons);
    all->setSizeConstraint(QLayout::SetFixedSize);

    FillDates();
    // All rows at once, the longest of them, and the title above.
    lstDates->setFixedSize(lstDates->sizeHintForColumn(0) + fontMetrics().averageCharWidth() * 18,
                           lstDates->sizeHintForRow(0) * lstDates->count() + 2 * lstDates->frameWidth());
    cmdInsert->setDefault(true);
    connect(cmdInsert, &QPushButton::clicked, this, &frmInsertTimeAndDate::Insert);
    connect(lstDates, &QListWidget::itemDoubleClicked, this, &frmInsertTimeAndDate::Insert);
    connect(cmdClose, &QPushButton::clicked, this, &QDialog::reject);
}

void frmInsertTimeAndDate::FillDates() {
    lstDates->clear();
    for (const std::u16string& text : TimeAndDateTexts(Context().platform.clock))
        lstDates->addItem(ToQString(text));
    lstDates->setCurrentRow(-1);
}

void frmInsertTimeAndDate::Update() {
    const auto chosen = lstDates->selectedItems();
    txtUpdate->setText(QString::number(chosen.isEmpty() ? -1 : lstDates->row(chosen.front())));
    FillDates();
    lstDates->setCurrentRow(txtUpdate->text().toInt());
}

void frmInsertTimeAndDate::Insert() {
    if (chkAutoUpdate->isChecked())
        Update();
    const auto chosen = lstDates->selectedItems();
    if (chosen.isEmpty()) {
        Context().platform.messageBox.Inform(u"Выберите необходимый формат!");
        return;
    }
    document_.SetSelText(FromQString(chosen.front()->text()));
    accept();
}

} // namespace quillshift
