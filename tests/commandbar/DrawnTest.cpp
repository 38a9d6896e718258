// Everything that bars and menus draw, in each style, against a stored list of drawing calls; their colours.

#include "commandbar/BarPainter.h"
#include "commandbar/Contrast.h"
#include "commandbar/cMenuDropShadow.h"
#include "commandbar/mCommandBarColours.h"
#include "support/DrawnList.h"
#include "support/FailureOf.h"
#include "support/FakeBarControl.h"
#include "support/Pixels.h"
#include "support/RecordingSurface.h"

#include <gtest/gtest.h>

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

void Caption(B& b, const char16_t* caption) {
    b.Caption = caption;
    b.ShowCaptionInToolbar = true;
}

constexpr Variant kItems[] = {
    {"icon", [](B& b, I&) { b.IconIndex = 7; }},
    {"icon and caption", [](B& b, I&) { b.IconIndex = 7, Caption(b, u"&Stop"); }},
    {"caption", [](B& b, I&) { Caption(b, u"&Stop"); }},
    {"colour", [](B& b, I&) { b.ColorBox = Rgb(1, 2, 3), b.Caption = u"hidden"; }},
    {"sub-bar", [](B& b, I&) { b.Bar = SomeBar(), b.ShowDropDownInToolbar = true; }},
    {"heading", [](B& b, I&) { b.Bar = SomeBar(), Caption(b, u"&File"); }},
    {"split", [](B& b, I&) { b.Style = ButtonStyle::Split, b.IconIndex = 7; }},
    {"split with caption",
     [](B& b, I&) { b.Style = ButtonStyle::Split, b.IconIndex = 7, Caption(b, u"&Stop"); }},
    {"control", [](B& b, I&) { b.Style = ButtonStyle::Panel, b.Panel = SomePanel(), b.IconIndex = 7; }},
    {"panel", [](B& b, I&) { b.Style = ButtonStyle::Panel, Caption(b, u"Name"); }},
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

// How a bar stands, and which items are painted on it, in which states.
struct Scene {
    const char* name;
    DisplayMode mode;
    unsigned how;
    std::span<const Variant> items;
    std::span<const Variant> states;
};

using enum DisplayMode;
using States = std::span<const Variant>;
enum How : unsigned { kAsUsual = 0, kByKeys = 1, kRightToLeft = 2, kUpright = 4, kCaptionsBelow = 8 };
const Scene kScenes[] = {
    {"toolbar", Toolbar, kAsUsual, kItems, kStates},
    {"toolbar by keys", Toolbar, kByKeys, kItems, States(kStates).last(3)},
    {"toolbar right to left", Toolbar, kRightToLeft, kItems, States(kStates).first(2)},
    {"upright", Toolbar, kUpright, kItems, States(kStates).first(2)},
    {"captions below", Toolbar, kCaptionsBelow, kItems, States(kStates).first(2)},
    {"main menu", MainMenu, kAsUsual, kItems, States(kStates).first(2)},
    {"menu", PopupMenu, kAsUsual, kRows, kRowStates},
    {"menu by keys", PopupMenu, kByKeys, kRows, States(kRowStates).last(3)},
    {"menu right to left", PopupMenu, kRightToLeft, kRows, States(kRowStates).first(3)},
    {"list", AddOrRemoveList, kAsUsual, kRows, States(kRowStates).first(6)},
    {"list right to left", AddOrRemoveList, kRightToLeft, kRows, States(kRowStates).first(1)},
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
    }

    void List(const std::string& name, const BarView& bar, std::size_t from = 0) {
        list.push_back("- " + name);
        const std::vector<std::string> painted = Painted(bar);
        list.insert(list.end(), painted.begin() + static_cast<std::ptrdiff_t>(from), painted.end());
    }
    std::vector<std::string> Painted(const BarView& bar) {
        RecordingSurface surface;
        const BarPainter painter(colours);
        bar.items.empty() ? painter.PaintBar(surface, bar) : painter.PaintItem(surface, bar, 0);
        return surface.drawn;
    }
    BarView ViewOf(DisplayMode mode, unsigned how) {
        BarView bar;
        bar.mode = mode;
        bar.client = (how & kUpright) != 0 ? Size{40, 200} : Size{200, (how & kCaptionsBelow) != 0 ? 40 : 26};
        bar.orientation = (how & kUpright) != 0 ? Orientation::Left : Orientation::Top;
        bar.textPosition = (how & kCaptionsBelow) != 0 ? TextPosition::BelowIcon : TextPosition::BesideIcon;
        bar.rightToLeft = (how & kRightToLeft) != 0;
        bar.keyboardMode = (how & kByKeys) != 0;
        bar.parentClient = {-5, -30, 300, 200};
        bar.icons = &icons;
        return bar;
    }
    // The bar itself, and what each item draws on it.
    void ListScene(const Scene& scene) {
        BarView bar = ViewOf(scene.mode, scene.how);
        List(std::string("bar: ") + scene.name, bar);
        const std::size_t ground = Painted(bar).size() - 1; // the last lifts the clip
        for (const Variant& item : scene.items)
            for (const Variant& state : scene.states) {
                B button;
                I info{.Left = 10, .Top = 0, .Right = 80, .Bottom = bar.client.height};
                if (IsMenu(scene.mode))
                    info = {.Left = 0, .Top = 1, .Right = 200, .Bottom = 25};
                else if (scene.how == kUpright)
                    info = {.Left = 0, .Top = 10, .Right = 40, .Bottom = 80};
                item.make(button, info);
                state.make(button, info);
                const B* const buttons[] = {&button};
                bar.buttons = buttons;
                bar.items = {&info, 1};
                List(item.name + std::string(" ") + state.name, bar, ground);
            }
    }
    void ListGaps() {
        BarView bar = ViewOf(PopupMenu, kAsUsual);
        for (const int direction : {0, 1, 2, 3})
            for (const int position : {5, -3000}) {
                bar.gap = {
                    .direction = static_cast<PopupDirection>(direction), .position = position, .size = 35};
                List("gap " + std::to_string(direction), bar);
            }
        const std::uint8_t pixel[4] = {};
        bar.mode = Toolbar;
        bar.background = {.bits = pixel, .width = 50, .height = 40};
        List("picture", bar);
    }
    void ListShadows() {
        const Rect menu{100, 50, 112, 59};
        for (const auto edge : {ShadowEdge::Right, ShadowEdge::Bottom})
            for (const bool layered : {true, false}) {
                cMenuDropShadow shadow(edge);
                shadow.Create(menu);
                const Rect place = shadow.Target();
                const std::vector<std::uint8_t> screen(
                    static_cast<std::size_t>(place.Width() * place.Height()) * 4, 99);
                const PixelView copy{screen.data(), place.Width(), place.Height()};
                EXPECT_TRUE(layered || shadow.CreateOver(menu, copy));
                list.push_back("- shadow " + RecordingSurface::Text(place));
                ListPixels(shadow.Pixels(), list);
                EXPECT_FALSE(shadow.CreateOver(menu, {copy.bits, copy.width - 1, copy.height}));
                EXPECT_TRUE(shadow.Target().IsEmpty()) << "no strip without a copy of the screen";
            }
    }
    // A line for each slot: its colour on the grey desktop, in the themed style in each theme; on a dark
    // desktop; and on one of few colours.
    void ListColours() {
        std::vector<std::string> lines(31);
        const auto add = [&](const std::u16string& name) {
            theme.name = name;
            colours.Start();
            for (std::size_t slot = 1; slot <= 30; ++slot) {
                const auto colour = colours.StyleColor(static_cast<int>(slot));
                lines[slot] += colour ? RecordingSurface::Text(*colour) : " none  ";
            }
        };
        add(u"");
        if (GetParam().style == BarStyle::Themed)
            for (const auto& name : {u"NormalColor", u"Metallic", u"Homestead"})
                add(name + std::u16string(u"\0 as it came", 12));
        const FakeSystemColours grey = desktop;
        desktop.MakeDark();
        add(u"Metallic");
        desktop = grey;
        desktop.bitsPerPixel = 8;
        add(u"");
        for (std::size_t slot = 1; slot <= 30; ++slot)
            list.push_back("- colour " + std::to_string(slot) + lines[slot]);
    }

    FakeSystemColours desktop;
    FakeTheme theme;
    mCommandBarColours colours{desktop, theme, GetParam().flags};
    FakeIcons icons;
    std::vector<std::string> list;
};

