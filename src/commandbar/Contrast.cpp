#include "commandbar/Contrast.h"

#include "commandbar/mCommandBarColours.h"

#include <algorithm>
#include <cmath>

namespace quillshift {
namespace {

double Linear(std::uint8_t channel) {
    const double part = channel / 255.0;
    return part <= 0.04045 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
}

} // namespace

double Brightness(Colour colour) {
    return 0.2126 * Linear(colour.Red()) + 0.7152 * Linear(colour.Green()) + 0.0722 * Linear(colour.Blue());
}

double Contrast(Colour a, Colour b) {
    const auto [darker, lighter] = std::minmax({Brightness(a), Brightness(b)});
    return (lighter + 0.05) / (darker + 0.05);
}

Colour Readable(Colour told, Colour better, std::span<const Colour> others, double least) {
    constexpr int kStep = 15; // of 255
    for (int parts = 0; parts < 255; parts += kStep) {
        const Colour colour = Blend(better, told, parts);
        if (std::ranges::all_of(others, [&](Colour other) { return Contrast(colour, other) >= least; }))
            return colour;
    }
    return better;
}

} // namespace quillshift
