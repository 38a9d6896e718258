#include "settings/frmSettings.h"

#include "base/Texts.h"
#include "platform/qt/QtText.h"
#include "recoding/modDecode.h"

#include <QCheckBox>
#include <QComboBox>
#include <QGridLayout>
#include <QLineEdit>
#include <QRadioButton>
#include <QSignalBlocker>

#include <array>

namespace quillshift {
namespace {

constexpr std::array kPages{DialogPage{u"Общие", u"GENERAL", 1000, "picGeneral"},
                            DialogPage{u"Перекодирование", u"DECODE", 2000, "picDecode"},
                            DialogPage{u"Вид", u"VIEW", 3000, "picView"},
                            DialogPage{u"Сохранение", u"SAVING", 4000, "picSave"},
                            DialogPage{u"Шрифт", u"FONT", 5000, "picFont"},
                            DialogPage{u"Печать", u"PRINT", 6000, "picPrint"},
                            DialogPage{u"Блокировка", u"LOCKED", 7000, "picLocked"},
                            DialogPage{u"Звуки", u"SOUNDS", 8000, "picSounds"}};

constexpr std::array kPapers{u"A3 297 x 420 мм", u"A4 210 x 297 мм", u"A5 148 x 210 мм", u"B4 250 x 354 мм",
                             u"B5 182 x 257 мм"};

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

frmSettings::frmSettings(const DialogContext& context, TextSurface& document, modPrint& print,
                         std::unique_ptr<FolderDialog> folders)
    : PagedDialog(context, QStringLiteral("Параметры программы"), "tabSettings", kPages),
      document_(document),
      print_(print),
      folders_(std::move(folders)),
      form_(Context(), SettingFields()),
      printers_(Context(), form_, Context().platform.printers),
      fonts_(Context(), form_, *this),
      timerClipboard_(Dependency(&frmSettings::FollowClipboard)),
      timerBackup_(Dependency(&frmSettings::FollowBackup)),
      timerSounds_(Dependency(&frmSettings::FollowSounds)),
      timerLocked_(Dependency(&frmSettings::FollowPassword)) {
    StayAtEscape();
    for (std::size_t page = 0; page < kPages.size(); ++page)
        AddPage(form_.MakePage(static_cast<SettingPage>(page),
                               [this](auto frame, QGridLayout& rows) { AddToFrame(frame, rows); }));
    auto* cmdCancel = AddButton("cmdCancel", QStringLiteral("Отмена"));
    connect(cmdCancel, &QPushButton::clicked, this, &QDialog::reject);
    AddButtons(QStringLiteral("Сбросить все"), cmdCancel);
    FillLists();
    form_.Load();
    printers_.Load();
    fonts_.Load();
    FollowPassword();
    ConnectFields();
    StartDependencies();
    print_.Attach(*this);
}

frmSettings::~frmSettings() {
    print_.Detach(*this);
}

// --- What it shows

// What stands on the pages besides fields.
void frmSettings::AddToFrame(std::u16string_view frame, QGridLayout& rows) {
    const int row = rows.rowCount();
    if (frame == u"Установленные принтеры:") {
        printers_.AddTo(rows, Add<QLabel>("lblDefaultPrinter"),
                        AddButton("cmdPrintersAndFaxs", QStringLiteral("Принтеры и факсы")),
                        AddButton("cmdPrinterSetup", QStringLiteral("Установка принтера")));
    } else if (frame == u"Образец:") {
        fonts_.AddTo(rows, Add<QLabel>("lblExample", QStringLiteral("Образец текста")));
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
}

void frmSettings::ConnectFields() {
    connect(&form_, &SettingForm::Edited, this, [this] { NoteEdit(); });
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

PrintBoxTexts frmSettings::Boxes() const {
    printers_.MakeCurrent();
    const auto text = [this](const char* name) { return FromQString(form_.At<QLineEdit>(name).text()); };
    return {.left = text("txtLeft"),
            .top = text("txtTop"),
            .right = text("txtWidth"),
            .bottom = text("txtHeight"),
            .copies = text("txtCopies")};
}

void frmSettings::WriteFields() {
    form_.ApplyChoices();
    printers_.Apply();
    form_.ApplyTexts();
    SurfaceFont font = document_.Font();
    if (const QString name = form_.At<QComboBox>("cboFontName").currentText(); !name.isEmpty())
        font.name = FromQString(name);
    if (const float size = NumberIn(ViewOf(form_.At<QComboBox>("cboFontSize").currentText())); size > 0)
        font.points = size;
    document_.SetFont(font);
    timerLocked_->StartOnce();
    timerSounds_->StartOnce();
}

// The questions run events, but what depends on the fields follows when all is applied.
void frmSettings::ApplyDefaults() {
    isResetting_ = true;
    form_.Reset();
    printers_.Choose();
    ResetSounds();
    Apply();
    isResetting_ = false;
    StartDependencies();
    timerLocked_->StartOnce();
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
