#pragma once

#include "base/Colour.h"
#include "base/Geometry.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace quillshift {

/// A font as it is asked for; the escapement is the surface's concern (see `TextLayout::rotated`).
struct FontSpec {
    std::u16string name;
    float points = 8;
    bool bold = false;
    bool italic = false;
    bool underline = false;
    bool strikeOut = false;

    bool operator==(const FontSpec&) const = default;
};

/// Pixels in memory: 32 bits each, bytes blue, green, red, alpha, colours premultiplied by alpha, lines
/// bottom up with no gap between them. The owner keeps the memory alive and unmoved while a view is in use.
struct PixelView {
    const std::uint8_t* bits = nullptr;
    int width = 0;
    int height = 0;
};

struct TextLayout {
    enum class Align { Left, Centre, Right };
    Align align = Align::Left;
    bool rotated = false;  ///< runs downwards: turned clockwise by 90 degrees, as on left and right bars
    bool mnemonics = true; ///< "&" is not shown and underlines the letter behind it; "&&" shows one
};

/// Measures text without drawing it.
class TextMeasurer {
public:
    virtual ~TextMeasurer() = default;
    /// Extent of one line; "&" counts as `TextLayout::mnemonics` says.
    virtual Size TextExtent(std::u16string_view text, const FontSpec& font, bool mnemonics = true) const = 0;
};

/// Something to draw on, in logical pixels. What lies outside the clip is not touched.
class Surface : public TextMeasurer {
public:
    virtual void FillRect(const Rect& area, Colour colour) = 0;
    /// A linear change from `start` to `end`, left to right or top to bottom.
    virtual void FillGradient(const Rect& area, Colour start, Colour end, bool horizontal) = 0;
    /// An outline of one pixel, inside the area.
    virtual void FrameRect(const Rect& area, Colour colour) = 0;
    /// A line of one pixel, both ends included.
    virtual void DrawLine(Point from, Point to, Colour colour) = 0;
    /// One line of text, centred vertically in the area (across it when rotated) and clipped to it.
    virtual void DrawText(const Rect& area, std::u16string_view text, const FontSpec& font, Colour colour,
                          const TextLayout& layout) = 0;
    /// Composites a part of `source` (in its own pixels, counted from the top left) on to `target`, scaling
    /// it to that size, with per-pixel alpha and a constant alpha on top.
    virtual void Composite(const Rect& target, const PixelView& source, const Rect& part,
                           std::uint8_t constantAlpha = 255) = 0;

    virtual void SetClip(const Rect& area) = 0;
    virtual void ClearClip() = 0;
    /// Device pixels per logical pixel.
    virtual double Density() const = 0;
};

} // namespace quillshift
