#include "controls/bitmaps/pcDibSection.h"

#include "controls/bitmaps/BlockCopy.h"

#include <algorithm>

namespace quillshift {
namespace {

float Times(float value, double factor) {
    return static_cast<float>(value * factor);
}

} // namespace

void pcDibSection::CodeAlphaBlend(pcDibSection& destination, const pcDibSection& source, int xOffset,
                                  int yOffset, int width, int height, std::uint8_t alpha) {
    if (destination.IsEmpty() || source.IsEmpty())
        return;
    const Size size{destination.Width(), destination.Height()};
    const Block block{.x = xOffset,
                      .y = yOffset,
                      .width = width == -1 ? std::min(size.width, source.Width()) : width,
                      .height = height == -1 ? std::min(size.height, source.Height()) : height,
                      .sourceX = 0,
                      .sourceY = 0};
    JoinBlock(destination.DIBSectionBitsPtr(), size, source.hDib(), block,
              [alpha](std::uint8_t* to, const std::uint8_t* from) {
                  for (int i = 0; i < 3; ++i)
                      to[i] =
                          static_cast<std::uint8_t>(((255 - alpha) * to[i] + alpha * from[i] + 127) / 255);
              });
}

void pcDibSection::Clear() {
    if (!IsEmpty())
        std::fill_n(DIBSectionBitsPtr(), static_cast<std::ptrdiff_t>(BytesPerScanLine()) * Height(),
                    std::uint8_t{0});
}

void pcDibSection::ModifyHLS(double hue, double luminance, double saturation) {
    ForEachColour([&](Hls hls) {
        return Hls{.hue = Times(hls.hue, hue),
                   .luminance = std::min(1.0F, Times(hls.luminance, luminance)),
                   .saturation = std::min(1.0F, Times(hls.saturation, saturation))};
    });
}

void pcDibSection::Lighten(double amount) {
    ModifyHLS(1, amount / 100 + 1, 1);
}

} // namespace quillshift
