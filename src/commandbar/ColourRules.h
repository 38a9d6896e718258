#pragma once

#include "base/Colour.h"
#include "commandbar/ColourSlots.h"
#include "platform/SystemColours.h"

#include <cstdint>

namespace quillshift {

/// Where one colour of a rule comes from.
struct ColourSource {
    enum class Kind : std::uint8_t { None, Fixed, System, Whitened, Slot };
    Kind kind = Kind::None;
    Colour fixed;                                   // Fixed
    SystemColour system = SystemColour::ButtonFace; // System; Whitened: blended with white in halves
    quillshift::Slot slot = Slot::ToolbarText;      // Slot: as it is in effect

    constexpr ColourSource() = default;
    constexpr ColourSource(Colour colour) : kind(Kind::Fixed), fixed(colour) {}
    constexpr ColourSource(SystemColour name) : kind(Kind::System), system(name) {}
    constexpr ColourSource(quillshift::Slot other) : kind(Kind::Slot), slot(other) {}
};

/// How a slot gets its colour: `a` and `b` blended on a display of many colours, `otherwise` on one of few.
struct ColourRule {
    ColourSource a;
    ColourSource b;
    int parts = 255; ///< of `a`; with all 255 there is no blend
    ColourSource otherwise;

    constexpr ColourRule() = default;
    constexpr ColourRule(Colour same) : a(same), otherwise(same) {}
    constexpr ColourRule(SystemColour same) : a(same), otherwise(same) {}
    constexpr ColourRule(Slot same) : a(same), otherwise(same) {}
    constexpr ColourRule(ColourSource first, ColourSource second, int partsOfFirst, ColourSource low)
        : a(first), b(second), parts(partsOfFirst), otherwise(low) {}
};

/// The rule of a slot in a style, and in a theme where the style is `Themed`.
const ColourRule& RuleOf(Slot slot, BarStyle style, ThemeColour theme);

/// What a slot is in every style where the desktop needs black and white: lines and letters on one ground,
/// and what is chosen on another one.
ColourSource HighContrastSource(Slot slot);

} // namespace quillshift
