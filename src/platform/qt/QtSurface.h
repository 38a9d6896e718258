#pragma once

#include "platform/Surface.h"
#include "platform/qt/cFontCache.h"

#include <QImage>
#include <QPainter>

#include <functional>

namespace quillshift {

/// Measures text by the fonts of the screen, and keeps those that were asked for.
class QtTextMeasurer final : public TextMeasurer {
public:
    Size TextExtent(std::u16string_view text, const FontSpec& font, bool mnemonics = true) const override;
    const QFont& FontOf(const FontSpec& font) const { return fonts_.Find(font).font; }

private:
    mutable cFontCache fonts_;
};

/// Draws with a painter, on an image or a widget. Logical pixels are the painter's, and each covers a whole
/// number of the device's, so that what adjoins in logical pixels does so on the device.
class QtSurface final : public Surface {
public:
    /// Both outlive the surface. The painter is active; its clip and its render hints become the surface's.
    QtSurface(QPainter& painter, const QtTextMeasurer& texts);

    Size TextExtent(std::u16string_view text, const FontSpec& font, bool mnemonics = true) const override {
        return texts_.TextExtent(text, font, mnemonics);
    }
    void FillRect(const Rect& area, Colour colour) override;
    void FillGradient(const Rect& area, Colour start, Colour end, bool horizontal) override;
    void FrameRect(const Rect& area, Colour colour) override;
    void DrawLine(Point from, Point to, Colour colour) override;
    void DrawText(const Rect& area, std::u16string_view text, const FontSpec& font, Colour colour,
                  const TextLayout& layout) override;
    void Composite(const Rect& target, const PixelView& source, const Rect& part,
                   std::uint8_t constantAlpha = 255) override;
    void SetClip(const Rect& area) override;
    void ClearClip() override;
    double Density() const override;

    /// For what the interface has no words for, such as the parts of a theme.
    QPainter& Painter() { return painter_; }

private:
    QPainter& painter_;
    const QtTextMeasurer& texts_;
};

/// The off-screen surface in which a control paints itself, to be copied out once. Kept from one painting to
/// the next, it is made anew only for another size.
class QtMemorySurface {
public:
    explicit QtMemorySurface(const QtTextMeasurer& texts) : texts_(texts) {}

    /// Runs `paint` on a transparent surface of the client's size, in the density of the target's device, and
    /// copies the result to the target's origin.
    void Paint(QPainter& target, Size client, const std::function<void(Surface&)>& paint);

private:
    const QtTextMeasurer& texts_;
    QImage pixels_;
};

} // namespace quillshift
