#include "controls/TabControl.h"
#include "support/FailureOf.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <utility>

namespace quillshift {
namespace {

using testing::ElementsAre;

class FakeStrip final : public TabStrip {
public:
    void Create(const TabStyles& value) override {
        styles = value;
        items.clear();
        selection = -1;
    }
    void SetFlatSeparators(bool on) override { separators = on; }
    void SetFont(const FontSpec& value) override { font = value; }
    void SetPadding(int x, int y) override { padding = {x, y}; }
    int Insert(int position, const TabItem& item) override {
        if (position < 0 || position > Count())
            return -1;
        items.insert(items.begin() + position, item);
        selection += selection >= position ? 1 : 0;
        return position;
    }
    bool Remove(int position) override {
        if (position < 0 || position >= Count())
            return false;
        items.erase(items.begin() + position);
        if (selection == position)
            selection = -1;
        selection -= selection > position ? 1 : 0;
        return true;
    }
    void RemoveAll() override {
        items.clear();
        selection = -1;
    }
    int Count() const override { return static_cast<int>(items.size()); }
    std::optional<TabItem> Item(int position) const override {
        return position < 0 || position >= Count() ? std::nullopt
                                                   : std::optional(items[static_cast<std::size_t>(position)]);
    }
    bool SetItem(int position, const TabItem& item) override {
        items.at(static_cast<std::size_t>(position)) = item;
        return true;
    }
    int Selection() const override { return selection; }
    int Select(int position) override { return std::exchange(selection, position); }
    Rect Place() const override { return RectAt(10, 20, 300, 200); }
    Rect PageArea() const override { return {13, 44, 307, 217}; }

    /// A person clicks a tab.
    void Click(int position) {
        if (OnChanging()) {
            selection = position;
            OnChanged();
        }
    }
    TabStyles styles;
    bool separators = false;
    FontSpec font;
    Size padding;
    std::vector<TabItem> items;
    int selection = -1;
};

struct Tabs : testing::Test {
    FakeStrip strip;
    TabControl tabs{strip};
    std::vector<std::string> events;
    bool cancel = false;

    Tabs() {
        tabs.BeforeClick = [this](int tab, bool& refuse) {
            events.push_back("before " + std::to_string(tab));
            refuse = cancel;
        };
        tabs.TabClick = [this](int tab) { events.push_back("click " + std::to_string(tab)); };
        tabs.TabRightClick = [this] { events.emplace_back("right"); };
        tabs.AddTab(u"Общие", 4, -1, u"GENERAL", 1000);
        tabs.AddTab(u"Вид", -1, -1, u"VIEW", 3000);
        tabs.AddTab(u"Код", -1, u"VIEW", u"DECODE", 2000);
    }
    std::vector<std::string> Events() { return std::exchange(events, {}); }
    static int Number(const Error& error) { return error.Number() + 2147221504 - 1048; }
};

TEST_F(Tabs, AreAddedBeforeOthersAndFoundByNumberKeyAndTextOfANumber) {
    EXPECT_THAT(events, ElementsAre());
    EXPECT_EQ(tabs.SelectedTab(), 0);
    tabs.AddTab(u"Один", 0, 1, u"7");
    EXPECT_EQ(tabs.TabKey(1), u"7");
    EXPECT_EQ(tabs.TabKey(3), u"DECODE");
    EXPECT_EQ(tabs.IndexForTab(u"VIEW"), 4);
    EXPECT_EQ(tabs.TabText(u"3"), u"Код");
    EXPECT_EQ(tabs.TabItemData(u"DECODE"), 2000);
    tabs.SetTabImage(u"DECODE", 9);
    tabs.SetTabItemData(3, 5);
    EXPECT_EQ(strip.items[2], (TabItem{.text = u"Код", .image = 9, .data = 5}));
    for (const TabRef& missing : {TabRef(5), TabRef(u"7"), TabRef(u"view"), TabRef(u"")}) {
        const Error error = FailureOf([&] { tabs.SelectTab(missing); });
        EXPECT_EQ(Number(error), 1);
        EXPECT_EQ(error.Source(), u"quillshift.cTabCtrl");
    }
    EXPECT_EQ(FailureOf([&] { tabs.TabKey(0); }).Description(), u"TabIndex 0 does not exist");
    EXPECT_EQ(Number(FailureOf([&] { tabs.TabText(0); })), 3);
    EXPECT_EQ(FailureOf([&] { tabs.TabImage(0); }).Description(), u"Failed to get image for tab 0");
    EXPECT_EQ(Number(FailureOf([&] { tabs.SetTabItemData(0, 1); })), 6);
    EXPECT_EQ(Number(FailureOf([&] { tabs.SetTabImage(0, 1); })), 7);
    EXPECT_EQ(Number(FailureOf([&] { tabs.TabHot(0); })), 5);
    tabs.SelectTab(0); // does nothing
    EXPECT_THAT(Events(), ElementsAre());
}

TEST_F(Tabs, TellWhatIsSelectedButNotOnTheWayFromTheFirst) {
    tabs.SelectTab(1);
    EXPECT_THAT(Events(), ElementsAre("click 1"));
    tabs.SelectTab(2);
    EXPECT_THAT(Events(), ElementsAre("before 1"));
    tabs.SelectTab(u"VIEW");
    EXPECT_THAT(Events(), ElementsAre("before 2", "click 3"));
    tabs.SelectTab(2, true);
    EXPECT_THAT(Events(), ElementsAre());
    strip.Click(0);
    strip.Click(2);
    strip.OnRightClick();
    EXPECT_THAT(Events(), ElementsAre("before 2", "click 1", "before 1", "click 3", "right"));
    cancel = true;
    strip.Click(0);
    tabs.SelectTab(1);
    EXPECT_EQ(tabs.SelectedTab(), 3);
}

TEST_F(Tabs, GoAndLeaveTheirPlaceToTheNext) {
    tabs.SelectTab(3, true);
    tabs.RemoveTab(3);
    EXPECT_THAT(Events(), ElementsAre("click 2"));
    tabs.RemoveTab(u"GENERAL");
    EXPECT_EQ(tabs.TabKey(1), u"DECODE");
    EXPECT_EQ(tabs.SelectedTab(), 1);
    tabs.RemoveTab(0); // the strip refuses
    tabs.RemoveTab(1);
    EXPECT_EQ(tabs.TabCount(), 0);
    tabs.AddTab(u"Новая", -1, -1, u"NEW");
    EXPECT_EQ(tabs.TabKey(1), u"NEW");
    EXPECT_THAT(Events(), ElementsAre());
}

TEST_F(Tabs, SurviveARebuildWithOtherStyles) {
    tabs.SelectTab(2, true);
    tabs.Styles.align = TabAlign::Bottom;
    tabs.SetFlatSeparators(true);
    strip.separators = false;
    tabs.SetPadding(3, 0x8002);
    EXPECT_EQ(strip.padding, (Size{3, 2}));
    EXPECT_EQ(strip.styles, TabStyles());
    const auto before = strip.items;
    tabs.Rebuild();
    EXPECT_EQ(strip.styles.align, TabAlign::Bottom);
    EXPECT_TRUE(strip.separators);
    EXPECT_EQ(strip.items, before);
    EXPECT_EQ(tabs.SelectedTab(), 2);
    EXPECT_EQ(tabs.TabKey(2), u"DECODE");
    EXPECT_THAT(Events(), ElementsAre());
    EXPECT_EQ(tabs.ClientWidth(), 294);
    EXPECT_EQ(tabs.ClientTop(), 44);
}

} // namespace
} // namespace quillshift
