#include "shell/ProgramDialogs.h"
#include "harness/TemporaryFolder.h"
#include "platform/qt/QtShell.h"
#include "platform/qt/ScreenReaders.h"
#include "settings/frmAbout.h"
#include "settings/frmLicense.h"
#include "settings/frmSplash.h"
#include "settings/frmToolBarCustomize.h"
#include "support/FindControl.h"
#include "support/Pixels.h"
#include "support/TestProgram.h"
#include "support/TestsFolder.h"

#include <QtTest/QtTest>
#include <QtWidgets/QtWidgets>
#include <sys/prctl.h>

namespace quillshift {
namespace {

TEST(LockTest, TakesThePasswordByTheKeyboardAloneAndNoOtherWayOut) {
    for (const bool masked : {true, false}) {
        TestProgram test;
        test.Set(Setting::User, u"Анна")
            .Set(Setting::Password, u"Тайна")
            .Set(Setting::Tip, masked ? u"" : u"*");
        test.settings.Switch(Setting::DoNotShowPassword, masked);
        test.Start();
        ProgramParts& parts = test.program.Parts();
        test.dialogs->whileModal = [&] {
            QWidget owner;
            const auto made = ProgramDialogs(parts, owner).Make(DialogKind::Lock);
            Dialog& dialog = *made;
            dialog.show();
            auto& password = Find<QLineEdit>(dialog, "txtPassword");
            EXPECT_EQ(dialog.focusWidget(), &password);
            EXPECT_EQ(dialog.parentWidget(), nullptr) << "what is hidden is not above it, for nobody";
            EXPECT_EQ(Find<QLabel>(dialog, "lblShowPasswordTip").isEnabled(), !masked);
            QTest::keyClick(&dialog, Qt::Key_Escape);
            dialog.close();
            QTest::keyClicks(&password, QStringLiteral("abc"));
            EXPECT_EQ(password.displayText(), masked ? QStringLiteral("***") : QStringLiteral("abc"));
            QTest::keyClick(&password, Qt::Key_Backspace);
            QTest::keyClick(&password, Qt::Key_Z, Qt::ControlModifier);
            EXPECT_NE(password.text(), QStringLiteral("abc")) << "nothing is brought back";
            password.setText(QStringLiteral("тайна"));
            auto& user = Find<QLineEdit>(dialog, "txtUser");
            EXPECT_EQ(user.text(), QStringLiteral("Анна"));
            user.setFocus();
            QTest::keyClick(&user, Qt::Key_Return);
            EXPECT_EQ(test.messageBox.shown.size(), 1U);
            QTest::keyClick(&password, Qt::Key_Z, Qt::ControlModifier);
            EXPECT_EQ(password.text(), QString());
            EXPECT_EQ(dialog.focusWidget(), &password);
            Find<QLabel>(dialog, "lblShowPasswordTip").linkActivated({});
            EXPECT_EQ(test.LastBox(), test.settings.Text(Setting::Tip));
            EXPECT_TRUE(dialog.isVisible() && parts.lock.IsLocked());
            for (const auto* each : dialog.findChildren<QLineEdit*>())
                EXPECT_NE(each->text(), QStringLiteral("Тайна")) << "it is in no control";
            password.setText(QStringLiteral("Тайна"));
            QTest::keyClick(&password, Qt::Key_Return);
            EXPECT_FALSE(dialog.isVisible());
        };
        test.program.Run("MENU:SERVICE:LOCKED");
        EXPECT_FALSE(test.shell.ended);
    }
}

/// The dialogs in the order in which they are shown from now on.
struct CameUp final : QObject {
    explicit CameUp(std::vector<const QWidget*>& theOrder) : order(theOrder) {
        qApp->installEventFilter(this);
    }
    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() == QEvent::Show && qobject_cast<QDialog*>(watched) != nullptr)
            order.push_back(static_cast<QWidget*>(watched));
        return false;
    }
    std::vector<const QWidget*>& order;
};

