#include "platform/qt/QtText.h"
#include "platform/qt/ScreenReaders.h"
#include "shell/Catalogue.h"
#include "support/WidgetBars.h"

#include <QtTest/QtTest>
#include <QtWidgets/QtWidgets>
#include <gtest/gtest.h>
#include <random>

namespace quillshift {
namespace {

/// Above a text that has the keyboard.
class BarsTest : public testing::Test, protected WidgetBars {
protected:
    BarsTest() : WidgetBars(u"/nowhere") {
        window.resize(700, 400);
        window.show();
        window.activateWindow();
        text->setFocus();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
    }

    std::vector<QtBarWindow*> OpenPopups() {
        std::vector<QtBarWindow*> open;
        for (QtBarWindow* popup : Windows())
            if (popup->isWindow() && popup->isVisible())
                open.push_back(popup);
        return open;
    }

    QTextEdit* text = &static_cast<QtTextSurface&>(window.RichTextBox());
};

TEST_F(BarsTest, FollowAFontThatTheDesktopChangesMeanwhile) {
    const auto* const list = window.findChild<QComboBox*>();
    const auto sizes = [&] {
        QApplication::processEvents();
        std::vector<int> all{list->height(), list->width()};
        for (const int bar : {0, 1, 2})
            all.push_back(Windows()[std::size_t(bar)]->height());
        return all;
    };
    const QFont usual = QApplication::font();
    const std::vector<int> before = sizes();
    QApplication::setFont(QFont(usual.family(), 24));
    for (std::size_t i = 0; i < before.size(); ++i)
        EXPECT_GT(sizes()[i], before[i]) << i;
    EXPECT_GE(list->width(), list->sizeHint().width()) << "its rows are cut off";
    QApplication::setFont(usual);
    EXPECT_EQ(sizes(), before);
}

TEST_F(BarsTest, TenThousandRandomEventsLeaveNothingOpenDisabledOrWithoutTheKeyboard) {
    std::mt19937 random(20261124);
    const auto below = [&](int limit) { return std::uniform_int_distribution<int>(0, limit - 1)(random); };
    constexpr Qt::Key kKeys[] = {Qt::Key_Alt,  Qt::Key_Left,   Qt::Key_Right, Qt::Key_Up,   Qt::Key_Down,
                                 Qt::Key_Down, Qt::Key_Return, Qt::Key_Home,  Qt::Key_End,  Qt::Key_Escape,
                                 Qt::Key_X,    Qt::Key_F9,     Qt::Key_Tab,   Qt::Key_Space};
    std::size_t deepest = 0;
    for (int event = 0; event < 10000; ++event) {
        const auto open = OpenPopups();
        deepest = std::max(deepest, open.size());
        // Mostly where something is to be hit: on an open menu, or on the bars at the top of the window.
        QWidget* const target = !open.empty() && below(4) != 0
                                    ? static_cast<QWidget*>(open[std::size_t(below(int(open.size())))])
                                    : &window;
        const QPoint at(below(target->width()), below(target == &window ? text->y() : target->height()));
        switch (below(6)) {
        case 0:
            QTest::keyClick(window.windowHandle(), kKeys[below(std::size(kKeys))],
                            below(10) == 0 ? Qt::ControlModifier : Qt::NoModifier);
            break;
        case 1:
            QCursor::setPos(target->mapToGlobal(at));
            QTest::mouseClick(target->windowHandle(), below(5) == 0 ? Qt::RightButton : Qt::LeftButton,
                              Qt::NoModifier, at);
            break;
        default:
            QCursor::setPos(target->mapToGlobal(at));
            QTest::mouseMove(target->windowHandle(), at);
        }
        if (below(500) == 0)
            window.resize(300 + below(600), 400);
        if (below(400) == 0)
            QTest::qWait(260); // long enough for a sub-menu to open
    }
    EXPECT_GT(commands, 100);
    EXPECT_GE(deepest, 2U);

    for (int level = 0; level < 10; ++level)
        QTest::keyClick(window.windowHandle(), Qt::Key_Escape);
    EXPECT_TRUE(OpenPopups().empty());
    EXPECT_FALSE(toolkit.Menu().MenuMode);
    for (int bar = 0; bar < 3; ++bar)
        EXPECT_TRUE(bars.Bar(bar).Enabled()) << bar;
    EXPECT_TRUE(text->hasFocus());
    auto* directions = window.findChild<QComboBox*>();
    directions->setFocus();
    emit directions->activated(0);
    EXPECT_TRUE(text->hasFocus()) << "the keyboard goes back to the text";
    text->clear();
    QTest::keyClick(window.windowHandle(), Qt::Key_Y);
    EXPECT_EQ(text->toPlainText(), QStringLiteral("y"));
}

/// What a screen reader meets: all nodes below a bar, each checked to stand where its parent says.
void Walk(QAccessibleInterface* node, std::vector<QAccessibleInterface*>& met) {
    for (int i = 0; i < node->childCount(); ++i) {
        QAccessibleInterface* const child = node->child(i);
        ASSERT_NE(child, nullptr);
        EXPECT_TRUE(child->isValid());
        EXPECT_EQ(child->parent(), node);
        EXPECT_EQ(node->indexOfChild(child), i);
        met.push_back(child);
        Walk(child, met);
    }
}

class SpokenBarsTest : public BarsTest {
protected:
    SpokenBarsTest() {
        ShowScreenReadersTheScreenAlone();
        QAccessible::setActive(true);
    }
    ~SpokenBarsTest() override { QAccessible::setActive(false); }
    std::vector<QAccessibleInterface*> Met(int bar) {
        std::vector<QAccessibleInterface*> met;
        Walk(QAccessible::queryAccessibleInterface(Windows()[std::size_t(bar)]), met);
        return met;
    }
    QAccessibleInterface* Item(const char* key, int bar = 0) {
        const QString name = ToQString(FindEntry(key)->Caption);
        for (QAccessibleInterface* each : Met(bar))
            if (each->text(QAccessible::Name) == name && each->role() != QAccessible::PopupMenu)
                return each;
        return nullptr;
    }
    static void Act(QAccessibleInterface* item, const QString& action) {
        item->actionInterface()->doAction(action);
        QCoreApplication::processEvents();
    }
};

TEST_F(SpokenBarsTest, NameEveryEntryOfTheCatalogueWithItsShortcut) {
    std::map<std::pair<QString, QString>, int> difference;
    for (const CatalogueEntry& entry : Catalogue())
        if (entry.Style != ButtonStyle::Separator && entry.Style != ButtonStyle::Panel) {
            cButtonInt button{std::string(entry.Key)};
            button.ShortcutKey = entry.ShortcutKey;
            button.ShortcutModifiers = entry.ShortcutModifiers;
            const auto name = entry.Caption.empty() ? entry.ToolTip : entry.Caption;
            ++difference[{ToQString(name), ToQString(button.ShortcutText())}];
        }
    for (int bar = 0; bar < 3; ++bar)
        for (QAccessibleInterface* each : Met(bar))
            if (each->role() == QAccessible::MenuItem || each->role() == QAccessible::Button)
                --difference[{each->text(QAccessible::Name), each->text(QAccessible::Accelerator)}];
    for (const auto& [entry, count] : difference)
        EXPECT_EQ(count, 0) << entry.first.toStdString() << " " << entry.second.toStdString();
}

TEST_F(SpokenBarsTest, TellWhereTheKeyboardIsAndWhatIsOpen) {
    QTest::keyClick(window.windowHandle(), Qt::Key_Alt);
    QTest::keyClick(window.windowHandle(), Qt::Key_Right);
    QTest::keyClick(window.windowHandle(), Qt::Key_Down);
    QAccessibleInterface* const heading = Item("MENU:EDIT");
    ASSERT_NE(heading, nullptr);
    EXPECT_TRUE(heading->state().expanded);
    QAccessibleInterface* const first = heading->child(0)->child(0);
    EXPECT_TRUE(first->state().focused);
    EXPECT_FALSE(first->state().invisible);
    EXPECT_EQ(OpenPopups().at(0)->geometry().contains(first->rect()), true);
    QAccessibleInterface* const root = QAccessible::queryAccessibleInterface(qApp);
    for (int i = 0; i < root->childCount(); ++i)
        EXPECT_EQ(root->child(i)->object(), &window) << "its menus are no windows of their own";
    QTest::keyClick(window.windowHandle(), Qt::Key_Escape);
    EXPECT_TRUE(first->state().invisible);
    EXPECT_TRUE(heading->state().focused);
    EXPECT_FALSE(heading->state().expanded);
}

TEST_F(SpokenBarsTest, DoWhatIsPressedUnlessItIsDisabledOrBlocked) {
    QAccessibleInterface* const about = Item("MENU:HELP:ABOUT");
    ASSERT_NE(about, nullptr);
    EXPECT_EQ(about->actionInterface()->actionNames(),
              QStringList{QAccessibleActionInterface::pressAction()});
    Act(about, QAccessibleActionInterface::pressAction());
    EXPECT_EQ(commands, 1);
    QDialog dialog(&window);
    dialog.setModal(true);
    dialog.show();
    Act(about, QAccessibleActionInterface::pressAction());
    EXPECT_EQ(commands, 1);
    dialog.close();
    Act(Item("MENU:HELP"), QAccessibleActionInterface::showMenuAction());
    EXPECT_EQ(OpenPopups().size(), 1U);
    Act(about, QAccessibleActionInterface::pressAction());
    EXPECT_EQ(commands, 2);
    EXPECT_TRUE(OpenPopups().empty());
    bars.Button("MENU:HELP:ABOUT").SetEnabled(false);
    EXPECT_TRUE(about->state().disabled);
    Act(about, QAccessibleActionInterface::pressAction());
    EXPECT_EQ(commands, 2);
}

} // namespace
} // namespace quillshift
