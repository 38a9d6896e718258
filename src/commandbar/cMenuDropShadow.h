#pragma once

#include "base/Colour.h"
#include "base/Geometry.h"
#include "platform/Surface.h"

#include <cstdint>
#include <vector>

namespace quillshift {

/// The edge of a popup that a strip of shadow lies along.
enum class ShadowEdge { Right = 0, Bottom = 1 };

/// A strip of the shadow behind a popup: its place and its pixels.
class cMenuDropShadow {
public:
    /// Alpha of the whole strip, on top of that of its pixels, where windows can be translucent.
    static constexpr std::uint8_t kConstantAlpha = 96;

    explicit cMenuDropShadow(ShadowEdge type) : ShadowType(type) {}

    /// Builds the strip of a popup with these bounds (screen pixels): shadow colour times alpha.
    void Create(const Rect& popup);
    /// Builds the strip blended over `screen`, a copy of what lies under `TargetOf(popup)`, for windows that
    /// can't be translucent. False, and no strip, if the copy hasn't the target's size.
    bool CreateOver(const Rect& popup, const PixelView& screen);

    /// Where the strip of a popup stands, in screen pixels.
    Rect TargetOf(const Rect& popup) const;
    /// Where the built strip stands.
    const Rect& Target() const { return target_; }
    /// The strip's pixels; valid until it is built anew.
    PixelView Pixels() const { return {bits_.data(), target_.Width(), target_.Height()}; }

    ShadowEdge ShadowType;
    int ShadowSize = 5; ///< pixels
    Colour ShadowColor = Rgb(0, 0, 192);

private:
    void Allocate(const Rect& target);
    int AlphaAt(int x, int y) const;

    Rect target_;
    std::vector<std::uint8_t> bits_;
};

} // namespace quillshift
