// Everything that bars and menus draw, in each style, against a stored list of drawing calls.

#include "commandbar/BarPainter.h"
#include "commandbar/cMenuDropShadow.h"
#include "commandbar/qsCommandBar.h"
#include "support/DrawnList.h"
#include "support/FakeBarWindow.h"
#include "support/FakeDesktop.h"
#include "support/FakePlatform.h"
#include "support/FakeWindowMessages.h"
#include "support/Pixels.h"
#include "support/TestBar.h"

#include <gmock/gmock.h>

namespace quillshift {
namespace {

class FakeIcons final : public BarIcons {
public:
    Size IconSize() const override { return {16, 16}; }
    void Draw(Surface& surface, int index, IconMode mode, Point at) override {
        constexpr const char* kModes[] = {"", " disabled", " plain", " highlighted"};
        dynamic_cast<RecordingSurface&>(surface).Note("icon " + std::to_string(index) + " at " +
                                                      std::to_string(at.x) + "," + std::to_string(at.y) +
                                                      kModes[static_cast<int>(mode)]);
    }
};

using B = ButtonRecord;
using I = cDisplayButtonInfo;

struct Variant {
    const char* name;
    void (*make)(B&, I&);
};

constexpr Variant kItems[] = {
    {"icon", [](B& b, I&) { b.IconIndex = 7; }},
    {"icon and caption",
     [](B& b, I&) { b.IconIndex = 7, b.Caption = u"&Stop", b.ShowCaptionInToolbar = true; }},
    {"caption", [](B& b, I&) { b.Caption = u"&Stop", b.ShowCaptionInToolbar = true; }},
    {"colour", [](B& b, I&) { b.ColorBox = Rgb(1, 2, 3), b.Caption = u"hidden"; }},
    {"sub-bar", [](B& b, I&) { b.Bar = SomeBar(), b.ShowDropDownInToolbar = true; }},
    {"heading", [](B& b, I&) { b.Bar = SomeBar(), b.Caption = u"&File", b.ShowCaptionInToolbar = true; }},
    {"split", [](B& b, I&) { b.Style = ButtonStyle::Split, b.IconIndex = 7; }},
    {"split with caption",
     [](B& b, I&) {
         b.Style = ButtonStyle::Split, b.IconIndex = 7, b.Caption = u"&Stop", b.ShowCaptionInToolbar = true;
     }},
    {"control", [](B& b, I&) { b.Style = ButtonStyle::Panel, b.Panel = SomePanel(), b.IconIndex = 7; }},
    {"panel",
     [](B& b, I&) { b.Style = ButtonStyle::Panel, b.Caption = u"Name", b.ShowCaptionInToolbar = true; }},
    {"separator", [](B& b, I&) { b.Style = ButtonStyle::Separator; }},
};

constexpr Variant kStates[] = {
    {"idle", [](B&, I&) {}},
    {"hot", [](B&, I& i) { i.MouseOver = true; }},
    {"pressed", [](B&, I& i) { i.MouseOver = i.MouseDown = true; }},
    {"down elsewhere", [](B&, I& i) { i.MouseDown = true; }},
    {"checked", [](B& b, I&) { b.Checked = true; }},
    {"checked, hot", [](B& b, I& i) { b.Checked = i.MouseOver = true; }},
    {"checked, down elsewhere", [](B& b, I& i) { b.Checked = i.MouseDown = true; }},
    {"with its menu open", [](B&, I& i) { i.MouseOver = i.ShowingMenu = true; }},
    {"arrow hot", [](B&, I& i) { i.MouseOverSplit = true; }},
    {"arrow pressed", [](B&, I& i) { i.MouseOverSplit = i.MouseDownSplit = true; }},
    {"disabled", [](B& b, I&) { b.Enabled = false; }},
    {"disabled, hot", [](B& b, I& i) { b.Enabled = false, i.MouseOver = true; }},
    {"locked", [](B& b, I&) { b.Locked = true; }},
    {"locked, disabled", [](B& b, I&) { b.Locked = true, b.Enabled = false; }},
};
constexpr std::span<const Variant> kFewStates(kStates, 2);

constexpr Variant kRows[] = {
    {"icon", [](B& b, I&) { b.IconIndex = 7, b.Caption = u"&Open"; }},
    {"shortcut", [](B& b, I&) { b.Caption = u"&Open", b.ShortcutKey = 'O', b.ShortcutModifiers = 4; }},
    {"sub-menu", [](B& b, I&) { b.Bar = SomeBar(), b.Caption = u"Recent"; }},
    {"colour", [](B& b, I&) { b.ColorBox = Rgb(1, 2, 3); }},
    {"separator", [](B& b, I&) { b.Style = ButtonStyle::Separator; }},
};

constexpr Variant kRowStates[] = {
    {"idle", [](B&, I&) {}},
    {"ticked", [](B& b, I&) { b.Checked = true; }},
    {"ticked, hot", [](B& b, I& i) { b.Checked = i.MouseOver = true; }},
    {"listed", [](B& b, I&) { b.CustomiseState = CustomiseState::Ticked; }},
    {"listed, ticked, hot",
     [](B& b, I& i) { b.CustomiseState = CustomiseState::Ticked, b.Checked = i.MouseOver = true; }},
    {"not listed", [](B& b, I&) { b.CustomiseState = CustomiseState::NotTicked; }},
    {"hot", [](B&, I& i) { i.MouseOver = true; }},
    {"disabled", [](B& b, I&) { b.Enabled = false; }},
    {"disabled, hot", [](B& b, I& i) { b.Enabled = false, i.MouseOver = true; }},
    {"disabled, ticked", [](B& b, I&) { b.Enabled = false, b.Checked = true; }},
    {"with its menu open", [](B&, I& i) { i.ShowingMenu = true; }},
};

struct StyleCase {
    const char* name;
    BarStyle style;
    std::optional<std::u16string> theme;
    PlatformFlags flags;
};

class DrawnBars : public testing::TestWithParam<StyleCase> {
protected:
    DrawnBars() {
        theme.name = GetParam().theme;
        colours.Start();
        colours.SetStyle(GetParam().style);
        bar.parentClient = {-5, -30, 300, 200};
        bar.icons = &icons;
    }