TEST(LockTest, AllOtherWindowsGoAndTheNonModalOnesComeBack) {
    TestProgram test;
    QWidget owner;
    owner.show();
    ProgramDialogs dialogs(test.program.Parts(), owner);
    std::array<QDialog, 4> beside;
    for (QDialog& each : beside)
        each.setParent(&owner, Qt::Dialog);
    QDialog& left = beside[2];
    left.move(40, 50);
    for (const int shown : {1, 0, 3, 2, 0}) {
        QDialog& dialog = beside[std::size_t(shown)];
        dialog.show();
        dialog.activateWindow();
        EXPECT_TRUE(QTest::qWaitFor([&] { return QApplication::focusWindow() == dialog.windowHandle(); }));
    }
    std::vector<const QWidget*> back;
    CameUp cameUp(back);
    QTimer::singleShot(0, [&] {
        dialogs.HideAll();
        EXPECT_FALSE(left.isVisible());
    });
    QMessageBox box(&owner);
    EXPECT_EQ(box.exec(), QDialog::Rejected) << "a box is cancelled";
    back.clear();
    EXPECT_TRUE(owner.isVisible());
    dialogs.BringBack();
    EXPECT_TRUE(left.isVisible());
    EXPECT_EQ(left.pos(), QPoint(40, 50));
    EXPECT_EQ(back, (std::vector<const QWidget*>{&beside[1], &beside[3], &left, beside.data()}))
        << "the one on top last";
    EXPECT_FALSE(box.isVisible());
}

TEST(LockTest, AssistiveProgramsMeetWhatIsOnTheScreenAlone) {
    ShowScreenReadersTheScreenAlone();
    QAccessible::setActive(true);
    QWidget shown;
    shown.show();
    QWidget hidden;
    hidden.winId();
    QLineEdit text(QStringLiteral("secret"), &hidden);
    QAccessibleInterface& root = *QAccessible::queryAccessibleInterface(qApp);
    ASSERT_EQ(root.childCount(), 1);
    EXPECT_EQ(root.child(0)->object(), &shown);
    const auto before = QAccessible::uniqueId(QAccessible::queryAccessibleInterface(&text));
    QtShell shell({});
    shell.Conceal(true);
    EXPECT_EQ(::prctl(PR_GET_DUMPABLE), 0);
    EXPECT_EQ(QAccessible::accessibleInterface(before), nullptr);
    shell.Conceal(false);
    EXPECT_EQ(::prctl(PR_GET_DUMPABLE), 1);
    QAccessible::setActive(false);
}

/// A program at its start, with all sounds on.
struct StartDialogs : testing::Test {
    TestProgram test;
    ProgramParts& parts = test.program.Parts();
    DialogContext context{parts.platform, parts.settings, parts.sounds, nullptr};

    StartDialogs() { test.SwitchSoundsOn(); }
};

