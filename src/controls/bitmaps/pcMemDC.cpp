#include "controls/bitmaps/pcMemDC.h"

namespace quillshift {

DibSection& pcMemDC::hdc(int width, int height) {
    if (bitmap_.IsEmpty() || width > bitmap_.Width() || height > bitmap_.Height())
        bitmap_.Create(width, height);
    return bitmap_;
}

void pcMemDC::Draw(DibSection& surface, int sourceX, int sourceY, int width, int height, int x, int y) const {
    bitmap_.PaintPicture(surface, x, y, width <= 0 ? -1 : width, height <= 0 ? -1 : height, sourceX, sourceY);
}

} // namespace quillshift
