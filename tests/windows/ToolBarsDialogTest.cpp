#include "settings/frmToolBarCustomize.h"
#include "shell/ProgramDialogs.h"
#include "support/IconFiles.h"
#include "support/TestProgram.h"

#include <gtest/gtest.h>

#include <QListWidget>
#include <QTest>

namespace quillshift {
namespace {

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
    for (const auto& [bar, name, value] : {std::tuple("standart", "00", shown),
                                           {"standart", "01", hidden},
                                           {"standart", "39", hidden},
                                           {"decode", "00", hidden},
                                           {"decode", "02", shown}})
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
