#include "platform/qt/QtTabStrip.h"
#include "settings/frmSettings.h"
#include "shell/ProgramDialogs.h"
#include "support/TestProgram.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QFontDatabase>
#include <QLineEdit>
#include <QListWidget>
#include <QRadioButton>
#include <QTabBar>
#include <QTest>
#include <QTimer>
#include <QWheelEvent>

#include <stdexcept>

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
        test.timers.Tick();
        test.background.DoAll();
    }
    template <typename Control>
    Control& At(const char* name) {
        auto* control = dialog->findChild<Control*>(QLatin1String(name));
        if (control == nullptr)
            throw std::runtime_error(name);
        return *control;
    }
    void Press(const char* name) { At<QPushButton>(name).click(); }
    bool CanApply() { return At<QPushButton>("cmdApply").isEnabled(); }
    void ApplyAndLoad() {
        dialog->Apply();
        Load();
    }
    /// What a field shows, as text.
    std::u16string Shown(const SettingField& field) {
        switch (field.kind) {
        case SettingKind::Check:
        case SettingKind::Option:
            return At<QAbstractButton>(field.name).isChecked() ? u"1" : u"0";
        case SettingKind::Position:
            return QString::number(At<QComboBox>(field.name).currentIndex()).toStdU16String();
        case SettingKind::Choice:
            return At<QComboBox>(field.name).currentText().toStdU16String();
        case SettingKind::Text:
            return At<QLineEdit>(field.name).text().toStdU16String();
        case SettingKind::Printers:
            return QString::number(At<QListWidget>(field.name).currentRow()).toStdU16String();
        }
        return u"";
    }
    /// Edits a field, as a person does, to what it did not show.
    void Edit(const SettingField& field) {
        switch (field.kind) {
        case SettingKind::Check:
            At<QAbstractButton>(field.name).click();
            break;
        case SettingKind::Option:
            At<QAbstractButton>(field.name).setChecked(true);
            break;
        case SettingKind::Position: {
            auto& list = At<QComboBox>(field.name);
            list.setCurrentIndex(list.currentIndex() == 7 ? 8 : 7);
            break;
        }
        case SettingKind::Choice: {
            auto& list = At<QComboBox>(field.name);
            list.setCurrentIndex(list.count() - 1);
            emit list.activated(list.count() - 1);
            break;
        }
        case SettingKind::Text:
            QTest::keyClicks(&At<QLineEdit>(field.name), QStringLiteral("7"));
            break;
        case SettingKind::Printers: {
            auto& list = At<QListWidget>(field.name);
            list.setCurrentRow(list.currentRow() == 1 ? 0 : 1);
            break;
        }
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
        const std::u16string before = Shown(field);
        Edit(field);
        const std::u16string edited = Shown(field);
        EXPECT_TRUE(edited != before || field.kind == SettingKind::Option) << field.name;
        EXPECT_EQ(CanApply(), !field.Has(setting_flag::kQuiet) && edited != before) << field.name;
        ApplyAndLoad();
        EXPECT_EQ(Shown(field), edited) << field.name;
        if (field.kind == SettingKind::Check)
            Edit(field); // the others need it
        EXPECT_TRUE(field.kind != SettingKind::Option || test.settings.Is(field.setting, field.option));
        dialog->Apply();
    }
    EXPECT_EQ(test.settings.Text(Setting::PrinterName), printers.current);
    EXPECT_EQ(test.window.document.Font().name, test.settings.Text(Setting::FontName));
    EXPECT_EQ(test.window.document.Font().points, 36);
}