    // What is drawn for a bar without items.
    std::vector<std::string> Ground() {
        BarView empty = bar;
        empty.buttons = {};
        empty.items = {};
        RecordingSurface surface;
        BarPainter(colours).PaintBar(surface, empty);
        return {surface.drawn.begin() + 1, surface.drawn.end() - 1};
    }
    void ListGround(const std::string& name) {
        list.push_back("- " + name);
        for (const std::string& line : Ground())
            list.push_back(line);
    }
    // What is drawn for an item, without the bar beneath it.
    void List(const std::string& name, const B& button, const I& item) {
        const B* const buttons[] = {&button};
        bar.buttons = buttons;
        bar.items = {&item, 1};
        RecordingSurface surface;
        BarPainter(colours).PaintItem(surface, bar, 0);
        EXPECT_EQ(surface.drawn.front(), "clip " + RecordingSurface::Text(AreaOf(item)));
        EXPECT_EQ(surface.drawn.back(), "unclip");
        list.push_back("- " + name);
        const auto ground = static_cast<std::ptrdiff_t>(Ground().size());
        list.insert(list.end(), surface.drawn.begin() + 1 + ground, surface.drawn.end() - 1);
    }
    void ListAll(const std::string& where, std::span<const Variant> items, std::span<const Variant> states) {
        list.push_back("= " + where);
        const bool rows = IsMenu(bar.mode);
        const Rect place = rows                         ? Rect{0, 1, 200, 25}
                           : IsUpright(bar.orientation) ? Rect{0, 10, 24, 80}
                                                        : Rect{10, 0, 80, bar.client.height};
        for (const Variant& item : items)
            for (const Variant& state : states) {
                B button;
                I info{.Left = place.left, .Top = place.top, .Right = place.right, .Bottom = place.bottom};
                item.make(button, info);
                state.make(button, info);
                List(item.name + std::string(" ") + state.name, button, info);
            }
    }
    void ListToolbars() {
        bar.client = {200, 24};
        ListAll("toolbar", kItems, kStates);
        bar.keyboardMode = true;
        ListAll("by keys", std::span(kItems, 1), std::span(kStates).last(3));
        bar.keyboardMode = false;
        bar.rightToLeft = true;
        ListAll("right to left", kItems, kFewStates);
        bar.rightToLeft = false;
        bar.orientation = Orientation::Left;
        bar.client = {24, 200};
        ListAll("upright", kItems, kFewStates);
        bar.orientation = Orientation::Top;
        bar.client = {200, 40};
        bar.textPosition = TextPosition::BelowIcon;
        ListAll("captions below", kItems, kFewStates);
        bar.mode = DisplayMode::MainMenu;
        ListAll("main menu", kItems, kFewStates);
        bar.textPosition = TextPosition::BesideIcon;
    }
    void ListMenus() {
        bar.mode = DisplayMode::PopupMenu;
        bar.client = {200, 26};
        ListAll("menu", kRows, kRowStates);
        bar.keyboardMode = true;
        ListAll("by keys", std::span(kRows, 1), std::span(kRowStates).last(3));
        bar.keyboardMode = false;
        bar.rightToLeft = true;
        ListAll("right to left", kRows, std::span(kRowStates).first(3));
        bar.rightToLeft = false;
        bar.mode = DisplayMode::AddOrRemoveList;
        ListAll("list of buttons", kRows, std::span(kRowStates).first(6));
    }
    void ListGrounds() {
        list.emplace_back("= grounds");
        bar.client = {200, 24};
        bar.mode = DisplayMode::Toolbar;
        ListGround("toolbar");
        bar.orientation = Orientation::Right;
        ListGround("upright");
        bar.mode = DisplayMode::MainMenu;
        ListGround("main menu");
        const std::uint8_t pixel[4] = {};
        bar.background = {.bits = pixel, .width = 120, .height = 20};
        ListGround("picture");
        bar.background = {};
        bar.client = {100, 60};
        bar.mode = DisplayMode::PopupMenu;
        for (const int direction : {0, 1, 2, 3}) {
            bar.gap = {.direction = static_cast<PopupDirection>(direction), .position = 5, .size = 35};
            ListGround("menu to " + std::to_string(direction));
        }
        bar.gap = {.direction = PopupDirection::Below, .position = -3000, .size = 36};
        bar.rightToLeft = true;
        ListGround("menu right to left, without a gap");
        bar.mode = DisplayMode::AddOrRemoveList;
        ListGround("list of buttons right to left");
        bar.rightToLeft = false;
    }
    void ListStrip(const cMenuDropShadow& shadow) {
        const PixelView pixels = shadow.Pixels();
        list.push_back(RecordingSurface::Text(shadow.Target()) + ", alpha and blue from the top left:");
        for (int y = 0; y < pixels.height; ++y) {
            std::string& line = list.emplace_back();
            for (int x = 0; x < pixels.width; ++x) {
                const Pixel pixel = PixelOf(pixels, x, y);
                line += std::to_string(pixel[3]) + "/" + std::to_string(pixel[0]) + " ";
            }
        }
    }
    void ListShadows() {
        list.emplace_back("= shadows");
        for (const auto edge : {ShadowEdge::Right, ShadowEdge::Bottom}) {
            const Rect menu{100, 50, 112, 59};
            cMenuDropShadow shadow(edge);
            shadow.ShadowColor = Rgb(0, 0, 192);
            list.emplace_back(edge == ShadowEdge::Right ? "- right" : "- below");
            shadow.Create(menu);
            ListStrip(shadow);
            const Size size{shadow.Target().Width(), shadow.Target().Height()};
            const std::vector<std::uint8_t> screen(static_cast<std::size_t>(size.width * size.height) * 4,
                                                   99);
            EXPECT_TRUE(shadow.CreateOver(menu, {screen.data(), size.width, size.height}));
            ListStrip(shadow);
            EXPECT_FALSE(shadow.CreateOver(menu, {screen.data(), size.width - 1, size.height}));
            EXPECT_TRUE(shadow.Target().IsEmpty()) << "no strip without a copy of the screen";
        }
    }
    // A line for each slot: its colour on the grey desktop, on a dark one and on one of few colours; in the
    // themed style, in each theme.
    void ListColours() {
        list.emplace_back("= colours");
        std::vector<std::string> lines(31);
        const auto add = [&] {
            colours.Start();
            for (int slot = 1; slot <= 30; ++slot) {
                const auto colour = colours.StyleColor(slot);
                lines[static_cast<std::size_t>(slot)] += colour ? RecordingSurface::Text(*colour) : " none  ";
            }
        };
        for (const char16_t* const name : {u"", u"NormalColor", u"Metallic\0x", u"Homestead"}) {
            theme.name = name;
            if (GetParam().style == BarStyle::Themed || name[0] == u'\0')
                add();
        }
        theme.name = u"";
        const FakeSystemColours light = desktop;
        desktop.MakeDark();
        add();
        desktop = light;
        desktop.bitsPerPixel = 8;
        add();
        for (std::size_t slot = 1; slot <= 30; ++slot)
            list.push_back(std::to_string(slot) + lines[slot]);
    }

