#include "controls/PagedDialog.h"

#include "controls/FittingArea.h"
#include "platform/qt/QtTabStrip.h"
#include "platform/qt/QtText.h"

#include <QStackedWidget>
#include <QVBoxLayout>

#include <algorithm>

namespace quillshift {

PagedDialog::PagedDialog(const DialogContext& context, const QString& title, const char* tabs,
                         std::span<const DialogPage> pages)
    : Dialog(context, title),
      rows_(pages),
      strip_(Add<QtTabStrip>(tabs)),
      tabs_(*strip_),
      pages_(new QStackedWidget),
      cmdApply(AddButton("cmdApply", QStringLiteral("Применить"))) {
    auto* all = new QVBoxLayout(this);
    all->addWidget(strip_);
    all->setSizeConstraint(QLayout::SetFixedSize);
    tabs_.TabClick = [this](int tab) { ShowTab(tab); };
    cmdApply->setEnabled(false);
    connect(cmdApply, &QPushButton::clicked, this, &PagedDialog::Apply);
}

// The tabs and the buttons stay in sight where a page has to scroll.
void PagedDialog::AddPage(QWidget* page) {
    constexpr int kLinesAround = 9;
    const DialogPage& row = rows_[static_cast<std::size_t>(pages_->count())];
    page->setObjectName(QLatin1String(row.panel));
    pages_->addWidget(new FittingArea(page, kLinesAround * fontMetrics().height()));
    tabs_.AddTab(row.caption, -1, -1, row.key, row.data);
}

void PagedDialog::AddButtons(const QString& reset, DialogButton* cancel) {
    tabs_.SelectTab(1);
    ShowTab(1);
    auto* inside = new QVBoxLayout(strip_);
    inside->setContentsMargins(0, 0, 0, 0);
    inside->addWidget(pages_);
    auto* cmdReset = AddButton("cmdReset", reset);
    auto* cmdOK = AddButton("cmdOK", QStringLiteral("OK"));
    cmdOK->setDefault(true);
    auto* buttons = new QHBoxLayout;
    buttons->addWidget(cmdReset);
    buttons->addStretch();
    buttons->addWidget(cmdOK);
    if (cancel != nullptr)
        buttons->addWidget(cancel);
    buttons->addWidget(cmdApply);
    static_cast<QVBoxLayout*>(layout())->addLayout(buttons);
    connect(cmdReset, &QPushButton::clicked, this, &PagedDialog::Reset);
    connect(cmdOK, &QPushButton::clicked, this, [this] {
        if (cmdApply->isEnabled())
            Apply();
        accept();
    });
}

// The tab is told by its caption, as a person reads it.
void PagedDialog::ShowTab(int tab) {
    const auto page = std::ranges::find(rows_, tabs_.TabText(tab), &DialogPage::caption);
    if (page != rows_.end())
        pages_->setCurrentIndex(static_cast<int>(page - rows_.begin()));
}

void PagedDialog::TurnTo(int tab) {
    if (tab == 0)
        return;
    tabs_.SelectTab(tab);
    ShowTab(tab);
}

void PagedDialog::Apply() {
    WriteFields();
    cmdApply->setEnabled(false);
}

void PagedDialog::Reset() {
    MessageBox& box = Context().platform.messageBox;
    if (box.Ask(u"Вы действительно хотите сбросить текущие параметры и установить параметры по умолчанию?") !=
        BoxAnswer::Yes)
        return;
    ApplyDefaults();
    box.Inform(u"Установлены параметры по умолчанию.");
}

} // namespace quillshift