TEST_F(SettingsDialog, WritesNothingThatWasNotToldAndNoNonsense) {
    test.Set(Setting::Style, u"Odd").Set(Setting::DefaultCode, u"99").Set(Setting::FontSize, u"12");
    test.Set(Setting::PositionLeft, u"20").Set(Setting::BackupFolder, u"/b").Set(Setting::Copies, u"");
    test.Set(Setting::ShowInCaption, u"2").Set(Setting::CreateBackup, u"1");
    printers.names.clear();
    Load();
    EXPECT_FALSE(At<QRadioButton>("optStyleSystem").isChecked() ||
                 At<QRadioButton>("optStyleOfficeXP").isChecked());
    EXPECT_EQ(At<QComboBox>("cmbCode").currentIndex(), 0);
    EXPECT_TRUE(At<QRadioButton>("optCreateBackupInCustomFolder").isChecked()) << "nothing is stored";
    At<QLineEdit>("txtPathBackupFolder").clear();
    At<QLineEdit>("txtKeyDown").setText(QStringLiteral("/typed"));
    At<QComboBox>("cboFontSize").setEditText(QStringLiteral("много"));
    EXPECT_FALSE(CanApply());
    Press("cmdOK");
    EXPECT_EQ(test.settings.Text(Setting::BackupFolder), u"/b") << "nothing was to be applied";
    At<QLineEdit>("txtLeft").clear();
    dialog->Apply();
    EXPECT_EQ(test.settings.Text(Setting::PositionLeft), u"20");
    EXPECT_EQ(test.settings.Text(Setting::BackupFolder), u"");
    EXPECT_EQ(test.settings.Text(Setting::Style), u"Odd");
    EXPECT_EQ(test.settings.Text(Setting::FontSize), u"12");
    EXPECT_EQ(At<QComboBox>("cboFontSize").currentText(), QStringLiteral("12"));
    EXPECT_EQ(test.settings.Text(Setting::Printers), u"-1");
    EXPECT_EQ(At<QLabel>("lblDefaultPrinter").text(), QStringLiteral("Принтер по умолчанию: "));
    for (const auto* name :
         {"optQHigh", "optLandscape", "cmbPaperSize", "txtCopies", "txtTop", "lstPrinters"})
        EXPECT_FALSE(At<QWidget>(name).isEnabled()) << name;
}

TEST_F(SettingsDialog, FindsTheStoredPrinterAndWaitsForALateList) {
    test.Set(Setting::Printers, u"0").Set(Setting::PrinterName, u"Второй").Set(Setting::Copies, u"1");
    printers.known = false;
    Load();
    dialog->Apply();
    EXPECT_EQ(test.settings.Text(Setting::PrinterName), u"Второй");
    printers.names = {u"Новый", u"Первый", u"Второй"};
    printers.known = true;
    printers.OnNames(printers.names);
    EXPECT_FALSE(CanApply());
    dialog->Boxes();
    EXPECT_EQ(printers.current, u"Второй");
    EXPECT_EQ(At<QListWidget>("lstPrinters").currentRow(), 2);
    EXPECT_TRUE(At<QWidget>("txtCopies").isEnabled());
    At<QListWidget>("lstPrinters").setCurrentRow(1);
    printers.OnNames({u"Первый", u"Второй"});
    EXPECT_EQ(printers.current, u"Первый") << "was chosen by hand";
    Press("cmdApply");
    EXPECT_EQ(test.settings.Text(Setting::Printers), u"0");
    EXPECT_EQ(test.settings.Text(Setting::PrinterName), u"Первый");
}

TEST_F(SettingsDialog, GivesThePrintCommandWhatStandsInItsBoxes) {
    test.Set(Setting::PrinterName, u"Laser").Set(Setting::Copies, u"1");
    test.window.document.SetText(u"Жук");
    Load();
    for (const auto& [name, text] : {std::pair("txtLeft", "10"),
                                     {"txtTop", "20"},
                                     {"txtWidth", "30"},
                                     {"txtHeight", "40"},
                                     {"txtCopies", "3"}})
        At<QLineEdit>(name).setText(QLatin1String(text));
    test.program.Run("MENU:FILE:PRINT");
    EXPECT_THAT(printers.printer.done, testing::IsSupersetOf({"copies 3", "end"}));
    const TwipsRect& area = test.window.document.printed.back().rectangle;
    EXPECT_EQ(area.left, 467_twips);
    EXPECT_EQ(area.top, 934_twips);
    EXPECT_EQ(area.width, 11907_twips - 2268_twips);
    EXPECT_EQ(area.height, 16839_twips - 3402_twips);
    dialog.reset();
    test.program.Run("MENU:FILE:PRINT");
    EXPECT_EQ(printers.printer.done.back(), "end");
    EXPECT_THAT(printers.printer.done, testing::Contains("copies 1")) << "as stored, in the next dialog";
}

TEST_F(SettingsDialog, FillsTheListOfFontsBehindTheLoadAndKeepsWhatWasTyped) {
    test.Set(Setting::FontName, u"Arial");
    Load();
    auto& fonts = At<QComboBox>("cboFontName");
    fonts.setEditText(QStringLiteral("Жук"));
    for (int tick = 0; tick < 100; ++tick)
        test.timers.Tick();
    EXPECT_EQ(fonts.count(), QFontDatabase::families().size());
    EXPECT_EQ(fonts.currentText(), QStringLiteral("Жук"));
    EXPECT_FALSE(CanApply());
}

