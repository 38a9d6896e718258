#include "controls/bitmaps/cAlphaDIBSection.h"

#include <algorithm>

namespace quillshift {

std::optional<BitmapPicture> cAlphaDIBSection::Picture() const {
    if (IsEmpty())
        return std::nullopt;
    const std::uint8_t* bits = DIBSectionBitsPtr();
    const auto size = static_cast<std::ptrdiff_t>(BytesPerScanLine()) * Height();
    return BitmapPicture{Width(), Height(), {bits, bits + size}};
}

void cAlphaDIBSection::PreMultiplyAlpha() {
    ForEachPixel([](std::uint8_t* pixel) {
        for (int i = 0; i < 3; ++i)
            pixel[i] = static_cast<std::uint8_t>(pixel[i] * pixel[3] / 255);
    });
}

void cAlphaDIBSection::AdjustHLS(int hue, int luminance, float saturation) {
    if (hue == -1 && luminance == -1)
        return;
    const float newHue = static_cast<float>(hue) * 6 / 255 - 1;
    const float newLuminance = static_cast<float>(luminance) / 255;
    ForEachColour([&](Hls hls) {
        return Hls{.hue = hue == -1 ? hls.hue : newHue,
                   .luminance = luminance == -1 ? hls.luminance : newLuminance,
                   .saturation = std::clamp((saturation + 1) * hls.saturation, 0.0F, 1.0F)};
    });
}

} // namespace quillshift
