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
    FakeSystemColours desktop;
    FakeTheme theme;
    mCommandBarColours colours{desktop, theme};
};

TEST_F(CommandBarColours, GreyedCaptionsCanBeReadInEveryStyleAndThemeOnEveryDesktop) {
    EXPECT_NEAR(Contrast(Rgb(0, 0, 0), Rgb(255, 255, 255)), 21, 1e-9);
    EXPECT_NEAR(Contrast(Rgb(255, 255, 255), Rgb(119, 119, 119)), 4.48, 0.005);
    EXPECT_NEAR(Contrast(Rgb(255, 0, 0), Rgb(0, 0, 255)), 2.15, 0.005);
    for (const bool dark : {false, true}) {
        if (dark)
            desktop.MakeDark();
        for (const char16_t* const name : {u"", u"NormalColor", u"Metallic", u"Homestead"})
            for (const int style : {0, 1, 2, 3}) {
                theme.name = name;
                colours.SetStyle(static_cast<BarStyle>(style));
                colours.Start();
                const ColourPair shared = colours.SharedGround();
                for (const auto& ground :
                     {colours.Of(Slot::BarFillStart), colours.Of(Slot::BarFillEnd), shared.start, shared.end})
                    if (ground) {
                        EXPECT_GE(Contrast(*colours.Of(Slot::DisabledText), *ground), 3) << style << dark;
                    }
                for (const Slot ground : {Slot::MenuFillStart, Slot::MenuFillEnd})
                    EXPECT_GE(Contrast(*colours.Of(Slot::MenuDisabledText), *colours.Of(ground)), 3)
                        << style << dark;
                for (const auto& ground : {colours.Of(Slot::BarFillStart), colours.Of(Slot::BarFillEnd)})
                    if (ground) {
                        EXPECT_GE(Contrast(*colours.Of(Slot::IconDisabled), *ground), 3) << style << dark;
                    }
                EXPECT_LT(Brightness(*colours.Of(Slot::Shadow)), 0.4) << style << dark;
            }
    }
}

TEST_F(CommandBarColours, LeaveGreyedCaptionsGreyWhereTheDesktopsEdgesAreTooLightForItsText) {
    desktop.MakeDark();
    desktop.colours[SystemColour::Highlight3D] = Rgb(151, 151, 151);
    for (const int style : {0, 1, 2, 3}) {
        colours.SetStyle(static_cast<BarStyle>(style));
        const Colour disabled = *colours.Of(Slot::DisabledText);
        const Colour ground = colours.SharedGround().end.value_or(Rgb(0, 0, 0));
        EXPECT_GE(Contrast(*colours.Of(Slot::ToolbarText), ground), 4.5) << style;
        EXPECT_GE(Contrast(*colours.Of(Slot::ToolbarText), disabled), 1.3) << style;
        EXPECT_GE(Contrast(disabled, ground), 3) << style;
    }
}

TEST_F(CommandBarColours, AnOverrideStandsUntilItIsLiftedAndCanComeBack) {
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
}

TEST_F(CommandBarColours, NumbersWithoutASlotAreBlackAndOthersRefused) {
    EXPECT_EQ(colours.StyleColor(0), Rgb(0, 0, 0));
    EXPECT_EQ(colours.StyleColor(31), Rgb(0, 0, 0));
    for (const int slot : {-1, 32}) {
        const Error error = FailureOf([&] { colours.StyleColor(slot); });
        EXPECT_EQ(error.Number(), 9) << slot;
        EXPECT_EQ(error.Description(), u"Subscript out of range.");
    }
}

TEST(Blend, RoundsToTheNearest) {
    for (int n = 0; n <= 255; ++n)
        for (int level = 0; level <= 255; ++level) {
            const double exact = n * level / 255.0 + (255 - n) * 100 / 255.0;
            const auto red = static_cast<std::uint8_t>(level);
            ASSERT_NEAR(Blend(Rgb(red, 0, 0), Rgb(100, 0, 0), n).Red(), exact, 0.5);
        }
    EXPECT_EQ(Blend(Rgb(1, 2, 3), Rgb(4, 5, 6), 255), Rgb(1, 2, 3));
}

} // namespace
} // namespace quillshift
