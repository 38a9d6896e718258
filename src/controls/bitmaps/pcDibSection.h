#pragma once

#include "controls/bitmaps/DibSection.h"

#include <utility>

namespace quillshift {

/// The bitmap of the progress bar's pictures: blends by hand and has colour operations of its own.
class pcDibSection : public DibSection {
public:
    pcDibSection() = default;

    /// Blends the colours of `source`, all by `alpha`, over those of `destination` with its top left at the
    /// offset. A width or height of -1 means the smaller one of the two bitmaps.
    static void CodeAlphaBlend(pcDibSection& destination, const pcDibSection& source, int xOffset,
                               int yOffset, int width, int height, std::uint8_t alpha);
    /// Sets every byte to 0.
    void Clear();
    /// Multiplies hue, luminance and saturation; the last two stop at 1.
    void ModifyHLS(double hue, double luminance, double saturation);
    /// Raises the luminance by so many per cent of what it is, up to 1.
    void Lighten(double amount);
    pcDibSection Resample(int newHeight, int newWidth) const {
        return pcDibSection(Resampled(newHeight, newWidth));
    }

private:
    explicit pcDibSection(DibSection&& pixels) : DibSection(std::move(pixels)) {}
};

} // namespace quillshift
