#include "commandbar/mCommandBarColours.h"

#include "base/Error.h"
#include "commandbar/ColourRules.h"
#include "commandbar/Contrast.h"

#include <vector>

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

using Grounds = std::initializer_list<std::optional<Colour>>;

std::optional<Colour> ReadableOn(const Grounds& grounds, std::optional<Colour> told,
                                 std::optional<Colour> text) {
    std::vector<Colour> filled;
    for (const std::optional<Colour>& ground : grounds)
        if (ground)
            filled.push_back(*ground);
    return told && text ? std::optional(Readable(*told, *text, filled)) : told;
}

// The colour of a slot as its rule has it, whatever its override.
class Scheme {
public:
    Scheme(const mCommandBarColours& colours) : colours_(colours) {}

    std::optional<Colour> ColourOf(Slot slot) const {
        if (colours_.HighContrast())
            return ColourOf(HighContrastSource(slot));
        const std::optional<Colour> told = Told(slot);
        const auto of = [this](Slot other) { return colours_.Of(other); };
        switch (slot) {
        case Slot::DisabledText: {
            const ColourPair shared = colours_.SharedGround();
            return ReadableOn({of(Slot::BarFillStart), of(Slot::BarFillEnd), shared.start, shared.end}, told,
                              of(Slot::ToolbarText));
        }
        case Slot::MenuDisabledText:
            return ReadableOn({of(Slot::MenuFillStart), of(Slot::MenuFillEnd)}, told, of(Slot::MenuText));
        case Slot::IconDisabled: // on the strip that the icons of a menu stand on
            return ReadableOn({of(Slot::MenuFillStart), of(Slot::BarFillStart), of(Slot::BarFillEnd)}, told,
                              of(Slot::MenuText));
        case Slot::Shadow:
            // On a dark desktop the lines are lighter than the ground, which a shadow never is.
            return told && Brightness(*told) > Brightness(colours_.Of(SystemColour::ButtonFace)) ? Colour{0}
                                                                                                 : told;
        default:
            return told;
        }
    }

private:
    std::optional<Colour> Told(Slot slot) const {
        const ColourRule& rule = RuleFor(slot);
        if (!colours_.HighColour())
            return ColourOf(rule.otherwise);
        const std::optional<Colour> a = ColourOf(rule.a);
        if (rule.parts == 255)
            return a;
        const std::optional<Colour> b = ColourOf(rule.b);
        return a && b ? std::optional(Blend(*a, *b, rule.parts)) : std::nullopt;
    }

    bool IsDark() const { return IsLight(colours_.Of(SystemColour::WindowText)); }

    // All themes have light fills, but the text on them is the desktop's. On a dark desktop, where that is
    // light, there is no theme, and the menus, which are nearly white without one, follow the desktop.
    const ColourRule& RuleFor(Slot slot) const {
        if (colours_.Style() != BarStyle::Themed || !IsDark())
            return RuleOf(slot, colours_.Style(), colours_.ThemeColour());
        const bool follows = slot == Slot::MenuFillStart;
        return RuleOf(slot, follows ? BarStyle::OfficeXP : BarStyle::Themed, ThemeColour::None);
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
            // Away from the text that lies on it.
            return Blend(colours_.Of(source.system), IsDark() ? Rgb(0, 0, 0) : Rgb(255, 255, 255), 128);
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
    : system_(system), theme_(theme), flags_(flags) {}

void mCommandBarColours::Start() {
    overrides_ = lastOverrides_ = {};
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
}

std::optional<Colour> mCommandBarColours::Of(Slot slot) const {
    const auto& custom = overrides_[static_cast<std::size_t>(slot)];
    return custom ? custom : Scheme(*this).ColourOf(slot);
}

// Whole bars are filled with the highlight of edges. Where text is light it mustn't be so light that the text
// drowns in it.
Colour mCommandBarColours::Of(SystemColour name) const {
    const Colour told = system_.Of(name);
    if (name != SystemColour::Highlight3D)
        return told;
    const Colour text = system_.Of(SystemColour::WindowText);
    return IsLight(text) ? Readable(told, system_.Of(SystemColour::ButtonFace), {&text, 1}, kTextContrast)
                         : told;
}

ColourPair mCommandBarColours::SharedGround() const {
    if (HighContrast())
        return {Of(SystemColour::Window), Of(SystemColour::Window)};
    if (style_ != BarStyle::System)
        return {Of(Slot::BarFillEnd), Of(Slot::BarFillStart)};
    const Colour face = Of(SystemColour::ButtonFace);
    return {highColour_ ? Blend(Of(SystemColour::Highlight3D), face, 192) : face, face};
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