TEST(StartDialog, EachWayOutDoesWhatItSays) {
    constexpr const char* kNotAgain = "chkDoNotShowThisDialog";
    constexpr const char* kOpen = "optOpenDocument";
    constexpr const char* kNew = "optCreateNewDocument";
    using Way = std::function<void(Dialog&)>;
    const auto press = [](DialogButton* button) { QTest::mouseClick(button, Qt::LeftButton); };
    const Way firstButton = [&](Dialog& dialog) { press(dialog.findChildren<DialogButton*>().front()); };
    const Way lastButton = [&](Dialog& dialog) { press(dialog.findChildren<DialogButton*>().back()); };
    const Way escape = [](Dialog& dialog) { QTest::keyClick(&dialog, Qt::Key_Escape); };
    const Way closeBox = [](Dialog& dialog) { dialog.close(); };
    struct Case {
        DialogKind kind;
        std::vector<const char*> chosen;
        Way way;
        bool goesOn = true;
        bool opens = false;
    };
    const Case cases[] = {{DialogKind::Welcome, {}, firstButton},
                          {DialogKind::Welcome, {kNotAgain}, firstButton},
                          {DialogKind::Welcome, {kNotAgain}, escape},
                          {DialogKind::Welcome, {kNotAgain}, closeBox, false},
                          {DialogKind::WorkBegin, {}, firstButton},
                          {DialogKind::WorkBegin, {kOpen, kNotAgain}, firstButton, true, true},
                          {DialogKind::WorkBegin, {kOpen, kNew}, firstButton},
                          {DialogKind::WorkBegin, {kOpen, kNotAgain}, lastButton},
                          {DialogKind::WorkBegin, {kOpen}, escape},
                          {DialogKind::WorkBegin, {kOpen, kNotAgain}, closeBox, false}};
    for (const Case& one : cases) {
        const auto& [kind, chosen, way, goesOn, opens] = one;
        SCOPED_TRACE(&one - cases);
        TestProgram test;
        const Setting isShown = kind == DialogKind::Welcome ? Setting::Welcome : Setting::WorkBegin;
        test.settings.Switch(isShown, true);
        test.program.Parts().start.OpenAtStart = kind == DialogKind::WorkBegin; // which clears it
        QWidget owner;
        const auto dialog = ProgramDialogs(test.program.Parts(), owner).Make(kind);
        dialog->show();
        for (const char* button : chosen)
            Find<QAbstractButton>(*dialog, button).setChecked(true);
        way(*dialog);
        EXPECT_FALSE(test.window.shown || test.shell.ended) << "in the middle of its event";
        test.sound.played = {u"of the dialog"};
        test.timers.Tick();
        EXPECT_EQ(test.sound.ended.empty(), goesOn) << "the end would cut it";
        EXPECT_EQ(test.window.shown, goesOn);
        EXPECT_EQ(test.shell.ended, !goesOn);
        EXPECT_EQ(test.fileDialog.namesAtOpening.size(), opens ? 1U : 0U);
        const bool ticked = std::ranges::find(chosen, kNotAgain) != chosen.end();
        EXPECT_EQ(test.settings.Is(isShown), !ticked || !goesOn);
    }
}

TEST_F(StartDialogs, UnloadBeforeTheNextOneIsHeard) {
    QWidget owner;
    ProgramDialogs dialogs(parts, owner);
    dialogs.Show(DialogKind::Welcome);
    dialogs.Close(DialogKind::Welcome);
    EXPECT_FALSE(dialogs.IsLoaded(DialogKind::Welcome));
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_EQ(test.sound.played, (std::vector<std::u16string>{u"FormLoad.wav", u"FormUnload.wav"}));
}

TEST_F(StartDialogs, TheSplashShowsItsPictureClicksAndStays) {
    const std::string picture = Contents(TestsFolder().parent_path() / "Splash.spl");
    QByteArray large;
    QBuffer file(&large);
    QImage(2000, 1000, QImage::Format_RGB32).save(&file, "PNG");
    const QSize screen = QGuiApplication::primaryScreen()->availableSize();
    const std::pair<std::string, QSize> cases[] = {
        {picture, {480, 270}}, // two pixels of the file to the unit
        {large.toStdString(), {screen.width(), screen.width() / 2}},
        {"", {}},
        {picture.substr(0, 100), {}},
        {"no picture", {}}};
    for (const auto& [bytes, size] : cases) {
        test.files.files[u"/program/Splash.spl"] = bytes;
        for (const bool above : {false, true}) {
            test.settings.Switch(Setting::TopMost, above);
            frmSplash splash(context);
            splash.show();
            EXPECT_EQ(splash.windowFlags().testFlag(Qt::WindowStaysOnTopHint), above);
            test.sound.played.clear();
            QTest::mouseClick(&splash, Qt::RightButton);
            QTest::keyClick(&splash, Qt::Key_Escape);
            splash.close();
            EXPECT_EQ(splash.isVisible() ? splash.size() : QSize(), size);
        }
        EXPECT_EQ(test.sound.played, std::vector<std::u16string>{u"ButtonClick.wav"});
    }
}

