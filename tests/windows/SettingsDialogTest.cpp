#include "base/Utf8.h"
#include "harness/TemporaryFolder.h"
#include "platform/qt/QtTabStrip.h"
#include "settings/frmSettings.h"
#include "shell/ProgramDialogs.h"
#include "support/FindControl.h"
#include "support/TestProgram.h"

#include <QtTest/QtTest>
#include <QtWidgets/QtWidgets>
#include <gmock/gmock.h>

namespace quillshift {
namespace {

/// Chooses `next`, or cancels where that is empty.
class FakeFolders final : public FolderDialog {
public:
    bool ShowFolder(std::u16string_view /*start*/) override {
        if (next.empty())
            return false;
        InitDir = next;
        return true;
    }
    std::u16string next;
};

using Stored = std::pair<Setting, std::u16string>;

struct SettingsDialog : testing::Test {
    TestProgram test;
    ProgramParts& parts = (test.Start(), test.program.Parts());
    FakePrinters& printers = test.printers;
    FakeFolders* folders = nullptr;
    std::unique_ptr<frmSettings> dialog;

    void Load() {
        auto made = std::make_unique<FakeFolders>();
        folders = made.get();
        dialog.reset();
        dialog = std::make_unique<frmSettings>(
            DialogContext{parts.platform, parts.settings, parts.sounds, nullptr}, test.window.document,
            parts.print, std::move(made));
        Settle();
    }
    void Settle() {
        test.timers.Tick();
        test.background.DoAll();
    }
    QWidget& At(const char* name) const { return Find<QWidget>(*dialog, name); }
    /// The tick, the text or the row of a control, as text.
    QString Shown(const char* name) const {
        return At(name).metaObject()->userProperty().read(&At(name)).toString();
    }
    void Give(const char* name, const QVariant& value) const {
        At(name).metaObject()->userProperty().write(&At(name), value);
    }
    void Press(const char* name) const { Find<QAbstractButton>(*dialog, name).click(); }
    bool CanApply() const { return At("cmdApply").isEnabled(); }
    bool IsMarked(const char* name) const {
        return At(name).findChild<QAction*>(QStringLiteral("missing"))->isVisible();
    }
    /// Edits a field, as a person does, to what it did not show.
    void Edit(const SettingField& field) const {
        if (auto* const list = qobject_cast<QComboBox*>(&At(field.name))) {
            const int next = list->currentIndex() == 1 ? 2 : 1;
            list->setCurrentIndex(next);
            emit list->activated(next);
        } else if (field.kind == SettingKind::Text) {
            QTest::keyClicks(&At(field.name), QStringLiteral("7"));
        } else if (field.kind == SettingKind::Printers) {
            Give(field.name, Shown(field.name) == QStringLiteral("1") ? 0 : 1);
        } else {
            Press(field.name);
        }
    }
};

TEST_F(SettingsDialog, KeepsWhatIsEditedInEachField) {
    printers.names = {u"Первый", u"Второй"};
    test.Set(Setting::ClipboardDetect, u"1")
        .Set(Setting::CreateBackup, u"1")
        .Set(Setting::CreateBackupIn, u"2");
    for (const SoundEvent& event : kSoundEvents)
        test.settings.Switch(event.on, true);
    for (const SettingField& field : SettingFields()) {
        Load();
        EXPECT_FALSE(CanApply()) << field.name;
        const QString before = Shown(field.name);
        Edit(field);
        const QString edited = Shown(field.name);
        EXPECT_TRUE(edited != before || field.kind == SettingKind::Option) << field.name;
        EXPECT_EQ(CanApply(), !field.Has(setting_flag::kQuiet) && edited != before) << field.name;
        dialog->Apply();
        EXPECT_FALSE(CanApply()) << field.name;
        Load();
        EXPECT_EQ(Shown(field.name), edited) << field.name;
        if (field.kind == SettingKind::Check)
            Edit(field); // the others need it
        EXPECT_TRUE(field.kind != SettingKind::Option || test.settings.Is(field.setting, field.option));
        dialog->Apply();
    }
    EXPECT_EQ(test.settings.Text(Setting::PrinterName), printers.current);
    EXPECT_EQ(test.window.document.Font().name, test.settings.Text(Setting::FontName));
    EXPECT_EQ(test.window.document.Font().points, 10);
}

TEST_F(SettingsDialog, WritesNothingThatWasNotToldAndNoNonsense) {
    test.Set(Setting::Style, u"Odd").Set(Setting::DefaultCode, u"99").Set(Setting::FontSize, u"12");
    test.Set(Setting::PositionLeft, u"20").Set(Setting::BackupFolder, u"/b").Set(Setting::Copies, u"");
    test.Set(Setting::CreateBackup, u"1");
    printers.names.clear();
    Load();
    for (const char* option : {"optStyleSystem", "optStyleOfficeXP"})
        EXPECT_EQ(Shown(option), QStringLiteral("false"));
    EXPECT_EQ(Find<QComboBox>(*dialog, "cmbCode").currentIndex(), 0);
    for (const char* absent : {"optCreateBackupInCustomFolder", "chkRecovery"})
        EXPECT_EQ(Shown(absent), QStringLiteral("true"));
    for (const auto& [name, text] :
         {std::pair("txtPathBackupFolder", ""), {"txtKeyDown", "/typed"}, {"cboFontSize", "much"}})
        Give(name, QString(QLatin1String(text)));
    EXPECT_FALSE(CanApply());
    Press("cmdOK");
    EXPECT_EQ(test.settings.Text(Setting::BackupFolder), u"/b") << "nothing was to be applied";
    Give("txtLeft", QString());
    dialog->Apply();
    for (const auto& [setting, stored] : {Stored{Setting::PositionLeft, u"20"},
                                          {Setting::BackupFolder, u""},
                                          {Setting::Style, u"Odd"},
                                          {Setting::FontSize, u"12"},
                                          {Setting::Printers, u"-1"},
                                          {Setting::PrinterName, u""}})
        EXPECT_EQ(test.settings.Text(setting), stored);
    EXPECT_EQ(Shown("cboFontSize"), QStringLiteral("12"));
    EXPECT_EQ(Find<QLabel>(*dialog, "lblDefaultPrinter").text(), QStringLiteral("Принтер по умолчанию: "));
    for (const auto* name :
         {"optQHigh", "optLandscape", "cmbPaperSize", "txtCopies", "txtTop", "lstPrinters"})
        EXPECT_FALSE(At(name).isEnabled()) << name;
}

TEST_F(SettingsDialog, KeepsTheStoredPrinterUntilAnotherOneIsChosen) {
    test.Set(Setting::Printers, u"0").Set(Setting::PrinterName, u"Второй").Set(Setting::Copies, u"1");
    printers.known = false;
    Load();
    dialog->Apply(); // the print system has not answered
    printers.known = true;
    printers.OnNames({u"Первый"});
    dialog->Apply(); // it is gone, for now
    EXPECT_EQ(test.settings.Text(Setting::PrinterName), u"Второй");
    printers.names = {u"Новый", u"Первый", u"Второй"};
    printers.OnNames(printers.names);
    EXPECT_FALSE(CanApply());
    dialog->Boxes();
    EXPECT_EQ(printers.current, u"Второй");
    EXPECT_EQ(Shown("lstPrinters"), QStringLiteral("2"));
    EXPECT_TRUE(At("txtCopies").isEnabled());
    Give("lstPrinters", 1);
    printers.OnNames({u"Первый", u"Второй"});
    EXPECT_EQ(printers.current, u"Первый") << "was chosen by hand";
    Press("cmdApply");
    printers.known = false;
    Give("lstPrinters", 1);
    dialog->Apply();
    EXPECT_EQ(test.settings.Text(Setting::Printers), u"0");
    EXPECT_EQ(test.settings.Text(Setting::PrinterName), u"Первый") << "nobody knows of the other";
}

TEST_F(SettingsDialog, OpensTheDesktopsOwnAdministrationOfPrinters) {
    const TemporaryFolder folder;
    const QByteArray path = qgetenv("PATH");
    qputenv("PATH", folder.Path().string().c_str());
    const std::tuple<const char*, const char*, const char*, const char*> cases[] = {
        {"KDE", "kcmshell6", "cmdPrintersAndFaxs", "kcm_printer_manager\n"},
        {"KDE", "kde-add-printer", "cmdPrinterSetup", "--add-printer\n"},
        {"KDE", "kde-add-printer", "cmdPrintersAndFaxs", "http://localhost:631/printers"},
        {"ubuntu:GNOME", "gnome-control-center", "cmdPrinterSetup", "printers\n"},
        {"XFCE", "gnome-control-center", "cmdPrinterSetup", "http://localhost:631/admin"},
        {"", "system-config-printer", "cmdPrintersAndFaxs", "\n"}};
    Load();
    const std::filesystem::path told = folder / "told";
    for (const auto& [desktop, program, button, opened] : cases) {
        const std::filesystem::path tool = folder / program;
        Put(tool, "#!/bin/sh\necho \"$@\" >" + told.string());
        std::filesystem::permissions(tool, std::filesystem::perms(0700));
        qputenv("XDG_CURRENT_DESKTOP", desktop);
        Press(button);
        const auto seen = [&] {
            return test.shell.opened.empty() ? Contents(told) : ToUtf8(test.shell.opened.back());
        };
        EXPECT_TRUE(QTest::qWaitFor([&, expected = opened] { return seen() == expected; })) << program;
        test.shell.opened.clear();
        std::filesystem::remove(tool);
        std::filesystem::remove(told);
    }
    test.shell.opensLinks = false;
    Press("cmdPrinterSetup");
    EXPECT_EQ(test.LastBox(), u"Не найдена программа для управления принтерами.");
    qputenv("PATH", path);
}

TEST_F(SettingsDialog, GivesThePrintCommandWhatStandsInItsBoxes) {
    test.Set(Setting::PrinterName, u"Laser").Set(Setting::Copies, u"1");
    test.window.document.SetText(u"Жук");
    Load();
    for (const auto& [name, number] :
         {std::pair("txtLeft", 10), {"txtTop", 20}, {"txtWidth", 30}, {"txtHeight", 40}, {"txtCopies", 3}})
        Give(name, QString::number(number));
    test.program.Run("MENU:FILE:PRINT");
    EXPECT_THAT(printers.printer.done, testing::IsSupersetOf({"copies 3", "end"}));
    EXPECT_EQ(test.window.document.printed.back().rectangle,
              (TwipsRect{467_twips, 934_twips, 11907_twips - 2268_twips, 16839_twips - 3402_twips}));
    dialog.reset();
    test.program.Run("MENU:FILE:PRINT");
    EXPECT_THAT(printers.printer.done, testing::Contains("copies 1")) << "as stored, in the next dialog";
}

// The sample forgets the chosen font when its text is edited.
TEST_F(SettingsDialog, ShowsTheFontsBehindTheLoadAndASample) {
    test.Set(Setting::FontName, u"Arial").Set(Setting::FontSize, u"14").Set(Setting::TextExample, u"Жук");
    Load();
    const auto& sample = Find<QLabel>(*dialog, "lblExample");
    EXPECT_EQ(sample.text() + sample.font().family(), QStringLiteral("ЖукArial"));
    EXPECT_EQ(sample.font().pointSizeF(), 14);
    Give("cboFontName", QStringLiteral("Жук"));
    for (int tick = 0; tick < 100; ++tick)
        test.timers.Tick();
    EXPECT_EQ(Find<QComboBox>(*dialog, "cboFontName").count(), QFontDatabase::families().size());
    EXPECT_EQ(Shown("cboFontName"), QStringLiteral("Жук"));
    EXPECT_FALSE(CanApply());
    for (const auto* list : {"cboFontName", "cboFontSize"})
        emit Find<QComboBox>(*dialog, list).textActivated(QStringLiteral("36"));
    EXPECT_EQ(sample.font().family(), QStringLiteral("36"));
    EXPECT_EQ(sample.font().pointSizeF(), 36);
    QTest::keyClicks(&At("txtExample"), QStringLiteral("7"));
    EXPECT_EQ(sample.text(), QStringLiteral("Жук7"));
    EXPECT_EQ(sample.font(), At("txtExample").font());
}

TEST_F(SettingsDialog, FollowsOtherFieldsBehindTheClick) {
    for (const Setting on :
         {Setting::ClipboardDetect, Setting::DecodeClipboard, Setting::CreateBackup, Setting::CreateBackupIn})
        test.Set(on, u"1");
    test.settings.Switch(Setting::DoNotShowPassword, true);
    Load();
    const auto expect = [this](bool enabled, std::initializer_list<const char*> names) {
        for (const char* name : names)
            EXPECT_EQ(At(name).isEnabled(), enabled) << name;
    };
    expect(false, {"txtPathBackupFolder", "cmdSoundsDefault", "txtKeyDown"});
    Press("optCreateBackupInCustomFolder");
    expect(true, {"txtPathBackupFolder", "cmdBrowseBackupFolder"});
    for (const char* box : {"chkClipboardDetect", "chkCreateBackup", "chkFormLoad", "chkDoNotShowPassword"})
        Press(box);
    EXPECT_EQ(Shown("chkDecodeClipboard"), QStringLiteral("true")) << "not yet";
    Settle();
    EXPECT_EQ(Shown("chkDecodeClipboard"), QStringLiteral("false"));
    EXPECT_EQ(Shown("optCreateBackupInCustomFolder"), QStringLiteral("false"));
    expect(false, {"chkClipboardText", "txtPathBackupFolder", "cmdBrowseBackupFolder", "txtKeyDown"});
    expect(true, {"txtFormLoad", "cmdBrowseFormLoad", "cmdSoundsDefault"});
    const auto& password = Find<QLineEdit>(*dialog, "txtPassword");
    EXPECT_EQ(password.echoMode(), QLineEdit::Password) << "until it is applied";
    Press("cmdApply");
    Settle();
    EXPECT_EQ(password.echoMode(), QLineEdit::Normal);
    EXPECT_EQ(test.settings.Text(Setting::CreateBackupIn), u"1") << "no option was chosen";
    EXPECT_EQ(test.settings.Text(Setting::DecodeClipboard), u"0");
}

TEST_F(SettingsDialog, ResetsWhatIsToldAfterItsQuestionsAndLeavesTheRest) {
    test.Set(Setting::ClipboardDetect, u"1").Set(Setting::DecodeClipboard, u"1").Set(Setting::TopMost, u"1");
    test.Set(Setting::FormLoad, u"1").Set(Setting::KeyDownPath, u"/k.wav").Set(Setting::User, u"Жук");
    test.Set(Setting::PrinterName, u"Gone").Set(Setting::Printers, u"7");
    Load();
    Press("cmdReset");
    EXPECT_EQ(test.settings.Text(Setting::TopMost), u"1") << "cancelled";
    test.messageBox.shown.clear();
    test.messageBox.answers = {BoxAnswer::Yes, BoxAnswer::Yes};
    test.messageBox.whileShown = [this] { test.timers.Tick(); };
    Press("cmdReset");
    test.messageBox.whileShown = nullptr;
    std::vector<std::u16string> texts;
    for (const auto& box : test.messageBox.shown)
        texts.push_back(box.text.substr(0, 32));
    EXPECT_EQ(texts, (std::vector<std::u16string>{
                         u"Вы действительно хотите сбросить", u"Вы действительно хотите установи",
                         u"Установлены звуки по умолчанию.", u"Установлены параметры по умолчан"}));
    int reset = 0;
    for (const SettingField& field : SettingFields()) {
        const SettingRow& row = SettingRows()[static_cast<std::size_t>(field.setting)];
        if (!field.reset || ++reset == 0 || row.setting == Setting::Recovery)
            continue; // what a reset gives is what the first start gave
        EXPECT_EQ(test.settings.Text(field.setting), row.firstText.value_or(u"")) << field.name;
        EXPECT_EQ(test.settings.Whole(field.setting), row.firstNumber) << field.name;
    }
    EXPECT_EQ(reset, 33);
    for (const auto& [setting, stored] : {Stored{Setting::Recovery, u"1"},
                                          {Setting::PrinterName, u"Laser"},
                                          {Setting::DecodeClipboard, u"1"},
                                          {Setting::FormLoadPath, u"/program/Sounds/FormLoad.wav"},
                                          {Setting::KeyDownPath, u"/k.wav"},
                                          {Setting::User, u"Жук"}})
        EXPECT_EQ(test.settings.Text(setting), stored);
    test.timers.Tick();
    EXPECT_EQ(Shown("chkDecodeClipboard"), QStringLiteral("false"));
    EXPECT_FALSE(CanApply());
}

TEST_F(SettingsDialog, BrowsesForFoldersAndSoundsWithoutTouchingTheDocument) {
    test.Set(Setting::KeyDown, u"1").Set(Setting::FolderDocuments, u"/docs").Set(Setting::CreateBackup, u"1");
    Load();
    folders->next = u"/tmp";
    Press("cmdBrowseBackupFolder");
    EXPECT_TRUE(CanApply()) << "what is chosen is an edit, though typing there is none";
    folders->next.clear();
    Press("cmdBrowse");
    Settle();
    EXPECT_EQ(Shown("txtFolderDoc"), QStringLiteral("/tmp"));
    EXPECT_FALSE(IsMarked("txtFolderDoc"));
    test.fileDialog.FileName = u"/docs/letter.txt";
    test.fileDialog.chosen = {u"/tmp"};
    Press("cmdBrowseKeyDown");
    Settle();
    EXPECT_TRUE(IsMarked("txtKeyDown")) << "a folder is no sound";
    EXPECT_EQ(test.fileDialog.InitDir, u"/docs");
    EXPECT_EQ(test.fileDialog.FileName, u"/docs/letter.txt");
    Press("cmdBrowseKeyDown");
    EXPECT_EQ(Shown("txtKeyDown"), QStringLiteral("/tmp")) << "cancelled";
    Press("txtKeyDownPlay");
    EXPECT_EQ(test.sound.played.back(), u"/tmp");
    for (const char* path : {"/none", "/etc/passwd"}) // while the looking goes on
        Give("txtKeyDown", QString(QLatin1String(path)));
    Settle();
    Settle();
    EXPECT_FALSE(IsMarked("txtKeyDown"));
}

// By the mouse, the keys and a screen reader; the strip keeps the keys that are its own.
TEST_F(SettingsDialog, TurnsPagesByHandAndStaysAtEscape) {
    Load();
    dialog->show();
    auto& bar = *dialog->findChild<QTabBar*>();
    QTest::mouseClick(&bar, Qt::LeftButton, {}, bar.tabRect(2).center());
    EXPECT_TRUE(At("picView").isVisible() && !At("picGeneral").isVisible());
    EXPECT_EQ(dialog->focusWidget(), &bar);
    QAccessible::queryAccessibleInterface(&bar)->child(3)->actionInterface()->doAction(
        QAccessibleActionInterface::pressAction());
    EXPECT_TRUE(At("picSave").isVisible());
    for (const auto& [key, page] : {std::pair(Qt::Key_End, "picSounds"),
                                    {Qt::Key_Up, "picLocked"},
                                    {Qt::Key_Return, "picLocked"},
                                    {Qt::Key_Escape, "picLocked"}}) {
        QTest::keyClick(&bar, key);
        EXPECT_TRUE(At(page).isVisible()) << page;
    }
    dialog->TurnTo(kFontTab);
    EXPECT_TRUE(At("picFont").isVisible());
}

TEST_F(SettingsDialog, StayLoadedWhenAcceptedAndBeginAnewWhenCancelled) {
    QWidget owner;
    ProgramDialogs dialogs(parts, owner);
    const auto shown = [] { return QApplication::activeModalWidget(); };
    QTimer::singleShot(0, [&] {
        Find<QLineEdit>(*shown(), "txtUser").setText(QStringLiteral("Жук"));
        Find<QPushButton>(*shown(), "cmdOK").click();
    });
    dialogs.Show(DialogKind::Settings);
    EXPECT_TRUE(dialogs.IsLoaded(DialogKind::Settings));
    EXPECT_EQ(test.settings.Text(Setting::User), u"Жук");
    test.Set(Setting::User, u"Другой");
    dialogs.Show(DialogKind::Settings, kPrintTab);
    EXPECT_EQ(shown(), nullptr);
    QTimer::singleShot(0, [&] {
        ASSERT_NE(shown(), nullptr) << "comes up modal";
        EXPECT_EQ(Find<QLineEdit>(*shown(), "txtUser").text(), QStringLiteral("Жук"));
        Find<QPushButton>(*shown(), "cmdCancel").click();
    });
    dialogs.Show(DialogKind::Settings);
    EXPECT_FALSE(dialogs.IsLoaded(DialogKind::Settings));
    dialogs.Load(DialogKind::Settings);
    EXPECT_TRUE(dialogs.IsLoaded(DialogKind::Settings));
    for (const QWidget* window : QApplication::topLevelWidgets())
        EXPECT_FALSE(window->isVisible()) << window->metaObject()->className();
    dialogs.Close(DialogKind::Settings);
    EXPECT_FALSE(dialogs.IsLoaded(DialogKind::Settings));
}

} // namespace
} // namespace quillshift
