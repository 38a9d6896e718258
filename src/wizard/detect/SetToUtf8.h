#pragma once

#include "wizard/detect/CharacterSets.h"

#include <array>

namespace quillshift::wizard {

/// Turns the bytes of a single-byte set into UTF-8, and looks them over, at memory speed; uses wide registers
/// where the processor has them.
class SetToUtf8 {
public:
    static constexpr std::size_t slack = 64; ///< bytes that may be written behind what is asked for

    explicit SetToUtf8(Set set);

    /// Writes to `to`, which must have room for three bytes for each byte and `slack`. Gives the end of what
    /// was written; nullptr where a byte stands for nothing, or for what another byte stands for as well.
    /// `isClear`: whether it is clearly Russian, see `IsClearlyRussian`.
    char* Convert(std::string_view bytes, char* to, bool& isClear) const;
    /// The same, a byte at a time.
    char* ConvertPlainly(std::string_view bytes, char* to, bool& isClear) const;

private:
    class Look;

    char* Write(std::string_view bytes, char* to) const;
    char* ConvertWide(std::string_view bytes, char* to, bool& isClear) const;
    /// 32 bytes.
    char* ConvertOne(const char* bytes, char* to, Look& look) const;

    std::array<std::uint32_t, 0x100>
        becomes_{};                            ///< three bytes, the first one lowest, and how many above them
    std::array<std::uint8_t, 0x80> letters_{}; ///< of U+0400 to U+047F: the place there and 0x80
    std::array<std::uint8_t, 0x80> gains_{};   ///< see `RussianSum`
    std::array<bool, 0x80> signs_{};           ///< which are usual ones
};

} // namespace quillshift::wizard
