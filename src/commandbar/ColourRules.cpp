#include "commandbar/ColourRules.h"

#include <array>
#include <concepts>

namespace quillshift {
namespace {

using enum Slot;
using enum SystemColour;

// The rules of the themed style, by theme.
struct ThemedRules {
    std::array<ColourRule, 4> byTheme;

    template <typename Same>
    requires std::constructible_from<ColourRule, Same>
    constexpr ThemedRules(Same same) : byTheme{same, same, same, same} {}
    constexpr ThemedRules(ColourRule normalColor, ColourRule metallic, ColourRule homestead, ColourRule none)
        : byTheme{none, normalColor, metallic, homestead} {}
};

struct Row {
    Slot slot;
    ColourRule officeXP;
    ThemedRules themed; // NormalColor, Metallic, Homestead, none; or the same for all
    ColourRule dark;
    ColourRule system;
};

constexpr Colour kWhite = Rgb(255, 255, 255);
constexpr ColourRule kNone;

constexpr Colour Grey(std::uint8_t level) {
    return Rgb(level, level, level);
}

constexpr ColourRule Mix(ColourSource a, ColourSource b, int parts, ColourSource otherwise) {
    return {a, b, parts, otherwise};
}

constexpr ColourRule HighOnly(ColourSource high, ColourSource otherwise) {
    return {high, {}, 255, otherwise};
}

constexpr ColourSource Whitened(SystemColour name) {
    ColourSource source(name);
    source.kind = ColourSource::Kind::Whitened;
    return source;
}

// clang-format off
constexpr std::array<Row, 30> kRows{{
    {ToolbarText, WindowText, WindowText, kWhite, WindowText},
    {HotText, ToolbarText, ToolbarText, MenuHotText, ToolbarText},
    {DisabledText, SeparatorDark, SeparatorDark, Grey(190), SeparatorDark},
    {ItemFillStart, kNone, kNone, kNone, kNone},
    {ItemFillEnd, kNone, kNone, kNone, kNone},
    {HotFillStart, Mix(Whitened(Highlight3D), Highlight, 178, ButtonFace),
     {Rgb(253, 254, 211), Rgb(255, 239, 192), Rgb(250, 248, 206), Mix(Highlight, Highlight3D, 77, ButtonFace)},
     Grey(70), ButtonFace},
    {HotFillEnd, HotFillStart,
     {Rgb(253, 221, 152), Rgb(255, 220, 115), Rgb(240, 220, 146), Mix(Highlight, Highlight3D, 84, HotFillStart)},
     HotFillStart, HotFillStart},
    {CheckedFillStart, Mix(Highlight, BarFillStart, 21, ButtonFace),
     {Rgb(251, 223, 128), Rgb(250, 218, 152), Rgb(245, 220, 138), Mix(BarFillStart, HotFillStart, 16, ButtonFace)},
     MenuHotFillStart, Mix(Highlight3D, ButtonFace, 220, ButtonFace)},
    {CheckedFillEnd, CheckedFillStart,
     {Rgb(245, 185, 74), Rgb(229, 165, 33), Rgb(230, 184, 80), BarFillStart},
     CheckedFillStart, CheckedFillStart},
    {PressedFillStart, Mix(Highlight3D, Highlight, 128, Highlight3D),
     {Rgb(251, 139, 89), Rgb(236, 176, 139), Rgb(232, 158, 98), Mix(Highlight, Highlight3D, 128, Highlight3D)},
     Grey(90), ButtonFace},
    {PressedFillEnd, PressedFillStart,
     {Rgb(206, 47, 3), Rgb(196, 103, 48), Rgb(186, 92, 40), Mix(Highlight, Highlight3D, 150, PressedFillStart)},
     PressedFillStart, PressedFillStart},
    {Shadow, DarkShadow3D, DisabledText, Grey(0), DarkShadow3D},
    {Border, Mix(ButtonShadow, DarkShadow3D, 108, ButtonShadow),
     {Rgb(0, 45, 150), Rgb(124, 124, 148), Rgb(84, 100, 56), Mix(DarkShadow3D, ButtonShadow, 96, ButtonShadow)},
     Grey(68), ButtonShadow},
    {MenuText, WindowText, WindowText, kWhite, WindowText},
    {MenuHotText, MenuText, MenuText, Rgb(255, 223, 127), HighlightText},
    {MenuDisabledText, Mix(ButtonFace, GrayText, 128, SeparatorDark),
     {Grey(160), Grey(148), Rgb(156, 158, 146), SeparatorDark},
     Grey(145), SeparatorDark},
    {MenuFillStart, Mix(Window, ButtonFace, 220, Menu),
     {Grey(246), Rgb(253, 250, 255), Rgb(250, 250, 243), HighOnly(Rgb(249, 248, 247), Menu)},
     Grey(91), Menu},
    {MenuFillEnd, MenuFillStart, MenuFillStart, MenuFillStart, MenuFillStart},
    {MenuHotFillStart, HotFillStart, HotFillStart, HotFillStart, Highlight},
    {MenuHotFillEnd, HotFillEnd, HotFillEnd, HotFillEnd, MenuHotFillStart},
    {HotBorder, Highlight, {Rgb(0, 0, 128), Rgb(75, 75, 111), Rgb(62, 78, 38), Highlight}, Grey(65), Highlight},
    {TickFillStart, CheckedFillStart, CheckedFillStart, CheckedFillStart, MenuFillStart},
    {TickFillEnd, CheckedFillEnd, CheckedFillEnd, CheckedFillEnd, MenuFillStart},
    {HotTickFillStart, PressedFillStart, PressedFillStart, PressedFillStart, MenuFillStart},
    {HotTickFillEnd, PressedFillEnd, PressedFillEnd, PressedFillEnd, MenuFillStart},
    {IconDisabled, ButtonShadow,
     {Rgb(109, 150, 208), Rgb(168, 167, 190), Rgb(160, 174, 124), Mix(ButtonShadow, Highlight3D, 224, ButtonShadow)},
     Grey(70), ButtonShadow},
    {SeparatorLight, Highlight3D, {kWhite, kWhite, kWhite, Highlight3D}, Grey(160), Highlight3D},
    {SeparatorDark, ButtonShadow,
     {Rgb(106, 140, 203), Rgb(110, 109, 143), Rgb(130, 146, 92), Mix(ButtonShadow, Highlight3D, 180, ButtonShadow)},
     Grey(112), ButtonShadow},
    {BarFillStart, Mix(Light3D, ButtonFace, 128, ButtonFace),
     {Rgb(209, 227, 251), Rgb(249, 249, 255), Rgb(238, 242, 220), Mix(ButtonFace, Highlight3D, 24, ButtonFace)},
     MenuFillStart, kNone},
    {BarFillEnd, BarFillStart,
     {Rgb(129, 169, 226), Rgb(159, 157, 185), Rgb(178, 190, 142), ButtonFace},
     BarFillStart, kNone},
}};
// clang-format on

constexpr bool RowsFollowTheSlots() {
    for (std::size_t i = 0; i < kRows.size(); ++i)
        if (static_cast<std::size_t>(kRows[i].slot) != i + 1)
            return false;
    return true;
}
static_assert(RowsFollowTheSlots());

} // namespace

const ColourRule& RuleOf(Slot slot, BarStyle style, ThemeColour theme) {
    const Row& row = kRows[static_cast<std::size_t>(slot) - 1];
    switch (style) {
    case BarStyle::OfficeXP:
        return row.officeXP;
    case BarStyle::Themed:
        return row.themed.byTheme[static_cast<std::size_t>(theme)];
    case BarStyle::Dark:
        return row.dark;
    case BarStyle::System:
        break;
    }
    return row.system;
}

ColourSource HighContrastSource(Slot slot) {
    switch (slot) {
    case ItemFillStart:
    case ItemFillEnd:
        return {};
    case HotFillStart:
    case HotFillEnd:
    case PressedFillStart:
    case PressedFillEnd:
    case MenuHotFillStart:
    case MenuHotFillEnd:
        return Highlight;
    case HotText:
    case MenuHotText:
        return HighlightText;
    case DisabledText:
    case MenuDisabledText:
    case IconDisabled:
        return GrayText;
    case Shadow:
        return Rgb(0, 0, 0);
    case ToolbarText:
    case MenuText:
    case Border:
    case HotBorder:
    case SeparatorLight:
    case SeparatorDark:
        return WindowText;
    default:
        return Window;
    }
}

} // namespace quillshift
