#include "controls/HyperLink.h"
#include "controls/TabControl.h"
#include "platform/qt/QtTabStrip.h"
#include "support/FakePlatform.h"

#include <QtTest/QtTest>
#include <QtWidgets/QtWidgets>
#include <gtest/gtest.h>

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

/// Dots of a colour for each picture.
struct Dots final : ImageControl {
    int ImageWidth() const override { return 12; }
    int ImageHeight() const override { return 12; }
    void DrawListImage(int index, DibSection& target) const override {
        for (int i = 0; i < 12 * 12 * 4; ++i)
            target.DIBSectionBitsPtr()[i] = static_cast<std::uint8_t>(i % 4 == index ? 200 : 40);
    }
};

struct Example {
    const char* words;
    TabStyles styles;
    bool separators = false;
    CoolTabs cool = CoolTabs::Plain;
    bool pictures = false;
};

const Example kExamples[] = {
    {"top", {}},
    {"left", {.align = TabAlign::Left}},
    {"bottom, pictures", {.align = TabAlign::Bottom}, false, CoolTabs::Plain, true},
    {"right", {.align = TabAlign::Right}},
    {"rows", {.multiLine = true}},
    {"rows at the bottom", {.multiLine = true, .align = TabAlign::Bottom}},
    {"rows at the left", {.multiLine = true, .align = TabAlign::Left}},
    {"buttons", {.buttons = true, .multiLine = true}},
    {"flat, separated", {.buttons = true, .flatButtons = true, .multiLine = true}, true},
    {"drawn, pictures", {.ownerDraw = true}, false, CoolTabs::Plain, true},
    {"drawn, shaded", {.multiLine = true, .ownerDraw = true}, false, CoolTabs::Shaded, true},
    {"raised", {}, false, CoolTabs::Raised, true},
    {"raised, bottom", {.align = TabAlign::Bottom}, false, CoolTabs::Raised}};

// With a name in GALLERY it leaves a picture of them all under it.
TEST(TabStrip, ShowsItsStyles) {
    QWidget window;
    auto& grid = *new QGridLayout(&window);
    const Dots dots;
    std::vector<std::unique_ptr<TabControl>> controls;
    std::vector<QtTabStrip*> strips;
    for (const Example& example : kExamples) {
        auto* strip = new QtTabStrip;
        strip->setFixedSize(270, 200);
        (new QVBoxLayout(strip))->addWidget(new QLabel(QLatin1String(example.words)));
        const int place = static_cast<int>(strips.size());
        grid.addWidget(strip, place / 4, place % 4);
        TabControl& tabs = *controls.emplace_back(std::make_unique<TabControl>(*strip));
        strips.push_back(strip);
        tabs.Styles = example.styles;
        tabs.Rebuild();
        tabs.SetFlatSeparators(example.separators);
        tabs.SetCool(example.cool);
        if (example.pictures)
            tabs.SetImageList(dots);
        const auto* names = example.styles.multiLine ? u"Общие|Вид|Сохранение|Кодировка|Звуки|Шрифт"
                                                     : u"Общие|Вид|Сохранение";
        int image = 0;
        for (const QString& name : QString::fromUtf16(names).split(u'|'))
            tabs.AddTab(name.toStdU16String(), image++ % 3);
        tabs.SelectTab(2);
    }
    window.show();
    QCoreApplication::processEvents();
    const QString folder = qEnvironmentVariable("GALLERY");
    EXPECT_TRUE(folder.isEmpty() || window.grab().save(folder + QStringLiteral("/TabStrip.png")));
    for (std::size_t i = 0; i < strips.size(); ++i) {
        QtTabStrip& strip = *strips[i];
        const TabStyles& styles = kExamples[i].styles;
        const QLabel& page = *strip.findChild<QLabel*>();
        const auto distance = [&](int position) {
            const Rect at = strip.ItemPlace(position);
            return IsAtSide(styles.align) ? std::abs(at.left - page.x()) : std::abs(at.top - page.y());
        };
        const int rows = static_cast<int>(strip.findChildren<QTabBar*>().size());
        EXPECT_EQ(rows > 1, styles.multiLine) << kExamples[i].words;
        for (int position = 0; position < strip.Count(); ++position) {
            const Rect at = strip.ItemPlace(position);
            const QRect tab(at.left, at.top, at.Width(), at.Height());
            EXPECT_TRUE(strip.rect().contains(tab)) << kExamples[i].words << position;
            EXPECT_FALSE(page.geometry().intersects(tab)) << kExamples[i].words << position;
        }
        const int last = strip.Count() - 1;
        EXPECT_EQ(distance(1) < distance(last), rows > 1);
        const Rect at = strip.ItemPlace(last);
        auto* row = strip.childAt(at.left + 4, at.top + 4);
        QTest::mouseClick(row, Qt::LeftButton, {}, row->mapFrom(&strip, QPoint(at.left + 4, at.top + 4)));
        EXPECT_EQ(strip.Selection(), last);
        EXPECT_EQ(distance(last) < distance(1), rows > 1);
        EXPECT_EQ(window.focusWidget(), strip.focusProxy());
        EXPECT_EQ(strip.focusProxy(), row) << "the row of what is selected has the keyboard";
        controls[i]->Rebuild();
        EXPECT_EQ(strip.Selection(), last);
        QTest::keyClick(strip.focusProxy(), Qt::Key_Home);
        EXPECT_EQ(strip.Selection(), 0);

        int clicks = 0;
        bool refuses = true;
        controls[i]->TabClick = [&](int) { ++clicks; };
        controls[i]->BeforeClick = [&](int, bool& cancel) { cancel = refuses; };
        QTest::keyClick(strip.focusProxy(), Qt::Key_End);
        refuses = false;
        QTest::keyClick(strip.focusProxy(), Qt::Key_Home);
        EXPECT_EQ(strip.Selection(), 0);
        EXPECT_EQ(clicks, 0) << "one was refused, the other is selected";
        for (const QTabBar* each : strip.findChildren<QTabBar*>())
            EXPECT_EQ(each->focusPolicy() != Qt::NoFocus, each == strip.focusProxy() || each->isHidden());
        const Rect area = strip.PageArea();
        EXPECT_TRUE(QRect(area.left, area.top, area.Width(), area.Height())
                        .contains(page.geometry().translated(strip.pos())));
        strip.Insert(0, {.text = u"Новая"});
        EXPECT_EQ(strip.Selection(), 1);
        strip.Remove(1);
        EXPECT_EQ(strip.Selection(), -1);
    }
}

} // namespace
} // namespace quillshift
