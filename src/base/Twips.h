#pragma once

#include <cmath>
#include <compare>

namespace quillshift {

/// A length on screen: 1440 to the inch, 15 to the logical pixel. Single precision, as it is stored.
struct Twips {
    float value = 0;

    // NOLINTNEXTLINE(modernize-use-nullptr): the check misreads defaulted comparisons
    constexpr auto operator<=>(const Twips&) const = default;
    constexpr Twips operator+(Twips other) const { return {value + other.value}; }
    constexpr Twips operator-(Twips other) const { return {value - other.value}; }
    constexpr Twips operator/(float divisor) const { return {value / divisor}; }
};

inline constexpr int kTwipsPerPixel = 15;

constexpr Twips operator""_twips(unsigned long long value) {
    return {static_cast<float>(value)};
}
constexpr Twips FromPixels(int px) {
    return {static_cast<float>(px) * kTwipsPerPixel};
}
/// The nearest whole number of logical pixels.
inline int ToPixels(Twips length) {
    return static_cast<int>(std::lround(length.value / kTwipsPerPixel));
}

/// A rectangle in twips; origin and axes as on screen.
struct TwipsRect {
    Twips left, top, width, height;

    bool operator==(const TwipsRect&) const = default;
};

} // namespace quillshift