TEST_P(DrawnBars, AreAsStored) {
    for (const Scene& scene : kScenes)
        ListScene(scene);
    ListGaps();
    if (GetParam().style == BarStyle::OfficeXP)
        ListShadows(); // the same in all
    ListColours();
    ExpectAsStored("commandbar/drawn/" + std::string(GetParam().name) + ".txt", list);
}

INSTANTIATE_TEST_SUITE_P(
    Styles, DrawnBars,
    testing::Values(StyleCase{"OfficeXP", BarStyle::OfficeXP, {}, {}},
                    StyleCase{"Themed", BarStyle::Themed, u"NormalColor", {}},
                    StyleCase{"Dark", BarStyle::Dark, {}, {}}, StyleCase{"System", BarStyle::System, {}, {}},
                    StyleCase{"SystemWithATheme", BarStyle::System, u"Other", {}},
                    StyleCase{
                        "SystemByTheTable", BarStyle::System, {}, {.Gradients = false, .Themes = false}}));

class CommandBarColours : public testing::Test {
protected:
    void ExpectContrast(Slot slot, std::optional<Colour> ground, double least) const {
        if (ground) {
            EXPECT_GE(Contrast(colours.Of(slot).value(), *ground), least) << static_cast<int>(slot);
        }
    }
    void ExpectReadable() const {
        const ColourPair shared = colours.SharedGround();
        for (const auto& ground :
             {colours.Of(Slot::BarFillStart), colours.Of(Slot::BarFillEnd), shared.start, shared.end}) {
            ExpectContrast(Slot::ToolbarText, ground, 4.5);
            ExpectContrast(Slot::DisabledText, ground, 3);
        }
        for (const Slot fill : {Slot::BarFillStart, Slot::BarFillEnd, Slot::MenuFillStart})
            ExpectContrast(Slot::IconDisabled, colours.Of(fill), 3);
        for (const Slot fill : {Slot::MenuFillStart, Slot::MenuFillEnd})
            ExpectContrast(Slot::MenuDisabledText, colours.Of(fill), 3);
        ExpectContrast(Slot::ToolbarText, colours.Of(Slot::DisabledText), 1.3); // still another
        EXPECT_LE(Brightness(colours.Of(Slot::Shadow).value()), 0.2);
    }

