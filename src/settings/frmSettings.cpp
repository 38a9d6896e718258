#include "settings/frmSettings.h"

#include "base/Texts.h"
#include "platform/qt/QtTabStrip.h"
#include "platform/qt/QtText.h"
#include "recoding/modDecode.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFontDatabase>
#include <QGridLayout>
#include <QLineEdit>
#include <QListWidget>
#include <QRadioButton>
#include <QSignalBlocker>
#include <QStackedWidget>

#include <algorithm>
#include <array>

namespace quillshift {
namespace {

struct PageRow {
    std::u16string_view caption;
    std::u16string_view key;
    int data;
    const char* panel;
};
constexpr std::array kPages{PageRow{u"Общие", u"GENERAL", 1000, "picGeneral"},
                            PageRow{u"Перекодирование", u"DECODE", 2000, "picDecode"},
                            PageRow{u"Вид", u"VIEW", 3000, "picView"},
                            PageRow{u"Сохранение", u"SAVING", 4000, "picSave"},
                            PageRow{u"Шрифт", u"FONT", 5000, "picFont"},
                            PageRow{u"Печать", u"PRINT", 6000, "picPrint"},
                            PageRow{u"Блокировка", u"LOCKED", 7000, "picLocked"},
                            PageRow{u"Звуки", u"SOUNDS", 8000, "picSounds"}};

constexpr std::array kPapers{u"A3 297 x 420 мм", u"A4 210 x 297 мм", u"A5 148 x 210 мм", u"B4 250 x 354 мм",
                             u"B5 182 x 257 мм"};
constexpr std::array kFontSizes{8, 10, 12, 14, 16, 18, 20, 22, 24, 26, 28, 36};

/// The controls of a sound: its box, its path and the button behind that.
struct SoundRow {
    const char* box;
    const char* path;
    const char* browse;
};
constexpr std::array kSoundRows{
    SoundRow{"chkButtonMouseMove", "txtButtonMouseMove", "cmdBrowseButtonMouseMove"},
    SoundRow{"chkButtonMouseClick", "txtButtonMouseClick", "cmdBrowseButtonMouseClick"},
    SoundRow{"chkFormLoad", "txtFormLoad", "cmdBrowseFormLoad"},
    SoundRow{"chkFormUnload", "txtFormUnload", "cmdBrowseFormUnload"},
    SoundRow{"chkKeyDown", "txtKeyDown", "cmdBrowseKeyDown"}};
static_assert(kSoundRows.size() == kSoundEvents.size());

constexpr unsigned kFoldersWithFiles = 1 | FolderDialog::kListFiles;
constexpr std::chrono::milliseconds kFontsAfter(10);
constexpr int kSampleHeight = 60;
constexpr int kPrinterListHeight = 84;

QLabel* Note(const QString& text) {
    auto* note = new QLabel(text);
    note->setWordWrap(true);
    return note;
}

// Options of one frame are never all off by themselves.
void SwitchOff(QAbstractButton& button) {
    const QSignalBlocker quiet(button);
    button.setAutoExclusive(false);
    button.setChecked(false);
    button.setAutoExclusive(qobject_cast<QRadioButton*>(&button) != nullptr);
}

} // namespace

frmSettings::frmSettings(const DialogContext& context, TextSurface& document, Printers& printers,
                         std::unique_ptr<FolderDialog> folders)
    : Dialog(context, QStringLiteral("Параметры программы")),
      form_(Context(), SettingFields()),
      document_(document),
      printers_(printers),
      folders_(std::move(folders)),
      strip_(Add<QtTabStrip>("tabSettings")),
      tabSettings_(*strip_),
      pages_(new QStackedWidget),
      cmdApply(AddButton("cmdApply", QStringLiteral("Применить"))),
      timerClipboard_(Dependency(&frmSettings::FollowClipboard)),
      timerBackup_(Dependency(&frmSettings::FollowBackup)),
      timerSounds_(Dependency(&frmSettings::FollowSounds)),
      timerLocked_(Dependency(&frmSettings::FollowPassword)),
      timerFonts_(Context().platform.timers.Make([this] { FillFonts(); })) {
    StayAtEscape();
    AddPages(*pages_);
    auto* inside = new QVBoxLayout(strip_);
    inside->setContentsMargins(0, 0, 0, 0);
    inside->addWidget(pages_);
    auto* cmdReset = AddButton("cmdReset", QStringLiteral("Сбросить все"));
    auto* cmdOK = AddButton("cmdOK", QStringLiteral("OK"));
    auto* cmdCancel = AddButton("cmdCancel", QStringLiteral("Отмена"));
    cmdOK->setDefault(true);
    auto* buttons = new QHBoxLayout;
    buttons->addWidget(cmdReset);
    buttons->addStretch();
    for (auto* button : {cmdOK, cmdCancel, cmdApply})
        buttons->addWidget(button);
    auto* all = new QVBoxLayout(this);
    all->addWidget(strip_);
    all->addLayout(buttons);
    all->setSizeConstraint(QLayout::SetFixedSize);

    tabSettings_.SelectTab(1);
    ShowTab(1);
    FillLists();
    FillPrinters();
    form_.Load();
    FollowPassword();
    ChoosePrinter();
    ConnectFields();
    connect(cmdOK, &QPushButton::clicked, this, [this] {
        if (cmdApply->isEnabled())
            Apply();
        accept();
    });
    connect(cmdCancel, &QPushButton::clicked, this, &QDialog::reject);
    connect(cmdApply, &QPushButton::clicked, this, &frmSettings::Apply);
    connect(cmdReset, &QPushButton::clicked, this, &frmSettings::Reset);
    StartDependencies();
    timerFonts_->StartOnce(kFontsAfter);
    cmdApply->setEnabled(false);
}

frmSettings::~frmSettings() {
    printers_.OnNames = nullptr;
}

// --- What it shows

void frmSettings::AddPages(QStackedWidget& pages) {
    for (std::size_t i = 0; i < kPages.size(); ++i) {
        const PageRow& row = kPages[i];
        QWidget* page = form_.MakePage(static_cast<SettingPage>(i),
                                       [this](auto frame, QGridLayout& rows) { AddToFrame(frame, rows); });
        page->setObjectName(QLatin1String(row.panel));
        pages.addWidget(page);
        tabSettings_.AddTab(row.caption, -1, -1, row.key, row.data);
    }
    tabSettings_.TabClick = [this](int tab) { ShowTab(tab); };
}

// What stands on the pages besides fields.
void frmSettings::AddToFrame(std::u16string_view frame, QGridLayout& rows) {
    const int row = rows.rowCount();
    if (frame == u"Установленные принтеры:") {
        form_.At("lstPrinters").setFixedHeight(kPrinterListHeight);
        lblDefaultPrinter = Add<QLabel>("lblDefaultPrinter");
        auto* folder = AddButton("cmdPrintersAndFaxs", QStringLiteral("Принтеры и факсы"));
        auto* setup = AddButton("cmdPrinterSetup", QStringLiteral("Установка принтера"));
        auto* buttons = new QHBoxLayout;
        buttons->addWidget(folder);
        buttons->addWidget(setup);
        buttons->addStretch();
        rows.addWidget(lblDefaultPrinter, row, 0, 1, 3);
        rows.addLayout(buttons, row + 1, 0, 1, 3);
        connect(folder, &QPushButton::clicked, this, [this] { OpenPrinterTool(u"printers"); });
        connect(setup, &QPushButton::clicked, this, [this] { OpenPrinterTool(u"admin"); });
    } else if (frame == u"Образец:") {
        lblExample = Add<QLabel>("lblExample", QStringLiteral("Образец текста"));
        lblExample->setTextFormat(Qt::PlainText);
        lblExample->setAlignment(Qt::AlignCenter);
        lblExample->setFixedHeight(kSampleHeight);
        lblExample->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
        rows.addWidget(lblExample, row, 0, 1, 3);
    } else if (frame == u"Блокировка:") {
        rows.addWidget(
            Note(QStringLiteral(
                "Помните, как были введены заглавные буквы (если имеются) в пароле, и вводите их таким же "
                "образом при каждом выходе из режима блокировки. Пароли вводятся с учетом регистра. Если при "
                "вводе пароля он был отклонен, убедитесь, что отключен режим Caps Lock.")),
            row, 0, 1, 3);
    } else if (frame == u"Подсказка:") {
        rows.addWidget(
            Note(QStringLiteral("Введите слово или фразу, служащую подсказкой о пароле. Подсказка о "
                                "пароле помогает вам вспомнить свой пароль.")),
            row, 0, 1, 3);
    } else if (frame == u"Дополнительные эффекты:") {
        auto* cmdSoundsDefault = AddButton("cmdSoundsDefault", QStringLiteral("По умолчанию"));
        rows.addWidget(cmdSoundsDefault, row, 0, 1, 3, Qt::AlignRight);
        connect(cmdSoundsDefault, &QPushButton::clicked, this, &frmSettings::ResetSounds);
    }
}

void frmSettings::FillLists() {
    for (int number = 0; number < kDirections; ++number)
        form_.At<QComboBox>("cmbCode").addItem(ToQString(DirectionName(DirectionOf(number))));
    for (const auto* paper : kPapers)
        form_.At<QComboBox>("cmbPaperSize").addItem(ToQString(paper));
    for (const int size : kFontSizes)
        form_.At<QComboBox>("cboFontSize").addItem(QString::number(size));
}

// The tab is told by its caption, as a person reads it.
void frmSettings::ShowTab(int tab) {
    const auto page = std::ranges::find(kPages, tabSettings_.TabText(tab), &PageRow::caption);
    if (page != kPages.end())
        pages_->setCurrentIndex(static_cast<int>(page - kPages.begin()));
}

void frmSettings::TurnTo(int tab) {
    if (tab == 0)
        return;
    tabSettings_.SelectTab(tab);
    ShowTab(tab);
}

void frmSettings::ConnectFields() {
    connect(&form_, &SettingForm::Edited, this, [this] { cmdApply->setEnabled(true); });
    connect(&form_, &SettingForm::Browse, this, [this](const SettingField& field) {
        if (field.Has(setting_flag::kFolder))
            BrowseFolder(field);
        else
            BrowseSound(field);
    });
    const auto follow = [this](const char* box, Timer& timer) {
        connect(&form_.At<QAbstractButton>(box), &QAbstractButton::toggled, this,
                [&timer] { timer.StartOnce(); });
    };
    follow("chkClipboardDetect", *timerClipboard_);
    follow("chkCreateBackup", *timerBackup_);
    for (const SoundRow& row : kSoundRows)
        follow(row.box, *timerSounds_);
    const auto allowFolder = [this](bool on) {
        form_.At("txtPathBackupFolder").setEnabled(on);
        form_.At("cmdBrowseBackupFolder").setEnabled(on);
    };
    auto& inFolder = form_.At<QRadioButton>("optCreateBackupInCustomFolder");
    connect(&inFolder, &QRadioButton::toggled, this, allowFolder);
    allowFolder(inFolder.isChecked());
    connect(&form_.At<QListWidget>("lstPrinters"), &QListWidget::currentRowChanged, this,
            &frmSettings::ChoosePrinter);
    connect(&form_.At<QComboBox>("cboFontName"), &QComboBox::textActivated, this,
            [this](const QString& name) {
                QFont font = lblExample->font();
                font.setFamily(name);
                lblExample->setFont(font);
            });
    connect(&form_.At<QComboBox>("cboFontSize"), &QComboBox::textActivated, this,
            [this](const QString& size) {
                QFont font = lblExample->font();
                font.setPointSizeF(size.toDouble());
                lblExample->setFont(font);
            });
    auto& txtExample = form_.At<QLineEdit>("txtExample");
    connect(&txtExample, &QLineEdit::textChanged, this, [this, &txtExample](const QString& text) {
        lblExample->setText(text);
        lblExample->setFont(txtExample.font());
    });
    lblExample->setText(txtExample.text());
    QFont font(form_.At<QComboBox>("cboFontName").currentText());
    if (const float size = Context().settings.Number(Setting::FontSize); size > 0)
        font.setPointSizeF(static_cast<double>(size));
    lblExample->setFont(font);
}

// --- Printers

// The stored name finds its printer also where the list has grown; then the stored position counts.
void frmSettings::FillPrinters() {
    const auto fill = [this] {
        auto& list = form_.At<QListWidget>("lstPrinters");
        const QSignalBlocker quiet(list);
        list.clear();
        for (const std::u16string& name : printers_.Names())
            list.addItem(ToQString(name));
        for (const SettingField& field : SettingFields())
            if (field.Has(setting_flag::kNeedsPrinter))
                form_.At(field.name).setEnabled(list.count() > 0);
    };
    fill();
    printers_.OnNames = [this, fill] {
        fill();
        ChoosePrinter();
    };
}

void frmSettings::ChoosePrinter() {
    auto& list = form_.At<QListWidget>("lstPrinters");
    const QSignalBlocker quiet(list);
    if (sender() != &list) {
        const auto named =
            list.findItems(ToQString(Context().settings.Text(Setting::PrinterName)), Qt::MatchExactly);
        const int stored = static_cast<int>(Context().settings.Number(Setting::Printers));
        if (!named.isEmpty())
            list.setCurrentItem(named.front());
        else
            list.setCurrentRow(stored >= 0 && stored < list.count() ? stored : std::min(0, list.count() - 1));
    }
    const QString name = list.currentItem() == nullptr ? QString() : list.currentItem()->text();
    if (!name.isEmpty())
        printers_.MakeCurrent(ViewOf(name));
    lblDefaultPrinter->setText(QStringLiteral("Принтер по умолчанию: ") + name);
}

void frmSettings::ApplyPrinter() {
    if (!printers_.AreKnown())
        return;
    const auto& list = form_.At<QListWidget>("lstPrinters");
    const QString name = list.currentItem() == nullptr ? QString() : list.currentItem()->text();
    Context().settings.Set(Setting::Printers, WholeNumberText(list.currentRow()));
    Context().settings.Set(Setting::PrinterName, ViewOf(name));
    lblDefaultPrinter->setText(QStringLiteral("Принтер по умолчанию: ") + name);
}

void frmSettings::OpenPrinterTool(std::u16string_view page) {
    Shell& shell = Context().platform.shell;
    if (shell.StartProcess(u"system-config-printer") ||
        shell.OpenWithDefault(u"http://localhost:631/" + std::u16string(page)))
        return;
    Context().platform.messageBox.Inform(u"Не найдена программа для управления принтерами.");
}

// --- What follows from other fields

std::unique_ptr<Timer> frmSettings::Dependency(void (frmSettings::*follow)()) {
    return Context().platform.timers.Make([this, follow] {
        if (!isResetting_)
            (this->*follow)();
    });
}

void frmSettings::StartDependencies() {
    for (Timer* timer : {timerSounds_.get(), timerBackup_.get(), timerClipboard_.get()})
        timer->StartOnce();
}

void frmSettings::FillFonts() {
    setCursor(Qt::WaitCursor);
    auto& cboFontName = form_.At<QComboBox>("cboFontName");
    cboFontName.clear();
    cboFontName.addItems(QFontDatabase::families());
    unsetCursor();
    cboFontName.setEditText(ToQString(Context().settings.Text(Setting::FontName)));
}

void frmSettings::FollowClipboard() {
    const bool on = form_.At<QCheckBox>("chkClipboardDetect").isChecked();
    for (const auto* name : {"chkDecodeClipboard", "chkClipboardText"}) {
        auto& box = form_.At<QCheckBox>(name);
        box.setEnabled(on);
        if (!on)
            SwitchOff(box);
    }
}

void frmSettings::FollowBackup() {
    const bool on = form_.At<QCheckBox>("chkCreateBackup").isChecked();
    for (const auto* name : {"optCreateBackupInOriginalFileFolder", "optCreateBackupInCustomFolder"}) {
        auto& option = form_.At<QRadioButton>(name);
        option.setEnabled(on);
        if (!on)
            SwitchOff(option);
    }
    if (on)
        return;
    form_.At("txtPathBackupFolder").setEnabled(false);
    form_.At("cmdBrowseBackupFolder").setEnabled(false);
}

void frmSettings::FollowSounds() {
    bool any = false;
    for (const SoundRow& row : kSoundRows) {
        const bool on = form_.At<QCheckBox>(row.box).isChecked();
        form_.At(row.path).setEnabled(on);
        form_.At(row.browse).setEnabled(on);
        any = any || on;
    }
    findChild<QWidget*>(QStringLiteral("cmdSoundsDefault"))->setEnabled(any);
}

void frmSettings::FollowPassword() {
    form_.At<QLineEdit>("txtPassword")
        .setEchoMode(Context().settings.Is(Setting::DoNotShowPassword) ? QLineEdit::Password
                                                                       : QLineEdit::Normal);
}

// --- What it writes and asks for

void frmSettings::Apply() {
    form_.ApplyChoices();
    ApplyPrinter();
    form_.ApplyTexts();
    SurfaceFont font = document_.Font();
    if (const QString name = form_.At<QComboBox>("cboFontName").currentText(); !name.isEmpty())
        font.name = FromQString(name);
    if (const float size = NumberIn(ViewOf(form_.At<QComboBox>("cboFontSize").currentText())); size > 0)
        font.points = size;
    document_.SetFont(font);
    timerLocked_->StartOnce();
    timerSounds_->StartOnce();
    cmdApply->setEnabled(false);
}

// The questions run events, but what depends on the fields follows when all is applied.
void frmSettings::Reset() {
    MessageBox& box = Context().platform.messageBox;
    if (box.Ask(u"Вы действительно хотите сбросить текущие параметры и установить параметры по умолчанию?") !=
        BoxAnswer::Yes)
        return;
    isResetting_ = true;
    form_.Reset();
    ResetSounds();
    Apply();
    isResetting_ = false;
    StartDependencies();
    timerLocked_->StartOnce();
    box.Inform(u"Установлены параметры по умолчанию.");
}

void frmSettings::ResetSounds() {
    MessageBox& box = Context().platform.messageBox;
    if (box.Ask(u"Вы действительно хотите установить звуки по умолчанию?") != BoxAnswer::Yes)
        return;
    const std::u16string folder = Context().platform.shell.ProgramFolder() + u"/Sounds/";
    for (std::size_t i = 0; i < kSoundRows.size(); ++i)
        if (form_.At<QCheckBox>(kSoundRows[i].box).isChecked())
            form_.At<QLineEdit>(kSoundRows[i].path)
                .setText(ToQString(folder + std::u16string(kSoundEvents[i].defaultFile)));
    Apply();
    box.Inform(u"Установлены звуки по умолчанию.");
}

// A cancelled choice puts the folder chosen before into the field, or none.
void frmSettings::BrowseFolder(const SettingField& field) {
    folders_->DialogTitle = field.setting == Setting::FolderDocuments
                                ? u"Выберите папку для хранения документов ..."
                                : u"Выберите папку для хранения резервных копий ...";
    folders_->flags = kFoldersWithFiles;
    folders_->ShowFolder();
    form_.Choose(field.name, ToQString(folders_->InitDir));
}

// The dialog is the document's, whose name has to stay in it.
void frmSettings::BrowseSound(const SettingField& field) {
    FileDialog& dialog = Context().platform.fileDialog;
    const auto document = std::pair(dialog.FileName, dialog.FileTitle);
    Context().platform.messageBox.Attempt([&] {
        dialog.Filter = u"Wav файлы (*.wav)|*.wav|";
        dialog.DefaultExt = u"*.wav";
        dialog.DialogTitle = u"Выберите файл...";
        dialog.InitDir = Context().settings.Text(Setting::FolderDocuments);
        dialog.FileName.clear();
        if (dialog.ShowOpen())
            form_.Choose(field.name, ToQString(dialog.FileName));
    });
    std::tie(dialog.FileName, dialog.FileTitle) = document;
}

} // namespace quillshift
