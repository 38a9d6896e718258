#pragma once

#include "commandbar/BarTypes.h"
#include "commandbar/icons/BarIcons.h"

namespace quillshift {

/// What the painting of an item depends on, besides its button. Lengths in client pixels.
struct cDrawButtonParams {
    WindowId Window = 0;
    FontSpec Font;
    int Left = 0;
    int Top = 0;
    int Height = 0;
    bool RightToLeft = false;
    bool MouseOver = false;
    bool MouseDown = false;
    bool MouseOverSplit = false;
    bool MouseDownSplit = false;
    bool ShowingMenu = false;
    DisplayMode Mode = DisplayMode::Toolbar;
    quillshift::Orientation Orientation = quillshift::Orientation::Top;
    bool Selectable = true;
    int Width = 0;
    BarIcons* Icons = nullptr; ///< not owned; none draws no icons
    TextPosition ButtonTextPosition = TextPosition::BesideIcon;
    bool KeyboardMode = false; ///< the menu is being driven by keys

    int Right() const { return Left + Width; }
    int Bottom() const { return Top + Height; }
    Rect Area() const { return {Left, Top, Right(), Bottom()}; }
    bool IsHot() const { return MouseOver || MouseOverSplit; }
};

} // namespace quillshift
