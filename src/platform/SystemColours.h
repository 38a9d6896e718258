#pragma once

#include "base/Colour.h"
#include "base/Geometry.h"

#include <optional>
#include <string>
#include <string_view>

namespace quillshift {

class Surface;
struct FontSpec;

/// The colours of the desktop that the command bars derive theirs from.
enum class SystemColour {
    ButtonFace,
    ButtonShadow,
    Highlight3D,
    DarkShadow3D,
    Light3D,
    Highlight,
    HighlightText,
    Window,
    WindowText,
    Menu,
    GrayText,
};

class SystemColours {
public:
    virtual ~SystemColours() = default;
    virtual Colour Of(SystemColour name) const = 0;
    virtual int BitsPerPixel() const = 0;
    virtual bool HighContrast() const = 0;
};

/// Pixels that one piece of a progress bar and the space behind it take along the bar.
struct ProgressSizes {
    int chunk = 1;
    int space = 0;
};

/// The desktop's theme, where it has one.
class ThemeService {
public:
    virtual ~ThemeService() = default;
    /// Name of the theme's colours ("NormalColor", "Metallic", "Homestead" or another); nothing without a
    /// theme.
    virtual std::optional<std::u16string> ColourName() const = 0;
    /// Draws a part of the class "TOOLBAR" in a state, both by the theme's numbers. False if there is no
    /// theme to do it; nothing is drawn then.
    virtual bool DrawToolbarPart(Surface& surface, int part, int state, const Rect& area) const = 0;

    /// How the theme divides a bar of the class "Progress"; nothing without a theme.
    virtual std::optional<ProgressSizes> ProgressBarSizes() const = 0;
    /// Draws a part of the class "Progress": 1 and 2 the frame, 3 and 4 the bar, lying and upright. False as
    /// above.
    virtual bool DrawProgressPart(Surface& surface, int part, const Rect& area) const = 0;
    /// One line of text over such a bar, at the left of the area.
    virtual bool DrawProgressText(Surface& surface, const Rect& area, std::u16string_view text,
                                  const FontSpec& font) const = 0;
};

} // namespace quillshift