TEST_F(SettingsDialog, ShowsASampleThatForgetsTheFontWhenItsTextIsEdited) {
    test.Set(Setting::FontName, u"Arial").Set(Setting::FontSize, u"14").Set(Setting::TextExample, u"Жук");
    Load();
    const auto& sample = At<QLabel>("lblExample");
    EXPECT_EQ(sample.text() + sample.font().family(), QStringLiteral("ЖукArial"));
    EXPECT_EQ(sample.font().pointSizeF(), 14);
    for (const auto* list : {"cboFontName", "cboFontSize"})
        emit At<QComboBox>(list).textActivated(QStringLiteral("36"));
    EXPECT_EQ(sample.font().family(), QStringLiteral("36"));
    EXPECT_EQ(sample.font().pointSizeF(), 36);
    auto& line = At<QLineEdit>("txtExample");
    QTest::keyClicks(&line, QStringLiteral("7"));
    EXPECT_EQ(sample.text(), QStringLiteral("Жук7"));
    EXPECT_EQ(sample.font(), line.font());
}

TEST_F(SettingsDialog, FollowsOtherFieldsBehindTheClick) {
    test.Set(Setting::ClipboardDetect, u"1")
        .Set(Setting::DecodeClipboard, u"1")
        .Set(Setting::CreateBackup, u"1");
    test.Set(Setting::CreateBackupIn, u"1").Set(Setting::Password, u"тайна");
    test.settings.Switch(Setting::DoNotShowPassword, true);
    Load();
    EXPECT_FALSE(At<QWidget>("txtPathBackupFolder").isEnabled());
    EXPECT_FALSE(At<QWidget>("cmdSoundsDefault").isEnabled());
    At<QRadioButton>("optCreateBackupInCustomFolder").click();
    EXPECT_TRUE(At<QWidget>("cmdBrowseBackupFolder").isEnabled());
    At<QCheckBox>("chkClipboardDetect").click();
    At<QCheckBox>("chkCreateBackup").click();
    At<QCheckBox>("chkFormLoad").click();
    EXPECT_TRUE(At<QCheckBox>("chkDecodeClipboard").isChecked());
    test.timers.Tick();
    EXPECT_FALSE(At<QCheckBox>("chkDecodeClipboard").isChecked() ||
                 At<QWidget>("chkClipboardText").isEnabled());
    EXPECT_FALSE(At<QRadioButton>("optCreateBackupInCustomFolder").isChecked());
    EXPECT_FALSE(At<QWidget>("txtPathBackupFolder").isEnabled());
    EXPECT_TRUE(At<QWidget>("txtFormLoad").isEnabled() && At<QWidget>("cmdSoundsDefault").isEnabled());
    EXPECT_FALSE(At<QWidget>("txtKeyDown").isEnabled());
    At<QCheckBox>("chkDoNotShowPassword").click();
    test.timers.Tick();
    EXPECT_EQ(At<QLineEdit>("txtPassword").echoMode(), QLineEdit::Password) << "until it is applied";
    Press("cmdApply");
    test.timers.Tick();
    EXPECT_EQ(At<QLineEdit>("txtPassword").echoMode(), QLineEdit::Normal);
    EXPECT_EQ(test.settings.Text(Setting::CreateBackupIn), u"1") << "no option was chosen";
    EXPECT_EQ(test.settings.Text(Setting::DecodeClipboard), u"0");
}

