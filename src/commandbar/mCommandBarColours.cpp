#include "commandbar/mCommandBarColours.h"

#include "base/Error.h"
#include "commandbar/ColourRules.h"

namespace quillshift {
namespace {

bool HasSlot(int number) {
    return number >= static_cast<int>(Slot::ToolbarText) && number <= static_cast<int>(Slot::BarFillEnd);
}

ThemeColour ThemeNamed(std::u16string_view name) {
    name = name.substr(0, name.find(u'\0'));
    if (name == u"NormalColor")
        return ThemeColour::NormalColor;
    if (name == u"Metallic")
        return ThemeColour::Metallic;
    return name == u"Homestead" ? ThemeColour::Homestead : ThemeColour::None;
}

bool IsLight(Colour colour) {
    return colour.Red() + colour.Green() + colour.Blue() > 3 * 128;
}

// The colour of a slot as its rule has it, whatever its override.
class Scheme {
public:
    Scheme(const mCommandBarColours& colours) : colours_(colours) {}

    std::optional<Colour> ColourOf(Slot slot) const {
        const ColourRule& rule = RuleOf(slot, StyleOf(slot), colours_.ThemeColour());
        if (!colours_.HighColour())
            return ColourOf(rule.otherwise);
        const std::optional<Colour> a = ColourOf(rule.a);
        if (rule.parts == 255)
            return a;
        const std::optional<Colour> b = ColourOf(rule.b);
        return a && b ? std::optional(Blend(*a, *b, rule.parts)) : std::nullopt;
    }

private:
    // Without a theme the themed menus are nearly white, but their text is the desktop's: on a dark desktop,
    // where that is light, they take the fill that follows the desktop.
    BarStyle StyleOf(Slot slot) const {
        const bool fixed = slot == Slot::MenuFillStart && colours_.Style() == BarStyle::Themed &&
                           colours_.ThemeColour() == ThemeColour::None;
        return fixed && IsLight(colours_.Of(SystemColour::WindowText)) ? BarStyle::OfficeXP
                                                                       : colours_.Style();
    }

    std::optional<Colour> ColourOf(const ColourSource& source) const {
        switch (source.kind) {
        case ColourSource::Kind::None:
            break;
        case ColourSource::Kind::Fixed:
            return source.fixed;
        case ColourSource::Kind::System:
            return colours_.Of(source.system);
        case ColourSource::Kind::Whitened:
            return Blend(colours_.Of(source.system), Rgb(255, 255, 255), 128);
        case ColourSource::Kind::Slot:
            return colours_.Of(source.slot);
        }
        return std::nullopt;
    }

    const mCommandBarColours& colours_;
};

} // namespace

mCommandBarColours::mCommandBarColours(const SystemColours& system, const ThemeService& theme,
                                       PlatformFlags flags)
    : system_(system), theme_(theme), flags_(flags) {
    Detect();
}

bool mCommandBarColours::SetStyle(BarStyle style) {
    if (style == style_)
        return false;
    style_ = style;
    Detect();
    return true;
}

// Without a theme the theme's colours stay as they were.
void mCommandBarColours::Detect() {
    if (style_ == BarStyle::Themed && flags_.Themes)
        if (const auto name = theme_.ColourName())
            themeColour_ = ThemeNamed(*name);
    highColour_ = system_.BitsPerPixel() > 8;
    highContrast_ = system_.HighContrast();
}

std::optional<Colour> mCommandBarColours::Of(Slot slot) const {
    const auto& custom = overrides_[static_cast<std::size_t>(slot)];
    return custom ? custom : Scheme(*this).ColourOf(slot);
}

std::optional<Colour> mCommandBarColours::StyleColor(int slot) const {
    Checked(slot);
    return HasSlot(slot) ? Of(static_cast<Slot>(slot)) : Colour{0};
}

std::optional<Colour> mCommandBarColours::SchemeColor(int slot) const {
    Checked(slot);
    return HasSlot(slot) ? Scheme(*this).ColourOf(static_cast<Slot>(slot)) : Colour{0};
}

void mCommandBarColours::SetCustomColor(int slot, std::optional<Colour> colour) {
    const std::size_t index = Checked(slot);
    overrides_[index] = colour;
    if (colour)
        lastOverrides_[index] = colour;
}

void mCommandBarColours::SetUseStyleColor(int slot, bool on) {
    SetCustomColor(slot, on ? std::nullopt : lastOverrides_[Checked(slot)]);
}

std::size_t mCommandBarColours::Checked(int slot) {
    if (slot < 0 || static_cast<std::size_t>(slot) >= kNumbers)
        throw Error(9, u"quillshift.qsPicker", u"Subscript out of range.");
    return static_cast<std::size_t>(slot);
}

} // namespace quillshift
