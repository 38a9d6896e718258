#include "commandbar/Contrast.h"
#include "commandbar/mCommandBarColours.h"
#include "support/FailureOf.h"
#include "support/FakeDesktop.h"
#include "support/RecordingSurface.h"

#include <gtest/gtest.h>

namespace quillshift {
namespace {

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