TEST_F(SettingsDialog, ResetsWhatIsToldAfterItsQuestionsAndLeavesTheRest) {
    test.Set(Setting::ClipboardDetect, u"1").Set(Setting::DecodeClipboard, u"1").Set(Setting::TopMost, u"1");
    test.Set(Setting::FormLoad, u"1").Set(Setting::KeyDownPath, u"/k.wav").Set(Setting::User, u"Жук");
    Load();
    Press("cmdReset");
    EXPECT_EQ(test.settings.Text(Setting::TopMost), u"1") << "cancelled";
    test.messageBox.shown.clear();
    test.messageBox.answers = {BoxAnswer::Yes, BoxAnswer::Yes};
    Press("cmdReset");
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
    EXPECT_TRUE(test.settings.Is(Setting::Recovery));
    EXPECT_EQ(test.settings.Text(Setting::DecodeClipboard), u"1");
    EXPECT_EQ(test.settings.Text(Setting::FormLoadPath), u"/program/Sounds/FormLoad.wav");
    EXPECT_EQ(test.settings.Text(Setting::KeyDownPath), u"/k.wav");
    EXPECT_EQ(test.settings.Text(Setting::User), u"Жук");
    test.timers.Tick();
    EXPECT_FALSE(At<QCheckBox>("chkDecodeClipboard").isChecked());
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
    test.background.DoAll();
    EXPECT_EQ(At<QLineEdit>("txtFolderDoc").text(), QStringLiteral("/tmp"));
    EXPECT_FALSE(At<QLineEdit>("txtFolderDoc").findChild<QAction*>(QStringLiteral("missing"))->isVisible());
    test.fileDialog.FileName = u"/docs/letter.txt";
    test.fileDialog.chosen = {u"/sounds/none.wav"};
    Press("cmdBrowseKeyDown");
    test.background.DoAll();
    EXPECT_EQ(test.fileDialog.InitDir, u"/docs");
    EXPECT_EQ(test.fileDialog.FileName, u"/docs/letter.txt");
    EXPECT_EQ(At<QLineEdit>("txtKeyDown").text(), QStringLiteral("/sounds/none.wav"));
    EXPECT_TRUE(At<QLineEdit>("txtKeyDown").findChild<QAction*>(QStringLiteral("missing"))->isVisible());
    Press("cmdBrowseKeyDown");
    EXPECT_EQ(At<QLineEdit>("txtKeyDown").text(), QStringLiteral("/sounds/none.wav")) << "cancelled";
    At<QAbstractButton>("txtKeyDownPlay").click();
    EXPECT_EQ(test.sound.played.back(), u"/sounds/none.wav");
}

// By the mouse, the wheel and the keys; the strip keeps the keys that are its own.
TEST_F(SettingsDialog, TurnsPagesByHandAndStaysAtEscape) {
    Load();
    dialog->show();
    auto& bar = *dialog->findChild<QTabBar*>();
    const auto page = [&] { return dialog->findChild<QWidget*>(QStringLiteral("tabSettings")); };
    const auto shows = [&](const char* name) {
        return page()->findChild<QWidget*>(QLatin1String(name))->isVisible();
    };
    EXPECT_TRUE(shows("picGeneral"));
    QTest::mouseClick(&bar, Qt::LeftButton, {}, bar.tabRect(2).center());
    EXPECT_TRUE(shows("picView") && !shows("picGeneral"));
    EXPECT_EQ(dialog->focusWidget(), &bar);
    QWheelEvent wheel(QPointF(5, 5), QPointF(5, 5), {}, {0, -120}, Qt::NoButton, Qt::NoModifier,
                      Qt::NoScrollPhase, false);
    QApplication::sendEvent(&bar, &wheel);
    EXPECT_TRUE(shows("picSave"));
    for (const auto& [key, name] : {std::pair(Qt::Key_End, "picSounds"),
                                    {Qt::Key_Right, "picSounds"},
                                    {Qt::Key_Up, "picLocked"},
                                    {Qt::Key_Return, "picLocked"},
                                    {Qt::Key_Home, "picGeneral"},
                                    {Qt::Key_Escape, "picGeneral"}}) {
        QTest::keyClick(&bar, key);
        EXPECT_TRUE(shows(name)) << name;
    }
    EXPECT_TRUE(dialog->isVisible());
    dialog->TurnTo(kFontTab);
    EXPECT_TRUE(shows("picFont"));
}

TEST_F(SettingsDialog, StayLoadedWhenAcceptedAndBeginAnewWhenCancelled) {
    QWidget owner;
    ProgramDialogs dialogs(parts, owner);
    const auto shown = [] { return QApplication::activeModalWidget(); };
    const auto press = [](QWidget* shownDialog, const char* name) {
        shownDialog->findChild<QPushButton*>(QLatin1String(name))->click();
    };
    QTimer::singleShot(0, [&] {
        shown()->findChild<QLineEdit*>(QStringLiteral("txtUser"))->setText(QStringLiteral("Жук"));
        press(shown(), "cmdOK");
    });
    dialogs.Show(DialogKind::Settings);
    EXPECT_TRUE(dialogs.IsLoaded(DialogKind::Settings));
    EXPECT_EQ(test.settings.Text(Setting::User), u"Жук");
    test.Set(Setting::User, u"Другой");
    dialogs.Show(DialogKind::Settings, kPrintTab);
    EXPECT_EQ(shown(), nullptr);
    QTimer::singleShot(0, [&] {
        ASSERT_NE(shown(), nullptr) << "comes up modal";
        EXPECT_EQ(shown()->findChild<QLineEdit*>(QStringLiteral("txtUser"))->text(), QStringLiteral("Жук"));
        press(shown(), "cmdCancel");
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
