#pragma once

#include "controls/bitmaps/DibSection.h"

namespace quillshift {

/// An off-screen bitmap that grows on demand.
class pcMemDC {
public:
    /// The present bitmap if it is large enough, else a new one of that size. Empty if that can't be had.
    DibSection& hdc(int width, int height);
    /// Copies on to `surface` at (x, y). A width or height of 0 or less means the full one.
    void Draw(DibSection& surface, int sourceX = 0, int sourceY = 0, int width = 0, int height = 0, int x = 0,
              int y = 0) const;

private:
    DibSection bitmap_;
};

} // namespace quillshift
