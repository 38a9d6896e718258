#include "commandbar/mCommandBarColours.h"

#include "base/Error.h"
#include "support/FakeDesktop.h"
#include "support/RecordingSurface.h"

#include <gtest/gtest.h>

namespace quillshift {
namespace {

constexpr Colour kFace = Rgb(212, 208, 200);
constexpr Colour kShadow = Rgb(128, 128, 128);
constexpr Colour kHighlight = Rgb(10, 36, 106);
constexpr Colour kWhite = Rgb(255, 255, 255);
constexpr Colour kBlack = Rgb(0, 0, 0);

class CommandBarColours : public testing::Test {
protected:
    void Expect(std::initializer_list<std::pair<Slot, std::optional<Colour>>> expected) const {
        for (const auto& [slot, colour] : expected)
            EXPECT_EQ(colours.Of(slot), colour) << "slot " << static_cast<int>(slot);
    }
    FakeSystemColours system;
    FakeTheme theme;
    mCommandBarColours colours{system, theme};
};

TEST_F(CommandBarColours, OfficeXPBlendsTheDesktopsColours) {
    EXPECT_TRUE(colours.SetStyle(BarStyle::OfficeXP));
    EXPECT_FALSE(colours.SetStyle(BarStyle::OfficeXP));
    Expect({{Slot::ToolbarText, kBlack},
            {Slot::ItemFillStart, std::nullopt},
            {Slot::HotFillStart, Rgb(181, 189, 210)},
            {Slot::HotFillEnd, Rgb(181, 189, 210)},
            {Slot::CheckedFillStart, Rgb(195, 194, 192)},
            {Slot::PressedFillStart, Rgb(133, 146, 181)},
            {Slot::Shadow, Rgb(64, 64, 64)},
            {Slot::Border, Rgb(91, 91, 91)},
            {Slot::MenuDisabledText, Rgb(170, 168, 164)},
            {Slot::MenuFillStart, Rgb(249, 249, 247)},
            {Slot::MenuHotFillStart, Rgb(181, 189, 210)},
            {Slot::HotTickFillStart, Rgb(133, 146, 181)},
            {Slot::HotBorder, kHighlight},
            {Slot::BarFillEnd, kFace}});
}

TEST_F(CommandBarColours, ThemedWithoutAThemeBlendsThemItsOwnWay) {
    EXPECT_EQ(colours.Style(), BarStyle::Themed);
    Expect({{Slot::HotFillStart, Rgb(181, 189, 210)},
            {Slot::HotFillEnd, Rgb(174, 183, 206)},
            {Slot::CheckedFillStart, Rgb(185, 193, 213)},
            {Slot::CheckedFillEnd, Rgb(251, 251, 250)},
            {Slot::Shadow, Rgb(165, 165, 165)},
            {Slot::Border, Rgb(104, 104, 104)},
            {Slot::MenuFillEnd, Rgb(249, 248, 247)},
            {Slot::IconDisabled, Rgb(143, 143, 143)},
            {Slot::BarFillStart, Rgb(251, 251, 250)},
            {Slot::BarFillEnd, kFace}});
}

TEST_F(CommandBarColours, EachThemeHasColoursOfItsOwn) {
    struct Case {
        std::u16string name;
        ThemeColour theme;
        Colour bar, hot, separator;
    };
    const Case cases[] = {
        {std::u16string(u"NormalColor\0rest", 16), ThemeColour::NormalColor, Rgb(209, 227, 251),
         Rgb(253, 254, 211), Rgb(106, 140, 203)},
        {u"Metallic", ThemeColour::Metallic, Rgb(249, 249, 255), Rgb(255, 239, 192), Rgb(110, 109, 143)},
        {u"Homestead", ThemeColour::Homestead, Rgb(238, 242, 220), Rgb(250, 248, 206), Rgb(130, 146, 92)},
        {u"Breeze", ThemeColour::None, Rgb(251, 251, 250), Rgb(181, 189, 210), Rgb(165, 165, 165)}};
    for (const Case& one : cases) {
        theme.name = one.name;
        const mCommandBarColours table(system, theme);
        EXPECT_EQ(table.ThemeColour(), one.theme);
        EXPECT_EQ(table.Of(Slot::BarFillStart), one.bar);
        EXPECT_EQ(table.Of(Slot::MenuHotFillStart), one.hot);
        EXPECT_EQ(table.Of(Slot::DisabledText), one.separator);
        const mCommandBarColours unthemed(system, theme, {.Themes = false});
        EXPECT_EQ(unthemed.ThemeColour(), ThemeColour::None);
    }
}

TEST_F(CommandBarColours, DarkHasNoSystemColours) {
    system.colours.clear();
    colours.SetStyle(BarStyle::Dark);
    for (int slot = 1; slot <= 30; ++slot)
        EXPECT_NO_THROW(colours.StyleColor(slot)) << slot;
    Expect({{Slot::HotText, Rgb(255, 223, 127)}, {Slot::CheckedFillEnd, Rgb(70, 70, 70)}});
}

TEST_F(CommandBarColours, ThemedMenusFollowADarkDesktop) {
    system.colours[SystemColour::WindowText] = kWhite;
    system.colours[SystemColour::Window] = Rgb(0, 0, 0);
    system.colours[SystemColour::ButtonFace] = Rgb(0, 0, 0);
    Expect({{Slot::MenuFillStart, Rgb(0, 0, 0)}, {Slot::MenuText, kWhite}});
}

TEST_F(CommandBarColours, SystemHasNoBarFill) {
    colours.SetStyle(BarStyle::System);
    Expect({{Slot::CheckedFillEnd, Rgb(249, 249, 247)},
            {Slot::MenuHotText, kWhite},
            {Slot::MenuHotFillEnd, kHighlight},
            {Slot::TickFillEnd, kFace},
            {Slot::BarFillStart, std::nullopt},
            {Slot::BarFillEnd, std::nullopt}});
}

TEST_F(CommandBarColours, FewColoursMeanNoBlends) {
    system.bitsPerPixel = 8;
    for (const BarStyle style : {BarStyle::OfficeXP, BarStyle::Themed, BarStyle::System}) {
        colours.SetStyle(BarStyle::Dark);
        colours.SetStyle(style);
        Expect({{Slot::HotFillEnd, kFace},
                {Slot::CheckedFillStart, kFace},
                {Slot::PressedFillEnd, style == BarStyle::System ? kFace : kWhite},
                {Slot::Border, kShadow},
                {Slot::MenuDisabledText, kShadow},
                {Slot::MenuFillStart, kFace},
                {Slot::IconDisabled, kShadow},
                {Slot::SeparatorDark, kShadow}});
    }
}

TEST_F(CommandBarColours, AnOverrideStandsUntilItIsLiftedAndCanComeBack) {
    constexpr auto kHot = static_cast<int>(Slot::HotFillStart);
    const Colour red = Rgb(255, 0, 0);
    colours.SetCustomColor(kHot, red);
    EXPECT_FALSE(colours.UseStyleColor(kHot));
    EXPECT_EQ(colours.Of(Slot::MenuHotFillStart), red) << "slots that refer to it follow";
    EXPECT_EQ(colours.SchemeColor(kHot), Rgb(181, 189, 210));
    colours.SetUseStyleColor(kHot, true);
    EXPECT_EQ(colours.StyleColor(kHot), Rgb(181, 189, 210));
    colours.SetUseStyleColor(kHot, false);
    EXPECT_EQ(colours.StyleColor(kHot), red);
    colours.SetCustomColor(static_cast<int>(Slot::ItemFillStart), red);
    EXPECT_EQ(colours.Of(Slot::ItemFillStart), red);
}

TEST_F(CommandBarColours, NumbersWithoutASlotAreBlackAndOthersRefused) {
    EXPECT_EQ(colours.StyleColor(0), kBlack);
    EXPECT_EQ(colours.StyleColor(31), kBlack);
    for (const int slot : {-1, 32})
        try {
            colours.StyleColor(slot);
            ADD_FAILURE() << slot;
        } catch (const Error& error) {
            EXPECT_EQ(error.Number(), 9);
            EXPECT_EQ(error.Description(), u"Subscript out of range.");
        }
}

TEST(Blend, RoundsToTheNearestAndKeepsWhatIsTheSame) {
    for (int n = 0; n <= 255; ++n)
        for (int level = 0; level <= 255; ++level) {
            const auto x = static_cast<std::uint8_t>(level);
            ASSERT_EQ(Blend(Rgb(x, x, x), Rgb(x, x, x), n), Rgb(x, x, x));
            const double exact = n * level / 255.0 + (255 - n) * 100 / 255.0;
            ASSERT_NEAR(Blend(Rgb(x, 0, 0), Rgb(100, 0, 0), n).Red(), exact, 0.5);
        }
    EXPECT_EQ(Blend(Rgb(1, 2, 3), Rgb(4, 5, 6), 255), Rgb(1, 2, 3));
    EXPECT_EQ(Blend(Rgb(1, 2, 3), Rgb(4, 5, 6), 0), Rgb(4, 5, 6));
}

} // namespace
} // namespace quillshift
