#include "controls/TabControl.h"
#include "support/FailureOf.h"
#include "support/RecordingSurface.h"

#include <gmock/gmock.h>

namespace quillshift {
namespace {

using testing::ElementsAre;

class FakeStrip final : public TabStrip {
public:
    void Create(const TabStyles& value) override {
        images = {};
        separators = false;
        styles = value;
        items.clear();
        selection = -1;
    }
    void SetFlatSeparators(bool on) override { separators = on; }
    void SetFont(const FontSpec&) override {}
    void SetPadding(int x, int y) override { padding = {x, y}; }
    void SetImages(const TabImages& value) override { images = value; }
    void Repaint() override { ++repaints; }
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
    Rect ItemPlace(int position) const override { return RectAt(position * 50, 0, 50, 20); }
    Colour ColourOf(SystemColour name) const override { return FakeSystemColours().Of(name); }
    Rect PageArea() const override { return {13, 44, 307, 217}; }

    /// A person clicks a tab.
    void Click(int position) {
        if (Notices.changing()) {
            selection = position;
            Notices.changed();
        }
    }
    TabStyles styles;
    bool separators = false;
    Size padding;
    TabImages images;
    int repaints = 0;
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
    for (const TabRef& missing : {TabRef(0), TabRef(u"0"), TabRef(u"no key")})
        EXPECT_EQ(Number(FailureOf([&] { tabs.AddTab(u"Два", 0, missing, u"2"); })), 1);
    tabs.AddTab(u"Три", 0, 9); // the strip refuses
    EXPECT_EQ(tabs.TabCount(), 4);
    EXPECT_EQ(tabs.TabKey(4), u"VIEW");
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
    strip.Notices.rightClick();
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

/// Paints all pictures, but fails at the first one if it is told to.
struct Pictures final : ImageControl {
    int ImageWidth() const override { return 16; }
    int ImageHeight() const override { return 8; }
    void DrawListImage(int /*index*/, DibSection& /*target*/) const override {
        if (fails)
            throw Error(7, u"", u"");
    }
    bool fails = false;
};

TEST_F(Tabs, TakePicturesOfAListOrOfAControlAndRefuseOthers) {
    auto list = std::make_shared<const PlatformImageList>(PlatformImageList{.size = {24, 24}, .images = {}});
    const ImageListHandle handle = list;
    Pictures control;
    tabs.SetImageList(handle);
    EXPECT_EQ(strip.images.size, (Size{24, 24}));
    tabs.Rebuild();
    EXPECT_EQ(strip.images.size, (Size{24, 24}));
    tabs.SetImageList(ImageListHandle());
    EXPECT_FALSE(strip.images.draw);
    tabs.SetImageList(control);
    EXPECT_EQ(strip.images.size, (Size{16, 8}));
    list.reset();
    control.fails = true;
    for (const auto& set : {std::function([&] { tabs.SetImageList(handle); }),
                            std::function([&] { tabs.SetImageList(control); })}) {
        const Error error = FailureOf(set);
        EXPECT_EQ(Number(error), 4);
        EXPECT_EQ(error.Description(), u"Invalid Image List.");
        EXPECT_FALSE(strip.images.draw);
    }
}

TEST_F(Tabs, AreDrawnByTheirOwnerOrByDefault) {
    const Pictures control;
    tabs.SetImageList(control);
    tabs.SetCool(CoolTabs::Shaded);
    const auto drawn = [&](int position, bool selected) {
        RecordingSurface surface;
        strip.Notices.draw(position, surface, strip.ItemPlace(position), selected);
        return surface.drawn;
    };
    EXPECT_THAT(drawn(0, true), ElementsAre("fill 0,0-50,20 d4d0c8", "composite 6,6-22,14 of 0,0-16,8",
                                            "text 23,0-50,20 000000 centre Общие"));
    EXPECT_THAT(drawn(1, false),
                ElementsAre("fill 50,0-100,21 808080", "text 50,0-100,21 d4d0c8 centre Код"));
    tabs.SetCool(CoolTabs::Raised);
    EXPECT_THAT(drawn(0, false), ElementsAre("fill 0,0-50,21 d4d0c8", "composite 2,6-18,14 of 0,0-16,8",
                                             "text 19,0-50,21 000000 centre Общие"));
    strip.items[0].hot = true;
    bool keeps = true;
    tabs.DrawItem = [&](int tab, Surface&, bool selected, bool hot, Rect& place, bool& doDefault) {
        EXPECT_EQ(tab == 1, hot);
        EXPECT_FALSE(selected);
        place.left += 10;
        doDefault = keeps;
    };
    EXPECT_EQ(drawn(1, false).front(), "fill 60,0-100,21 d4d0c8");
    keeps = false;
    EXPECT_THAT(drawn(0, false), ElementsAre());
    EXPECT_EQ(strip.Notices.measure(0, {9, 9}), std::nullopt);
    tabs.MeasureItem = [](int tab, Size& size, bool& doDefault) {
        size.width += tab;
        doDefault = tab > 2;
    };
    EXPECT_EQ(strip.Notices.measure(1, {9, 9}), (Size{11, 9}));
    EXPECT_EQ(strip.Notices.measure(2, {9, 9}), std::nullopt);
}

TEST_F(Tabs, LookRaisedAtOnceButNotAtTheSides) {
    const auto raised = [&] {
        RecordingSurface surface;
        if (strip.Notices.painted)
            strip.Notices.painted(surface);
        return surface.drawn;
    };
    tabs.RemoveTab(3);
    tabs.RemoveTab(2);
    EXPECT_THAT(raised(), ElementsAre());
    tabs.SetCool(CoolTabs::Raised);
    EXPECT_EQ(strip.repaints, 1);
    EXPECT_FALSE(strip.Notices.erasePage);
    EXPECT_THAT(raised(), testing::IsSupersetOf(
                              {"line 0,19-0,2 ffffff", "line 2,0-47,0 ffffff", "line 49,2-49,19 808080"}));
    tabs.Styles.align = TabAlign::Bottom;
    EXPECT_EQ(raised().front(), "line 0,19-0,2 ffffff") << "not before it is rebuilt";
    tabs.Rebuild();
    EXPECT_THAT(raised(), testing::IsSupersetOf(
                              {"line 0,0-0,17 ffffff", "line 2,19-47,19 808080", "line 49,17-49,0 808080"}));
    tabs.SetCool(CoolTabs::Shaded);
    RecordingSurface page;
    strip.Notices.erasePage(page, {1, 2, 3, 4});
    EXPECT_THAT(page.drawn, ElementsAre("fill 1,2-3,4 d4d0c8"));
    tabs.Styles.align = TabAlign::Left;
    tabs.Rebuild();
    EXPECT_THAT(raised(), ElementsAre());
    tabs.SetCool(CoolTabs::Plain);
    EXPECT_FALSE(strip.Notices.painted || strip.Notices.erasePage);
}

} // namespace
} // namespace quillshift
