#pragma once

#include <cstdint>

namespace quillshift {

/// A 32-bit colour: red in the low byte, then green, then blue.
struct Colour {
    std::uint32_t value = 0;

    bool operator==(const Colour&) const = default;
    constexpr std::uint8_t Red() const { return static_cast<std::uint8_t>(value); }
    constexpr std::uint8_t Green() const { return static_cast<std::uint8_t>(value >> 8U); }
    constexpr std::uint8_t Blue() const { return static_cast<std::uint8_t>(value >> 16U); }
};

constexpr Colour Rgb(std::uint8_t red, std::uint8_t green, std::uint8_t blue) {
    return {red | (static_cast<std::uint32_t>(green) << 8U) | (static_cast<std::uint32_t>(blue) << 16U)};
}

} // namespace quillshift
