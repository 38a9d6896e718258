#pragma once

#include "base/Colour.h"
#include "commandbar/icons/BarIcons.h"
#include "controls/bitmaps/cAlphaDIBSection.h"

namespace quillshift {

/// Turns an icon of straight colours into a derived image, premultiplied. Disabled: a shape in the colour
/// `disabled`, dense where the icon is dark; an icon all in white keeps its whole shape. Plain and
/// highlighted: two greys, which icons have for their shadows, become faint, in the highlighted look in the
/// colour `highlight`. Half-transparent pixels stay so in proportion. `mode` isn't `Source`.
void DeriveIcon(cAlphaDIBSection& icon, IconMode mode, Colour disabled, Colour highlight);

} // namespace quillshift
