#include "commandbar/mCommandBarColours.h"

#include "support/FailureOf.h"
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
    for (const int slot : {-1, 32}) {
        const Error error = FailureOf([&] { colours.StyleColor(slot); });
        EXPECT_EQ(error.Number(), 9) << slot;
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
