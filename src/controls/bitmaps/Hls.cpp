#include "controls/bitmaps/Hls.h"

#include <algorithm>
#include <cmath>

namespace quillshift {
namespace {

// A factor from outside may have carried the channel far out of its range.
std::uint8_t ToByte(float channel) {
    return static_cast<std::uint8_t>(std::lrint(std::clamp(channel * 255, 0.0F, 255.0F)));
}

Colour FromChannels(float red, float green, float blue) {
    return Rgb(ToByte(red), ToByte(green), ToByte(blue));
}

} // namespace

Hls ToHls(Colour colour) {
    const float red = static_cast<float>(colour.Red()) / 255;
    const float green = static_cast<float>(colour.Green()) / 255;
    const float blue = static_cast<float>(colour.Blue()) / 255;
    const float most = std::max({red, green, blue});
    const float least = std::min({red, green, blue});
    Hls hls{.luminance = (most + least) / 2};
    if (most == least)
        return hls;
    const float range = most - least;
    hls.saturation = range / (hls.luminance <= 0.5F ? most + least : 2 - most - least);
    if (red == most)
        hls.hue = (green - blue) / range;
    else if (green == most)
        hls.hue = 2 + (blue - red) / range;
    else
        hls.hue = 4 + (red - green) / range;
    return hls;
}

Colour ToRgb(Hls hls) {
    const auto [hue, luminance, saturation] = hls;
    if (saturation == 0)
        return FromChannels(luminance, luminance, luminance);
    const float low =
        luminance <= 0.5F ? luminance * (1 - saturation) : luminance - saturation * (1 - luminance);
    const float high = 2 * luminance - low;
    const float range = high - low;
    if (hue < 0)
        return FromChannels(high, low, low - hue * range);
    if (hue < 1)
        return FromChannels(high, hue * range + low, low);
    if (hue < 2)
        return FromChannels(low - (hue - 2) * range, high, low);
    if (hue < 3)
        return FromChannels(low, high, (hue - 2) * range + low);
    if (hue < 4)
        return FromChannels(low, low - (hue - 4) * range, high);
    return FromChannels((hue - 4) * range + low, low, high);
}

} // namespace quillshift
