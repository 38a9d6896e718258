#include "document/frmRecovery.h"

#include "platform/qt/QtText.h"

#include <QDateTime>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLocale>
#include <QTreeWidget>
#include <QVBoxLayout>

namespace quillshift {
namespace {

constexpr int kColumnGap = 16;

} // namespace

frmRecovery::frmRecovery(const DialogContext& context, RecoveredTexts& texts)
    : Dialog(context, QStringLiteral("Восстановление текста")),
      texts_(texts),
      list_(Add<QTreeWidget>("lstTexts")) {
    auto* label = Add<QLabel>("Label1", QStringLiteral("Эти тексты не были сохранены, когда работа программы "
                                                       "прервалась. Выберите текст и что с ним сделать."));
    label->setWordWrap(true);
    list_->setHeaderLabels({QStringLiteral("Документ"), QStringLiteral("Время"), QStringLiteral("Начало")});
    list_->setRootIsDecorated(false);
    list_->setUniformRowHeights(true);
    list_->header()->setStretchLastSection(true);
    auto* cmdRestore = AddButton("cmdRestore", QStringLiteral("Восстановить"));
    auto* cmdTrash = AddButton("cmdTrash", QStringLiteral("В корзину"));
    auto* cmdLater = AddButton("cmdLater", QStringLiteral("Позже"));
    cmdRestore->setDefault(true);
    cmdTrash->setAutoDefault(false);
    cmdLater->setAutoDefault(false);

    auto* buttons = new QHBoxLayout;
    buttons->addWidget(cmdTrash);
    buttons->addStretch();
    buttons->addWidget(cmdRestore);
    buttons->addWidget(cmdLater);
    auto* all = new QVBoxLayout(this);
    all->addWidget(label);
    all->addWidget(list_);
    all->addLayout(buttons);
    resize(560, 280);

    connect(list_, &QTreeWidget::itemDoubleClicked, this, &frmRecovery::Restore);
    connect(cmdRestore, &QPushButton::clicked, this, &frmRecovery::Restore);
    connect(cmdTrash, &QPushButton::clicked, this, &frmRecovery::ThrowAway);
    connect(cmdLater, &QPushButton::clicked, this, &QDialog::reject);
    FillList();
    list_->setFocus();
}

void frmRecovery::FillList() {
    list_->clear();
    for (std::size_t index = 0; index < texts_.Count(); ++index) {
        const RecoveredTexts::Entry entry = texts_.At(index);
        const QDateTime time = QDateTime::fromSecsSinceEpoch(entry.time);
        auto* item =
            new QTreeWidgetItem({ToQString(entry.name), QLocale().toString(time, QLocale::ShortFormat),
                                 ToQString(entry.firstLine)});
        item->setToolTip(0, ToQString(entry.path));
        list_->addTopLevelItem(item);
    }
    list_->setCurrentItem(list_->topLevelItem(0));
    for (const int column : {0, 1}) {
        list_->resizeColumnToContents(column);
        list_->setColumnWidth(column, list_->columnWidth(column) + kColumnGap);
    }
}

int frmRecovery::Chosen() const {
    return list_->indexOfTopLevelItem(list_->currentItem());
}

void frmRecovery::Restore() {
    if (Chosen() >= 0 && texts_.Restore(static_cast<std::size_t>(Chosen())))
        accept();
}

void frmRecovery::ThrowAway() {
    if (Chosen() < 0 || !texts_.ThrowAway(static_cast<std::size_t>(Chosen())))
        return;
    FillList();
    if (texts_.Count() == 0)
        reject();
}

} // namespace quillshift
