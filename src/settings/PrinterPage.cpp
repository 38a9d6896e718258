#include "settings/PrinterPage.h"

#include "base/Texts.h"
#include "document/modPrint.h"
#include "platform/qt/Appearance.h"
#include "platform/qt/PrinterTools.h"
#include "platform/qt/QtText.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QListWidget>
#include <QSignalBlocker>

namespace quillshift {
namespace {

constexpr int kListHeight = 84;

} // namespace

PrinterPage::PrinterPage(const DialogContext& context, SettingForm& form, Printers& printers)
    : context_(context), form_(form), printers_(printers) {}

PrinterPage::~PrinterPage() {
    printers_.OnNames = nullptr;
}

void PrinterPage::AddTo(QGridLayout& rows, QLabel* defaultPrinter, DialogButton* folder,
                        DialogButton* setup) {
    lblDefaultPrinter = defaultPrinter;
    List().setFixedHeight(Larger(kListHeight));
    List().setAccessibleName(QStringLiteral("Установленные принтеры"));
    auto* buttons = new QHBoxLayout;
    buttons->addWidget(folder);
    buttons->addWidget(setup);
    buttons->addStretch();
    const int row = rows.rowCount();
    rows.addWidget(lblDefaultPrinter, row, 0, 1, 3);
    rows.addLayout(buttons, row + 1, 0, 1, 3);
    connect(folder, &QPushButton::clicked, this, [this] { OpenTool(false); });
    connect(setup, &QPushButton::clicked, this, [this] { OpenTool(true); });
}

QListWidget& PrinterPage::List() const {
    return form_.At<QListWidget>("lstPrinters");
}

void PrinterPage::Load() {
    Fill(printers_.Names());
    MakeCurrent();
    printers_.OnNames = [this](const std::vector<std::u16string>& names) { Fill(names); };
    connect(&List(), &QListWidget::currentRowChanged, this, &PrinterPage::Choose);
    connect(&List(), &QListWidget::itemClicked, this, &PrinterPage::Choose);
}

void PrinterPage::Choose() {
    isChosen_ = true;
    MakeCurrent();
    ShowDefault();
}

// No edit, whenever it comes; and what was chosen before a late answer stays. That one changes no printer
// under a document on its way to it.
void PrinterPage::Fill(const std::vector<std::u16string>& names) {
    QListWidget& list = List();
    const QSignalBlocker quiet(list);
    const QString chosen = isChosen_ ? ChosenName() : QString();
    list.clear();
    for (const std::u16string& name : names)
        list.addItem(ToQString(name));
    const auto kept = list.findItems(chosen, Qt::MatchExactly);
    if (kept.isEmpty())
        list.setCurrentRow(StoredPrinter(context_.settings, names));
    else
        list.setCurrentItem(kept.front());
    for (const SettingField& field : SettingFields())
        if (field.Has(setting_flag::kNeedsPrinter))
            form_.At(field.name).setEnabled(!names.empty());
    ShowDefault();
}

QString PrinterPage::ChosenName() const {
    const QListWidgetItem* chosen = List().currentItem();
    return chosen == nullptr ? QString() : chosen->text();
}

void PrinterPage::MakeCurrent() const {
    printers_.MakeCurrent(ViewOf(ChosenName()));
}

void PrinterPage::ShowDefault() {
    lblDefaultPrinter->setText(QStringLiteral("Принтер по умолчанию: ") + ChosenName());
}

// A server that is down tells of no printers: then the list shows another one than the stored, which stays.
void PrinterPage::Apply() {
    const std::u16string stored = context_.settings.Text(Setting::PrinterName);
    const bool isMissing = List().count() > 0 && !stored.empty() && stored != ViewOf(ChosenName());
    if (!printers_.AreKnown() || (isMissing && !isChosen_))
        return;
    context_.settings.Set(Setting::Printers, WholeNumberText(List().currentRow()));
    context_.settings.Set(Setting::PrinterName, ViewOf(ChosenName()));
    ShowDefault();
}

// The print system's own page comes last: it asks for a password that few people know.
void PrinterPage::OpenTool(bool toAdd) {
    const auto* const page = toAdd ? u"http://localhost:631/admin" : u"http://localhost:631/printers";
    if (!StartPrinterTool(toAdd) && !context_.platform.shell.OpenWithDefault(page))
        context_.platform.messageBox.Inform(u"Не найдена программа для управления принтерами.");
}

} // namespace quillshift