    FakeSystemColours desktop;
    FakeTheme theme;
    mCommandBarColours colours{desktop, theme, GetParam().flags};
    FakeIcons icons;
    BarView bar;
    std::vector<std::string> list;
};

TEST_P(DrawnBars, AreAsStored) {
    ListToolbars();
    ListMenus();
    ListGrounds();
    if (GetParam().style == BarStyle::OfficeXP)
        ListShadows(); // the same in all
    ListColours();
    ExpectAsStored(std::filesystem::path(DRAWN) / (GetParam().name + std::string(".txt")), list);
}

INSTANTIATE_TEST_SUITE_P(
    Styles, DrawnBars,
    testing::Values(StyleCase{"OfficeXP", BarStyle::OfficeXP, {}, {}},
                    StyleCase{"Themed", BarStyle::Themed, u"NormalColor", {}},
                    StyleCase{"Dark", BarStyle::Dark, {}, {}}, StyleCase{"System", BarStyle::System, {}, {}},
                    StyleCase{"SystemWithATheme", BarStyle::System, u"Other", {}},
                    StyleCase{
                        "SystemByTheTable", BarStyle::System, {}, {.Gradients = false, .Themes = false}}));

/// A control with a button that can be ticked, on a fake desktop.
class PaintedControl : public testing::Test {
protected:
    static constexpr int kHot = static_cast<int>(Slot::CheckedFillStart);

