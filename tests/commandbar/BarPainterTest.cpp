#include "commandbar/BarPainter.h"

#include "support/FakeDesktop.h"
#include "support/TestBar.h"

#include <gmock/gmock.h>

namespace quillshift {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using Lines = std::vector<std::string>;

class FakeIcons final : public BarIcons {
public:
    Size IconSize() const override { return {16, 16}; }
    void Draw(Surface& surface, int index, IconMode mode, Point at) override {
        dynamic_cast<RecordingSurface&>(surface).Note("icon " + std::to_string(index) + " mode " +
                                                      std::to_string(static_cast<int>(mode)) + " " +
                                                      std::to_string(at.x) + "," + std::to_string(at.y));
    }
};

// One item at 10,0, 24 by 24 unless a test changes that. Colours of the classic grey desktop:
constexpr auto kFace = "d4d0c8";
constexpr auto kShadow = "808080";
constexpr auto kNavy = "0a246a"; // HotBorder
constexpr auto kHot = "b5bdd2";  // of OfficeXP, as the ones below
constexpr auto kPressed = "8592b5";
constexpr auto kChecked = "c3c2c0";
constexpr auto kEdge = "5b5b5b";
constexpr auto kMenu = "f9f9f7";
constexpr auto kBlack = "000000";

class PaintedBar : public testing::Test {
protected:
    PaintedBar() {
        colours.SetStyle(BarStyle::OfficeXP);
        item.Left = 10;
        item.Right = 34;
        item.Bottom = 24;
        view.client = {200, 24};
        view.parentClient = {-5, -30, 300, 200};
        view.icons = &icons;
    }
    // What is drawn for the item, without the bar beneath it.
    Lines Item() {
        view.buttons = buttons;
        view.items = {&item, 1};
        RecordingSurface surface;
        BarPainter(colours).PaintItem(surface, view, 0);
        EXPECT_EQ(surface.drawn.front(), "clip " + RecordingSurface::Text(AreaOf(item)));
        EXPECT_EQ(surface.drawn.back(), "unclip");
        const auto ground = static_cast<std::ptrdiff_t>(Ground().size());
        return {surface.drawn.begin() + 1 + ground, surface.drawn.end() - 1};
    }
    // What is drawn for a bar without items.
    Lines Ground() {
        BarView empty = view;
        empty.buttons = {};
        empty.items = {};
        RecordingSurface surface;
        BarPainter(colours).PaintBar(surface, empty);
        return {surface.drawn.begin() + 1, surface.drawn.end() - 1};
    }
    void BecomeMenuRow(int width = 200) {
        view.mode = DisplayMode::PopupMenu;
        view.client = {width, 26};
        item = {.Left = 0, .Top = 1, .Right = width, .Bottom = 25};
    }
    void Widen(int width) { item.Right = item.Left + width; }

