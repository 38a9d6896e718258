// The real strip in each style. With a name in GALLERY it leaves a picture of them all under it.

#include "controls/TabControl.h"
#include "platform/qt/QtTabStrip.h"

#include <gtest/gtest.h>

#include <QGridLayout>
#include <QLabel>
#include <QTabBar>
#include <QTest>
#include <QVBoxLayout>

#include <cstdlib>
#include <memory>
#include <vector>

namespace quillshift {
namespace {

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
