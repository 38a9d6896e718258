#pragma once

namespace quillshift {

/// The look of all bars of the process.
enum class BarStyle { OfficeXP = 0, Themed = 1, Dark = 2, System = 3 };

/// The colours of the desktop's theme, as far as the table has some of its own for them.
enum class ThemeColour { None = 0, NormalColor = 1, Metallic = 2, Homestead = 3 };

/// The slots of the colour table. The start of a fill is followed by its end.
enum class Slot {
    ToolbarText = 1,
    HotText,
    DisabledText,
    ItemFillStart,
    ItemFillEnd,
    HotFillStart,
    HotFillEnd,
    CheckedFillStart,
    CheckedFillEnd,
    PressedFillStart,
    PressedFillEnd,
    Shadow,
    Border,
    MenuText,
    MenuHotText,
    MenuDisabledText,
    MenuFillStart,
    MenuFillEnd,
    MenuHotFillStart,
    MenuHotFillEnd,
    HotBorder,
    TickFillStart,
    TickFillEnd,
    HotTickFillStart,
    HotTickFillEnd,
    IconDisabled,
    SeparatorLight,
    SeparatorDark,
    BarFillStart,
    BarFillEnd,
};

} // namespace quillshift
