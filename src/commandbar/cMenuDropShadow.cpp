#include "commandbar/cMenuDropShadow.h"

#include <algorithm>
#include <array>

namespace quillshift {
namespace {

constexpr int kOpaque = 255;
constexpr std::size_t kBytesPerPixel = 4;

std::array<std::uint8_t, 3> BlueGreenRed(Colour colour) {
    return {colour.Blue(), colour.Green(), colour.Red()};
}

std::uint8_t Part(int channel, int alpha) {
    return static_cast<std::uint8_t>(channel * alpha / kOpaque);
}

// Falls from 255 at 0 towards 0 at `length`.
int Ramp(int distance, int length) {
    return (length - distance) * kOpaque / length;
}

// 255 along the long side, but for a ramp over the last `fade` pixels.
int EndRamp(int position, int length, int fade) {
    return Ramp(std::max(position - (length - fade), 0), fade);
}

} // namespace

Rect cMenuDropShadow::TargetOf(const Rect& popup) const {
    if (ShadowType == ShadowEdge::Right)
        return RectAt(popup.right, popup.top + ShadowSize, ShadowSize, popup.Height());
    return RectAt(popup.left + ShadowSize, popup.bottom, popup.Width(), ShadowSize + 1);
}

void cMenuDropShadow::Create(const Rect& popup) {
    Allocate(TargetOf(popup));
    const auto shadow = BlueGreenRed(ShadowColor);
    std::uint8_t* pixel = bits_.data();
    for (int y = target_.Height() - 1; y >= 0; --y)
        for (int x = 0; x < target_.Width(); ++x, pixel += kBytesPerPixel) {
            const int alpha = AlphaAt(x, y);
            for (std::size_t i = 0; i < shadow.size(); ++i)
                pixel[i] = Part(shadow[i], alpha);
            pixel[shadow.size()] = static_cast<std::uint8_t>(alpha);
        }
}

bool cMenuDropShadow::CreateOver(const Rect& popup, const PixelView& screen) {
    const Rect target = TargetOf(popup);
    if (!screen.bits || screen.width != target.Width() || screen.height != target.Height()) {
        Allocate({});
        return false;
    }
    Allocate(target);
    const auto shadow = BlueGreenRed(ShadowColor);
    const std::uint8_t* under = screen.bits;
    std::uint8_t* pixel = bits_.data();
    for (int y = target_.Height() - 1; y >= 0; --y)
        for (int x = 0; x < target_.Width(); ++x, pixel += kBytesPerPixel, under += kBytesPerPixel) {
            const int alpha = AlphaAt(x, y);
            for (std::size_t i = 0; i < shadow.size(); ++i)
                pixel[i] =
                    static_cast<std::uint8_t>(Part(under[i], kOpaque - alpha) + Part(shadow[i], alpha));
            pixel[shadow.size()] = kOpaque;
        }
    return true;
}

void cMenuDropShadow::Allocate(const Rect& target) {
    target_ = target;
    bits_.assign(target.IsEmpty() ? 0
                                  : static_cast<std::size_t>(target.Width()) *
                                        static_cast<std::size_t>(target.Height()) * kBytesPerPixel,
                 0);
}

int cMenuDropShadow::AlphaAt(int x, int y) const {
    const int width = target_.Width();
    const int height = target_.Height();
    const bool upright = ShadowType == ShadowEdge::Right;
    const int rampX = upright ? Ramp(x, width) : EndRamp(x, width, ShadowSize);
    const int rampY = upright ? EndRamp(y, height, ShadowSize) : Ramp(y, height);
    return rampX * rampY / kOpaque;
}

} // namespace quillshift
