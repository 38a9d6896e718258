#include "controls/HyperLink.h"
#include "support/FakePlatform.h"

#include <gtest/gtest.h>

#include <QAccessible>
#include <QFile>
#include <QLabel>
#include <QTest>
#include <QVBoxLayout>

namespace quillshift {
namespace {

/// A link in a window of its own, and what it has raised so far.
struct HyperLinkTest : testing::Test, FakePlatform {
    QWidget window;
    HyperLink& link = *new HyperLink(platform, &window);
    std::string raised;

    void SetUp() override {
        window.resize(400, 100);
        link.move(20, 10);
        link.SetCaption(u"написать письмо");
        link.OnClick = [this] { raised += "click "; };
        link.OnMouseDown = [this](HyperLink::Mouse& mouse) { Note("down", mouse); };
        link.OnMouseMove = [this](HyperLink::Mouse& mouse) { Note("over", mouse); };
        link.OnMouseLeft = [this] { raised += "left "; };
        link.OnMouseUp = [this](HyperLink::Mouse& mouse) { Note("up", mouse); };
        link.OnChange = [this] { raised += "change "; };
        window.show();
        QTest::mouseMove(&window, {390, 90});
    }
    void Note(const std::string& event, const HyperLink::Mouse& mouse) {
        raised += event + std::to_string(mouse.button) + std::to_string(mouse.shift) + "@" +
                  std::to_string(static_cast<int>(mouse.x)) + "," +
                  std::to_string(static_cast<int>(mouse.y)) + " ";
    }
    QLabel& Label() { return *link.findChild<QLabel*>(QStringLiteral("lblHyperLink")); }
    std::string Look() {
        const QLabel& label = Label();
        return link.ForeColor().name().toStdString() + (label.font().underline() ? " underlined" : "") +
               (label.cursor().shape() == Qt::PointingHandCursor ? " hand " : " ") +
               label.toolTip().toStdString();
    }
};

TEST_F(HyperLinkTest, IsLitWhileThePointerIsOverItAndLooksAboutOnlyThen) {
    link.SetForeColor(QColor(136, 0, 0));
    link.SetMOUnderline(true);
    link.SetMOPointer(true);
    link.SetAddress(u"  mailto:a@b.example \t");
    link.setToolTip(QStringLiteral("свой текст"));
    for (const auto* tip : {"mailto:a@b.example", "свой текст"}) {
        raised.clear();
        timers.Tick();
        QTest::mouseMove(&link, {4, 2});
        QTest::mouseMove(&link, {6, 3});
        timers.Tick();
        EXPECT_EQ(Look(), std::string("#ff0000 underlined hand ") + tip);
        QTest::mouseMove(&window, {390, 90});
        timers.Tick();
        timers.Tick();
        EXPECT_EQ(Look().substr(0, 13), "#880000 hand ") << "the hand stays on the caption";
        EXPECT_EQ(raised, "over00@60,30 left ");
        link.SetAutoToolTip(false);
    }
    QFont underlined = link.font();
    underlined.setUnderline(true);
    link.setFont(underlined);
    QTest::mouseMove(&link, {4, 2});
    QTest::mouseMove(&window, {390, 90});
    timers.Tick();
    EXPECT_TRUE(Label().font().underline()) << "as the font around it is";
}

TEST_F(HyperLinkTest, AClickOpensTheAddressAndIsToldInAnyCase) {
    link.SetSoundID(1);
    QTest::mouseClick(&Label(), Qt::LeftButton);
    EXPECT_TRUE(sound.playedFromMemory.empty());
    link.SetSoundOn(true);
    QFile resource(QStringLiteral(":/SOUND/1"));
    ASSERT_TRUE(resource.open(QIODevice::ReadOnly));
    const std::string bytes = resource.readAll().toStdString();
    EXPECT_TRUE(bytes.starts_with("RIFF"));
    // What is set, whether anybody opens it, and what is opened and heard.
    const std::tuple<std::u16string, int, bool, bool, bool> cases[] = {
        {u"https://a.example/", 1, true, true, true},
        {u"https://a.example/", 77, true, true, false},
        {u"https://a.example/", 1, false, true, true},
        {u"  ", 1, true, false, false}};
    for (const auto& [address, id, opens, opened, heard] : cases) {
        link.SetAddress(address);
        link.SetSoundID(id);
        shell.opensLinks = opens;
        shell.opened.clear();
        sound.playedFromMemory.clear();
        raised.clear();
        QTest::mouseClick(&Label(), Qt::LeftButton, Qt::ShiftModifier | Qt::AltModifier, {4, 2});
        EXPECT_EQ(raised, "down15@60,30 up15@60,30 click ");
        EXPECT_EQ(shell.opened, std::vector<std::u16string>(opened ? 1 : 0, address));
        EXPECT_EQ(sound.playedFromMemory, std::vector<std::string>(heard ? 1 : 0, bytes));
        EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr);
    }
    EXPECT_TRUE(messageBox.shown.empty());
    raised.clear();
    QTest::mouseClick(&Label(), Qt::RightButton, {}, {4, 2});
    QTest::mousePress(&Label(), Qt::LeftButton, {}, {4, 2});
    QTest::mouseRelease(&Label(), Qt::LeftButton, {}, {300, 2});
    EXPECT_EQ(raised.find("click"), std::string::npos) << "another button, or let go elsewhere";
    raised.clear();
    link.setEnabled(false);
    QTest::mouseClick(&Label(), Qt::LeftButton);
    EXPECT_EQ(raised, "");
}

TEST_F(HyperLinkTest, IsMetAsALinkByKeyboardAndScreenReader) {
    QWidget other(&window);
    other.setFocusPolicy(Qt::TabFocus);
    other.show();
    other.setFocus();
    QTest::keyClick(&window, Qt::Key_Tab);
    EXPECT_TRUE(link.hasFocus());
    for (const Qt::Key key : {Qt::Key_Space, Qt::Key_Return, Qt::Key_Enter, Qt::Key_A})
        QTest::keyClick(&link, key);
    EXPECT_EQ(raised, "click click click ");
    QAccessibleInterface& access = *QAccessible::queryAccessibleInterface(&link);
    EXPECT_EQ(access.role(), QAccessible::Link);
    EXPECT_EQ(access.text(QAccessible::Name), QStringLiteral("написать письмо"));
    EXPECT_EQ(access.childCount(), 0);
    access.actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    EXPECT_EQ(shell.opened.size(), 4U);
}

TEST_F(HyperLinkTest, TakesTheSizeOfItsCaptionOrGivesItItsOwn) {
    const QSize small = link.size();
    EXPECT_EQ(Label().geometry(), QRect({}, small));
    link.SetCaption(u"написать письмо подлиннее");
    link.SetCaption(u"написать письмо подлиннее");
    EXPECT_EQ(raised, "change ");
    EXPECT_GT(link.width(), small.width());
    QFont large = link.font();
    large.setPointSize(30);
    link.setFont(large);
    EXPECT_GT(link.height(), small.height());
    const QSize plain = link.size();
    link.SetBorderStyle(HyperLink::Border::Single);
    EXPECT_GT(link.height(), plain.height());
    link.SetAutoSize(false);
    link.resize(50, 40);
    EXPECT_EQ(Label().geometry(), QRect(0, 0, 50, 40));
    link.SetAutoSize(true);
    EXPECT_EQ(link.size(), Label().sizeHint());
}

} // namespace
} // namespace quillshift
