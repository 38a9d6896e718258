#pragma once

#include "base/Colour.h"
#include "controls/bitmaps/cAlphaDIBSection.h"

namespace quillshift {

/// How an icon looks: as its source draws it, or as an image derived from it.
enum class IconMode { None = 0, Disabled = 1, Plain = 2, Highlighted = 3 };

/// Turns an icon of straight colours into a derived image, premultiplied. Disabled: a shape in the colour
/// `disabled`, dense where the icon is dark; an icon all in white keeps its whole shape. Plain and
/// highlighted: two greys, which icons have for their shadows, become faint, in the highlighted look in the
/// colour `highlight`. Half-transparent pixels stay so in proportion. `mode` isn't `None`.
void DeriveIcon(cAlphaDIBSection& icon, IconMode mode, Colour disabled, Colour highlight);

} // namespace quillshift
