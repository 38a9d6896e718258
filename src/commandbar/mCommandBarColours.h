#pragma once

#include "commandbar/ColourSlots.h"
#include "platform/SystemColours.h"

#include <array>
#include <optional>

namespace quillshift {

/// What the system can do; all of it on a system of today.
struct PlatformFlags {
    bool Gradients = true;
    bool Themes = true;
};

/// `n` parts of `a` with 255 - `n` parts of `b`, each channel rounded; 0 <= n <= 255.
constexpr Colour Blend(Colour a, Colour b, int n) {
    // 255 is odd, so no quotient lies halfway between two numbers.
    const auto channel = [n](int first, int second) {
        return static_cast<std::uint8_t>((n * first + (255 - n) * second + 127) / 255);
    };
    return Rgb(channel(a.Red(), b.Red()), channel(a.Green(), b.Green()), channel(a.Blue(), b.Blue()));
}

/// The colours of a gradient, either of which may be none.
struct ColourPair {
    std::optional<Colour> start, end;
};

/// The colour table of all bars. Every answer is worked out anew from the style, the theme and the system's
/// colours, so a change of any shows at the next paint.
class mCommandBarColours {
public:
    /// Both services have to outlive the table, and are asked nothing before `Start`.
    mCommandBarColours(const SystemColours& system, const ThemeService& theme, PlatformFlags flags = {});

    /// When the first control comes: forgets all overrides and detects the scheme. The style stays.
    void Start();

    BarStyle Style() const { return style_; }
    /// True if this is another style than before: the scheme has been detected, and every control has its
    /// icon colours to apply and itself to repaint.
    bool SetStyle(BarStyle style);
    quillshift::ThemeColour ThemeColour() const { return themeColour_; }
    bool HighColour() const { return highColour_; }
    bool HighContrast() const { return system_.HighContrast(); }
    const PlatformFlags& Flags() const { return flags_; }
    const ThemeService& Theme() const { return theme_; }

    /// The colour in effect; nothing paints nothing.
    std::optional<Colour> Of(Slot slot) const;
    Colour Of(SystemColour name) const;
    /// What runs from left to right through all bars of a window that have no fill of their own.
    ColourPair SharedGround() const;

    // By number, 0 to 31; any other throws Error 9 (Subscript out of range.).

    /// The colour in effect; 0 for the numbers without a slot, 0 and 31.
    std::optional<Colour> StyleColor(int slot) const;
    /// The colour that would be in effect without the slot's override.
    std::optional<Colour> SchemeColor(int slot) const;
    std::optional<Colour> CustomColor(int slot) const { return overrides_[Checked(slot)]; }
    /// Overrides a slot, or no longer does.
    void SetCustomColor(int slot, std::optional<Colour> colour);
    bool UseStyleColor(int slot) const { return !CustomColor(slot).has_value(); }
    /// Lifts the override of a slot, or puts its last one back.
    void SetUseStyleColor(int slot, bool on);

private:
    static constexpr std::size_t kNumbers = 32;
    using Overrides = std::array<std::optional<Colour>, kNumbers>;

    static std::size_t Checked(int slot);
    void Detect();

    const SystemColours& system_;
    const ThemeService& theme_;
    PlatformFlags flags_;
    BarStyle style_ = BarStyle::Themed;
    quillshift::ThemeColour themeColour_ = quillshift::ThemeColour::None;
    bool highColour_ = true;
    Overrides overrides_;
    Overrides lastOverrides_;
};

} // namespace quillshift
