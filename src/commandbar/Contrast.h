#pragma once

#include "base/Colour.h"

#include <span>

namespace quillshift {

/// How bright a colour looks, from 0 (black) to 1 (white).
double Brightness(Colour colour);

/// How well two colours can be told apart, from 1 (the same) to 21 (black and white); either way round.
double Contrast(Colour a, Colour b);

/// What the guidelines for accessible pages ask of large text and of controls, and of other text.
constexpr double kLeastContrast = 3;
constexpr double kTextContrast = 4.5;

/// `told`, or where it hasn't that contrast to each of `others`, the first colour on the way to `better` that
/// has; `better` if none has.
Colour Readable(Colour told, Colour better, std::span<const Colour> others, double least = kLeastContrast);

} // namespace quillshift