    FakeSystemColours system;
    FakeTheme theme;
    mCommandBarColours colours{system, theme};
    FakeIcons icons;
    ButtonRecord button;
    std::vector<const ButtonRecord*> buttons{&button};
    cDisplayButtonInfo item;
    BarView view;
};

std::string Fill(const char* colour, const char* area = "11,1-33,23") {
    return std::string("fill ") + area + " " + colour;
}
std::string Frame(const char* colour, const char* area = "11,1-33,23") {
    return std::string("frame ") + area + " " + colour;
}

TEST_F(PaintedBar, AnItemsStateChoosesItsFillAndBorder) {
    struct Case {
        const char* name;
        void (*prepare)(ButtonRecord&, cDisplayButtonInfo&);
        Lines drawn;
    };
    using B = ButtonRecord;
    using I = cDisplayButtonInfo;
    // clang-format off
    const Case cases[] = {
        {"idle", [](B&, I&) {}, {}},
        {"hot", [](B&, I& i) { i.MouseOver = true; }, {Fill(kHot), Frame(kNavy)}},
        {"pressed", [](B&, I& i) { i.MouseOver = i.MouseDown = true; }, {Fill(kPressed), Frame(kNavy)}},
        {"down elsewhere", [](B&, I& i) { i.MouseDown = true; }, {Fill(kHot), Frame(kNavy)}},
        {"checked", [](B& b, I&) { b.Checked = true; }, {Fill(kChecked), Frame(kNavy)}},
        {"hot, checked", [](B& b, I& i) { b.Checked = i.MouseOver = true; }, {Fill(kPressed), Frame(kNavy)}},
        {"pressed, with sub-bar", [](B& b, I& i) { b.Bar = SomeBar(), i.MouseOver = i.MouseDown = true; }, {Fill(kFace), Frame(kNavy)}},
        {"showing its menu", [](B& b, I& i) { b.Bar = SomeBar(), i.MouseOver = i.ShowingMenu = true; }, {Fill(kFace), Frame(kEdge)}},
        {"showing another menu", [](B&, I& i) { i.MouseOver = i.ShowingMenu = true; }, {Fill(kPressed), Frame(kEdge)}},
        {"disabled", [](B& b, I& i) { b.Enabled = false, i.MouseOver = true; }, {}},
    };
    // clang-format on
    for (const Case& one : cases) {
        button = {};
        item = {.Left = 10, .Top = 0, .Right = 34, .Bottom = 24};
        one.prepare(button, item);
        EXPECT_EQ(Item(), one.drawn) << one.name;
    }
    view.keyboardMode = true;
    EXPECT_THAT(Item(), ElementsAre(Frame(kNavy))) << "disabled, reached by key";
}

TEST_F(PaintedBar, WhatCanNotBeUsedIsGreyUnlessItIsLocked) {
    button.IconIndex = 0;
    button.Caption = u"Stop";
    button.ShowCaptionInToolbar = true;
    button.Enabled = false;
    EXPECT_THAT(Item(), ElementsAre("icon 0 mode 1 14,4", HasSubstr(" 808080 left Stop")));
    button.Enabled = true;
    button.Locked = true;
    EXPECT_THAT(Item(), ElementsAre("icon 0 mode 0 14,4", HasSubstr(" 000000 left Stop")));
}

TEST_F(PaintedBar, InSystemTheThemePaintsItemsOrTheBarShowsThrough) {
    colours.SetStyle(BarStyle::System);
    button.IconIndex = 0;
    button.Checked = true;
    EXPECT_THAT(Item(), ElementsAre("icon 0 mode 0 15,5"));
    theme.name = u"NormalColor";
    EXPECT_THAT(Item(), ElementsAre("part 1 state 5 11,1-33,23", "icon 0 mode 0 15,5"));
    item.MouseOver = true;
    EXPECT_THAT(Item(), Contains("part 1 state 6 11,1-33,23"));
    button.Checked = false;
    item.MouseDown = true;
    button.Caption = u"Stop";
    button.ShowCaptionInToolbar = true;
    EXPECT_THAT(Item(), ElementsAre("part 1 state 3 11,1-33,23", "icon 0 mode 0 15,5",
                                    HasSubstr(" ffffff left Stop")));
    item.MouseDown = false;
    button.Style = ButtonStyle::Split;
    Widen(35);
    EXPECT_THAT(Item(), testing::IsSupersetOf({"part 3 state 2 11,1-33,23", "part 4 state 2 33,1-44,23"}));
    button.Style = ButtonStyle::Separator;
    EXPECT_THAT(Item(), ElementsAre("part 5 state 1 10,0-45,24"));

    mCommandBarColours unthemed(system, theme, {.Themes = false});
    unthemed.SetStyle(BarStyle::System);
    RecordingSurface surface;
    button.Style = ButtonStyle::Normal;
    BarPainter(unthemed).PaintItem(surface, view, 0);
    EXPECT_THAT(surface.drawn, Contains(Frame(kNavy, "11,1-44,23"))) << "the table paints instead";
}

TEST_F(PaintedBar, TheBackgroundIsAPictureTheBarsFillOrAPartOfTheWindows) {
    EXPECT_THAT(Ground(), ElementsAre(Fill(kFace, "0,0-200,24")));
    colours.SetStyle(BarStyle::Themed);
    EXPECT_THAT(Ground(), ElementsAre("down 0,0-200,24 fbfbfa d4d0c8"));
    view.orientation = Orientation::Left;
    EXPECT_THAT(Ground(), ElementsAre("across 0,0-200,24 fbfbfa d4d0c8"));
    view.mode = DisplayMode::MainMenu;
    EXPECT_THAT(Ground(), ElementsAre("across -5,-30-300,200 d4d0c8 fbfbfa"));
    colours.SetStyle(BarStyle::System);
    view.mode = DisplayMode::Toolbar;
    EXPECT_THAT(Ground(), ElementsAre("across -5,-30-300,200 f4f3f1 d4d0c8"));
    const std::uint8_t pixel[4] = {};
    view.background = {.bits = pixel, .width = 120, .height = 20};
    EXPECT_THAT(Ground(), ElementsAre("composite 0,0-120,20", "composite 120,0-240,20",
                                      "composite 0,20-120,40", "composite 120,20-240,40"));

    const mCommandBarColours flat(system, theme, {.Gradients = false});
    RecordingSurface surface;
    view.background = {};
    BarPainter(flat).PaintBar(surface, view);
    EXPECT_THAT(surface.drawn, Contains(Fill("fbfbfa", "0,0-200,24")));
}

TEST_F(PaintedBar, APopupsBorderIsOpenTowardsItsItem) {
    view.mode = DisplayMode::PopupMenu;
    view.client = {100, 60};
    view.gap = {.direction = PopupDirection::Below, .position = -3000, .size = 36};
    EXPECT_THAT(Ground(),
                ElementsAre(Fill(kMenu, "0,0-100,60"), Frame(kEdge, "0,0-100,60"), Fill(kFace, "1,2-25,58")));
    const std::pair<PopupDirection, std::string> gaps[] = {{PopupDirection::Below, "line 1,0-34,0 "},
                                                           {PopupDirection::Above, "line 1,59-34,59 "},
                                                           {PopupDirection::Right, "line 0,1-0,34 "},
                                                           {PopupDirection::Left, "line 99,1-99,34 "}};
    for (const auto& [direction, line] : gaps) {
        view.gap = {.direction = direction, .position = 0, .size = 35};
        EXPECT_EQ(Ground()[2], line + kMenu);
    }
    view.mode = DisplayMode::AddOrRemoveList;
    EXPECT_EQ(Ground().back(), Fill(kFace, "1,2-43,58"));
    view.mode = DisplayMode::PopupMenu;
    view.rightToLeft = true;
    EXPECT_EQ(Ground().back(), Fill(kFace, "75,2-99,58"));
}

TEST_F(PaintedBar, AMenuRowShowsIconCaptionShortcutAndSubMenu) {
    BecomeMenuRow();
    button.IconIndex = 0;
    button.Caption = u"&Open";
    button.ShortcutKey = 'O';
    button.ShortcutModifiers = modifier::kCtrl;
    EXPECT_THAT(Item(), ElementsAre("icon 0 mode 0 5,5", "text 32,1-180,25 000000 right Ctrl+O",
                                    "text 32,1-180,25 000000 left &Open"));
    view.rightToLeft = true;
    EXPECT_THAT(Item(), ElementsAre("icon 0 mode 0 179,5", "text 20,1-168,25 000000 left Ctrl+O",
                                    "text 4,1-168,25 000000 right &Open"));
    view.rightToLeft = false;
    button.ShortcutKey = 0;
    button.Bar = SomeBar();
    item.MouseOver = true;
    EXPECT_THAT(Item(), ElementsAre(Fill(kHot, "2,2-198,25"), Frame(kNavy, "2,2-198,25"), "icon 0 mode 0 5,5",
                                    "text 32,1-180,25 000000 left &Open", Fill(kBlack, "188,10-189,17"),
                                    Fill(kBlack, "189,11-190,16"), Fill(kBlack, "190,12-191,15"),
                                    Fill(kBlack, "191,13-192,14")));
}

TEST_F(PaintedBar, ACheckedRowHasATickBoxBehindItsIconOrWithAMark) {
    BecomeMenuRow();
    button.Checked = true;
    const auto box = "3,3-24,24";
    EXPECT_THAT(Item(),
                ElementsAre(Fill(kChecked, box), Frame(kNavy, box), "line 10,13-12,15 000000",
                            "line 10,14-12,16 000000", "line 12,16-18,10 000000", "line 12,15-18,9 000000"));
    button.IconIndex = 0;
    item.MouseOver = true;
    EXPECT_THAT(Item(), ElementsAre(testing::_, testing::_, Fill(kPressed, box), Frame(kNavy, box),
                                    "icon 0 mode 0 5,5"));
    view.rightToLeft = true;
    EXPECT_THAT(Item(), Contains(Frame(kNavy, "176,3-197,24")));
}

} // namespace
} // namespace quillshift
