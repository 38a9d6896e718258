#pragma once

#include "controls/bitmaps/DibSection.h"

#include <optional>
#include <utility>

namespace quillshift {

/// The bitmap of a command bar's background and of its icons: premultiplies alpha and takes on a colour.
class cAlphaDIBSection : public DibSection {
public:
    cAlphaDIBSection() = default;

    /// A copy of the picture; nothing when empty.
    std::optional<BitmapPicture> Picture() const;
    /// Hands the pixels over; the bitmap is empty afterwards.
    BitmapPicture ExtractDib() { return Release(); }
    cAlphaDIBSection Resample(int newHeight, int newWidth) const {
        return cAlphaDIBSection(Resampled(newHeight, newWidth));
    }

    /// Multiplies the colours by alpha / 255, truncating.
    void PreMultiplyAlpha();
    /// Gives all pixels the hue and luminance told (0 to 255; -1 keeps each pixel's own) and scales their
    /// saturation by `saturation` + 1. With both at -1 nothing changes.
    void AdjustHLS(int hue, int luminance, float saturation);

private:
    explicit cAlphaDIBSection(DibSection&& pixels) : DibSection(std::move(pixels)) {}
};

} // namespace quillshift
