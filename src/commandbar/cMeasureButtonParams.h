#pragma once

#include "commandbar/BarTypes.h"
#include "platform/Surface.h"

namespace quillshift {

/// What the size of an item depends on, besides its button. Lengths in pixels.
struct cMeasureButtonParams {
    WindowId Window = 0;
    FontSpec Font;
    int IconWidth = 16;
    int IconHeight = 16;
    int Height = 0; ///< of the client area; 0 for a menu, whose height follows from its rows
    bool RightToLeft = false;
    DisplayMode Mode = DisplayMode::Toolbar;
    quillshift::Orientation Orientation = quillshift::Orientation::Top;
    TextPosition ButtonTextPosition = TextPosition::BesideIcon;
    int Width = 0; ///< of the client area

    /// Whether an item measured with the one has the same size with the other.
    bool CompareTo(const cMeasureButtonParams& other) const {
        return Window == other.Window && Mode == other.Mode && Orientation == other.Orientation &&
               Height == other.Height && Font == other.Font && IconWidth == other.IconWidth &&
               IconHeight == other.IconHeight && RightToLeft == other.RightToLeft &&
               ButtonTextPosition == other.ButtonTextPosition;
    }
};

} // namespace quillshift
