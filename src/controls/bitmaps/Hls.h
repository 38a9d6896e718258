#pragma once

#include "base/Colour.h"

namespace quillshift {

/// A colour by hue (-1 to 5, red at 0, a sixth of the circle to each 1), luminance and saturation (0 to 1).
struct Hls {
    float hue = 0;
    float luminance = 0;
    float saturation = 0;
};

/// A grey has hue 0 and saturation 0.
Hls ToHls(Colour colour);
/// Channels to the nearest integer, halves to even, held to 0 to 255.
Colour ToRgb(Hls hls);

} // namespace quillshift
