#include "commandbar/icons/IconMode.h"

#include <cmath>

namespace quillshift {
namespace {

constexpr Colour kWhite = Rgb(255, 255, 255);
constexpr int kFaintPlain = 50;
constexpr int kFaintHighlighted = 90;

bool IsShadow(Colour colour) {
    return colour == Rgb(227, 227, 227) || colour == Rgb(221, 221, 221);
}

Colour ColourOf(const std::uint8_t* pixel) {
    return Rgb(pixel[2], pixel[1], pixel[0]);
}

// Whether there is nothing but white and shadow to be seen.
bool IsAllWhite(cAlphaDIBSection& icon) {
    bool allWhite = true;
    icon.ForEachPixel([&](const std::uint8_t* pixel) {
        const Colour colour = ColourOf(pixel);
        if (pixel[3] != 0 && !IsShadow(colour) && colour != kWhite)
            allWhite = false;
    });
    return allWhite;
}

int Luminance(Colour colour) {
    return static_cast<int>(
        std::lrint((222 * colour.Red() + 707 * colour.Green() + 71 * colour.Blue()) / 1000.0));
}

struct Look {
    Colour colour;
    int alpha;
};

Look LookOf(Colour colour, IconMode mode, bool allWhite, Colour disabled, Colour highlight) {
    if (mode == IconMode::Disabled)
        return {disabled, colour == kWhite && allWhite ? 255 : 255 - Luminance(colour)};
    if (!IsShadow(colour))
        return {colour, 255};
    return mode == IconMode::Highlighted ? Look{highlight, kFaintHighlighted} : Look{colour, kFaintPlain};
}

} // namespace

void DeriveIcon(cAlphaDIBSection& icon, IconMode mode, Colour disabled, Colour highlight) {
    const bool allWhite = IsAllWhite(icon);
    icon.ForEachPixel([&](std::uint8_t* pixel) {
        const Look look = LookOf(ColourOf(pixel), mode, allWhite, disabled, highlight);
        pixel[0] = look.colour.Blue();
        pixel[1] = look.colour.Green();
        pixel[2] = look.colour.Red();
        pixel[3] = static_cast<std::uint8_t>(look.alpha * pixel[3] / 255); // 0 stays 0
    });
    icon.PreMultiplyAlpha();
}

} // namespace quillshift