TEST_F(StartDialogs, TheAboutBoxTellsTheVersionAndItsButtonIsSilent) {
    {
        frmAbout about(context);
        about.show();
        EXPECT_EQ(Find<QLabel>(about, "lblVersion").text(),
                  QStringLiteral("Version 3.0.0 Preview build 241 for Microsoft Windows."));
        for (const char* link : {"Hyperlink1", "Hyperlink2"})
            QTest::mouseClick(&Find<QWidget>(about, link), Qt::LeftButton);
        QTest::mouseClick(&Find<QPushButton>(about, "cmdOK"), Qt::LeftButton);
        EXPECT_FALSE(about.isVisible());
    }
    EXPECT_EQ(test.shell.opened, (std::vector<std::u16string>{u"mailto:author@quillshift.example",
                                                              u"https://quillshift.example/"}));
    EXPECT_EQ(test.sound.played, (std::vector<std::u16string>{u"FormLoad.wav", u"FormUnload.wav"}));
}

TEST_F(StartDialogs, TheLicenceCanBeReadInTwoLanguagesAndCopiedButNotWritten) {
    const frmLicense empty(context);
    EXPECT_EQ(Find<QTextEdit>(empty, "RichTextBox").toPlainText(), QString()) << "there is no file";
    test.files.files[u"/program/License.rtf"] = Contents(TestsFolder().parent_path() / "License.rtf");
    frmLicense dialog(context);
    auto& text = Find<QTextEdit>(dialog, "RichTextBox");
    dialog.show();
    const QString whole = text.toPlainText();
    EXPECT_TRUE(whole.startsWith(QStringLiteral("Лицензия MIT\nCopyright (c)")));
    const QString english =
        QString::fromStdString(Contents(TestsFolder().parent_path() / "LICENSE")).simplified();
    EXPECT_TRUE(QString(whole).simplified().endsWith(english)) << "word for word";
    text.setFocus();
    QTest::keyClicks(&text, QStringLiteral("x"));
    QTest::keyClick(&text, Qt::Key_A, Qt::ControlModifier);
    QTest::keyClick(&text, Qt::Key_X, Qt::ControlModifier);
    QTest::keyClick(&text, Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(text.toPlainText(), whole);
    EXPECT_EQ(QApplication::clipboard()->text(), whole);
    QTest::keyClick(&text, Qt::Key_Escape);
    EXPECT_FALSE(dialog.isVisible());
}

struct ToolBarsDialog : testing::Test {
    TestProgram test;
    ProgramParts& parts = test.program.Parts();
    QWidget owner;
    std::unique_ptr<Dialog> dialog;

    ToolBarsDialog() {
        for (int item = 0; item < 40; ++item)
            test.settings.ShowItem(ItemBar::Standart, item, true);
        for (int item = 0; item < 8; ++item)
            test.settings.ShowItem(ItemBar::Decode, item, true);
        test.Set(Setting::ShowToolTips, u"1").Set(Setting::HideInfrequently, u"1").Start();
        test.timers.Tick();
    }
    void Load() { dialog = ProgramDialogs(parts, owner).Make(DialogKind::ToolBarCustomize); }
    template <typename Control>
    Control& At(const char* name) {
        return *dialog->findChild<Control*>(QLatin1String(name));
    }
    QListWidget& Standart() { return At<QListWidget>("lstToolBarStandart"); }
    QListWidget& Decode() { return At<QListWidget>("lstToolBarDecode"); }
    bool CanApply() { return At<QPushButton>("cmdApply").isEnabled(); }
    void Press(const char* name) { At<QAbstractButton>(name).click(); }
    StoredValue& Item(const char* bar, const char* name) {
        return test.store.values.at(
            {R"(software\morvane tolric\quillshift 3.0\preferences\toolbars\)" + std::string(bar), name});
    }
    static int Shown(const QListWidget& list) {
        int shown = 0;
        for (int row = 0; row < list.count(); ++row)
            shown += list.item(row)->checkState() == Qt::Checked ? 1 : 0;
        return shown;
    }
};

TEST_F(ToolBarsDialog, HidesItemsByTheKeyboardAndTheBarsFollowBehindIt) {
    Item("decode", "02").data = std::string("\1\0\0\0", 4);
    test.settings.ShowItem(ItemBar::Standart, 39, false);
    test.files.files[u"/program/Data/icons/toolbars/small/New.ico"] =
        IconFile({SolidImage(16, {0, 0, 255, 255})});
    Load();
    const QListWidgetItem& first = *Standart().item(1);
    EXPECT_EQ(first.text(), QStringLiteral("Создать документ"));
    EXPECT_EQ(first.icon().pixmap(16).toImage().pixelColor(8, 8), QColor(Qt::red));
    EXPECT_EQ(Shown(Standart()), 39);
    EXPECT_EQ(Shown(Decode()), 8) << "1 is shown, too";
    EXPECT_FALSE(CanApply());
    QTest::keyClick(&Standart(), Qt::Key_Down);
    QTest::keyClick(&Standart(), Qt::Key_Space);
    EXPECT_TRUE(CanApply());
    QTest::keyClick(&Decode(), Qt::Key_Space);
    const auto layouts = test.window.layouts.size();
    Press("cmdApply");
    EXPECT_FALSE(CanApply());
    const std::string hidden(4, '\0');
    const std::string shown(4, '\xFF');
    using Row = std::tuple<const char*, const char*, std::string>;
    for (const auto& [bar, name, value] :
         {Row{"standart", "00", shown}, Row{"standart", "01", hidden}, Row{"standart", "39", hidden},
          Row{"decode", "00", hidden}, Row{"decode", "02", shown}})
        EXPECT_EQ(Item(bar, name).data, value) << bar << name;
    EXPECT_TRUE(test.Button("TOOLBAR:NEW").Visible());
    test.timers.Tick();
    EXPECT_FALSE(test.Button("TOOLBAR:NEW").Visible() || test.Button("TOOLBAR2:SEP1").Visible());
    EXPECT_TRUE(test.Button("TOOLBAR:OPEN").Visible() && test.Button("TOOLBAR2:DECODE").Visible());
    EXPECT_GT(test.window.layouts.size(), layouts);
}

TEST_F(ToolBarsDialog, AppliesTheOptionsAtOnceButTipsComeBackAtTheNextStart) {
    Load();
    for (const auto* box : {"chkUseLargeIcons", "chkShowToolTips", "chkHideInfrequently"})
        Press(box);
    Press("cmdOK");
    test.timers.Tick();
    EXPECT_EQ(test.window.windows[1].place.Height(), 29);
    EXPECT_TRUE(test.toolkit.HideInfrequentlyUsed);
    EXPECT_EQ(test.Button("TOOLBAR:NEW").ToolTip(), u"");
    Load();
    Press("chkShowToolTips");
    EXPECT_TRUE(CanApply());
    Press("cmdOK");
    test.timers.Tick();
    EXPECT_TRUE(test.settings.Is(Setting::ShowToolTips));
    EXPECT_EQ(test.Button("TOOLBAR2:UNDO").ToolTip(), u"");
}

TEST_F(ToolBarsDialog, ResetsTheItemsAloneAndOnlyWhenAsked) {
    test.Set(Setting::UseLargeIcons, u"1");
    for (int item = 0; item < 40; ++item)
        test.settings.ShowItem(ItemBar::Standart, item, false);
    Load();
    Press("cmdReset");
    EXPECT_EQ(Shown(Standart()), 0);
    Standart().setCurrentRow(20);
    Decode().item(3)->setCheckState(Qt::Unchecked);
    test.messageBox.answers = {BoxAnswer::Yes};
    Press("cmdReset");
    EXPECT_EQ(Shown(Standart()), 40);
    EXPECT_EQ(Shown(Decode()), 8);
    EXPECT_EQ(Standart().currentRow(), 0);
    EXPECT_EQ(test.LastBox(), u"Установлены параметры по умолчанию.");
    EXPECT_FALSE(CanApply());
    EXPECT_TRUE(test.settings.IsItemShown(ItemBar::Standart, 39) && test.settings.Is(Setting::UseLargeIcons));
    Decode().item(3)->setCheckState(Qt::Unchecked);
    EXPECT_TRUE(CanApply());
    dialog->close();
    EXPECT_TRUE(test.settings.IsItemShown(ItemBar::Decode, 3));
}

} // namespace
} // namespace quillshift