    FakeSystemColours desktop;
    FakeTheme theme;
    mCommandBarColours colours{desktop, theme};
};

TEST_F(CommandBarColours, CanBeReadInEveryStyleAndThemeOnEveryDesktop) {
    EXPECT_NEAR(Contrast(Rgb(0, 0, 0), Rgb(255, 255, 255)), 21, 1e-9);
    EXPECT_NEAR(Contrast(Rgb(255, 255, 255), Rgb(119, 119, 119)), 4.48, 0.005);
    EXPECT_NEAR(Contrast(Rgb(255, 0, 0), Rgb(0, 0, 255)), 2.15, 0.005);
    for (const char* const kind : {"grey", "dark", "dark with light edges"}) {
        if (kind[0] == 'd')
            desktop.MakeDark();
        if (std::string_view(kind).ends_with("edges"))
            for (const auto edge : {SystemColour::Highlight3D, SystemColour::DarkShadow3D})
                desktop.colours[edge] = Rgb(151, 151, 151);
        for (const char16_t* const name : {u"", u"NormalColor", u"Metallic", u"Homestead"})
            for (const int style : {0, 1, 2, 3}) {
                SCOPED_TRACE(kind + std::to_string(style));
                theme.name = name;
                colours.SetStyle(static_cast<BarStyle>(style));
                colours.Start();
                ExpectReadable();
            }
    }
}

TEST_F(CommandBarColours, AreBlackAndWhiteInEveryStyleWhereTheDesktopIs) {
    const Colour black = Rgb(0, 0, 0);
    const Colour white = Rgb(255, 255, 255);
    for (const auto& [ground, text] : {std::pair(black, white), std::pair(white, black)})
        for (const int style : {0, 1, 2, 3}) {
            SCOPED_TRACE(style + (ground == white ? 10 : 0));
            desktop.MakeHighContrast(ground, text);
            theme.name = u"Homestead";
            colours.SetStyle(static_cast<BarStyle>(style));
            colours.Start();
            ExpectReadable();
            for (const Slot line : {Slot::ToolbarText, Slot::Border, Slot::HotBorder, Slot::SeparatorDark})
                for (const Slot fill : {Slot::BarFillStart, Slot::CheckedFillEnd})
                    ExpectContrast(line, colours.Of(fill), 21);
            for (const Slot fill : {Slot::MenuFillStart, Slot::TickFillStart, Slot::HotTickFillEnd})
                ExpectContrast(Slot::MenuText, colours.Of(fill), 21);
            for (const Slot fill : {Slot::HotFillStart, Slot::PressedFillEnd})
                ExpectContrast(Slot::HotText, colours.Of(fill), 21);
            ExpectContrast(Slot::MenuHotText, colours.Of(Slot::MenuHotFillStart), 21);
        }
}

TEST_F(CommandBarColours, StandUnderAnOverrideUntilItIsLiftedAndCanComeBack) {
    constexpr auto kHot = static_cast<int>(Slot::HotFillStart);
    const Colour red = Rgb(255, 0, 0);
    const auto scheme = colours.Of(Slot::HotFillStart);
    colours.SetCustomColor(kHot, red);
    EXPECT_FALSE(colours.UseStyleColor(kHot));
    EXPECT_EQ(colours.Of(Slot::MenuHotFillStart), red) << "slots that refer to it follow";
    EXPECT_EQ(colours.SchemeColor(kHot), scheme);
    colours.SetUseStyleColor(kHot, true);
    EXPECT_EQ(colours.StyleColor(kHot), scheme);
    colours.SetUseStyleColor(kHot, false);
    EXPECT_EQ(colours.StyleColor(kHot), red);
    for (const int slot : {0, 31})
        EXPECT_EQ(colours.StyleColor(slot), Rgb(0, 0, 0)) << "a number without a slot";
    for (const int slot : {-1, 32})
        EXPECT_EQ(FailureOf([&] { colours.StyleColor(slot); }).Number(), 9) << slot;
}

TEST(Blend, RoundsToTheNearest) {
    for (int n = 0; n <= 255; ++n)
        for (int level = 0; level <= 255; ++level) {
            const double exact = n * level / 255.0 + (255 - n) * 100 / 255.0;
            const auto red = static_cast<std::uint8_t>(level);
            ASSERT_NEAR(Blend(Rgb(red, 0, 0), Rgb(100, 0, 0), n).Red(), exact, 0.5);
        }
}

} // namespace
} // namespace quillshift
