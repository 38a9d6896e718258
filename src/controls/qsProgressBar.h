#pragma once

#include "controls/bitmaps/DibSection.h"
#include "platform/SystemColours.h"

#include <optional>
#include <string>
#include <variant>

namespace quillshift {

/// A colour of its own, or one of the desktop's as it is when the bar is painted.
using BarColour = std::variant<Colour, SystemColour>;

enum class PictureMode { Stretch, Tile };
/// How near a text is to the left or top edge, or to the right or bottom one.
enum class TextAlign { Near, Centre, Far };
enum class BorderLook { Line, Thin, Edge };

/// A progress bar with optional segments, a text over it and pictures behind it and on it. One that is higher
/// than wide is filled from the bottom. Whoever changes a property has it painted again.
class qsProgressBar {
public:
    bool Segments = false; ///< of 8 pixels with 2 between them; not with `XpStyle`
    bool XpStyle = false;  ///< by the desktop's theme, which knows neither border nor colours of ours
    std::u16string Text;
    TextAlign TextAlignX = TextAlign::Centre;
    TextAlign TextAlignY = TextAlign::Centre;
    bool ShowText = false;
    std::int32_t Min = 0;
    std::int32_t Max = 100;
    std::int32_t Value = 0;
    std::int32_t BorderStyle = 1; ///< 0 for none
    BorderLook Appearance = BorderLook::Thin;
    BarColour BackColor = SystemColour::ButtonFace;
    BarColour ForeColor = SystemColour::WindowText;
    FontSpec Font;
    BarColour BarColor = Colour{0x800000};
    BarColour BarForeColor = Colour{0xFFFFFF};
    BitmapPicture BarPicture;
    PictureMode BarPictureMode = PictureMode::Tile;
    PictureMode BackPictureMode = PictureMode::Tile;
    BitmapPicture Picture; ///< behind the bar

    /// What is done, from 0 to 100; 0 where `Min` and `Max` are the same.
    double Percent() const;
    /// Multiply a picture's hue, luminance and saturation; the last two stop at 1.
    void ModifyBarPicture(double hue, double luminance, double saturation);
    void ModifyPicture(double hue, double luminance, double saturation);

    void Paint(Surface& surface, Size client, const SystemColours& colours, const ThemeService& theme) const;

private:
    struct Painting;
};

} // namespace quillshift