    std::vector<std::string> Painted() {
        RecordingSurface surface;
        window.listener->OnPaint(surface, {0, 0, 200, 24});
        return surface.drawn;
    }

    FakePlatform platform;
    FakeWindowMessages messages;
    FakeBarSystem system;
    FakeSystemColours desktop;
    FakeTheme theme;
    MSubclass subclass{messages, u"test"};
    mCommandBars toolkit{{system, messages, subclass, desktop, theme, platform.timers}};
    FakeBarWindow window = (messages.Open(1), messages.Open(2), FakeBarWindow(2, 1, {0, 0, 200, 24}));
};

TEST_F(PaintedControl, ShowsTheStyleThatIsChosen) {
    qsCommandBar control(toolkit, window);
    const cButton tick = control.Buttons().Add("TICK", -1, u"", ButtonStyle::Check);
    const cCommandBar bar = control.CommandBars().Add("BAR");
    bar.Buttons().Add(tick);
    control.SetToolbar(bar);
    const std::vector<std::string> unticked = Painted();
    tick.SetChecked(true);
    std::set<std::vector<std::string>> pictures{unticked, Painted()};
    for (const BarStyle style : {BarStyle::OfficeXP, BarStyle::Dark, BarStyle::System}) {
        window.repainted.clear();
        toolkit.SetStyle(style);
        EXPECT_EQ(window.repainted.size(), 1U);
        pictures.insert(Painted());
    }
    EXPECT_EQ(pictures.size(), 5U) << "each is another";
}

TEST_F(PaintedControl, FindsTheColoursAsNewAndTheThemeDetectedIfItIsTheFirst) {
    toolkit.SetCustomColor(kHot, Rgb(1, 2, 3));
    theme.name = u"Metallic";
    EXPECT_EQ(toolkit.Colours().ThemeColour(), ThemeColour::None) << "nobody has asked yet";
    const qsCommandBar first(toolkit, window);
    EXPECT_EQ(toolkit.Colours().ThemeColour(), ThemeColour::Metallic);
    EXPECT_TRUE(first.UseStyleColor(kHot));
    toolkit.SetCustomColor(kHot, Rgb(1, 2, 3));
    messages.Open(3);
    FakeBarWindow another(3, 1, {});
    const qsCommandBar second(toolkit, another);
    EXPECT_FALSE(second.UseStyleColor(kHot));
}

} // namespace
} // namespace quillshift
