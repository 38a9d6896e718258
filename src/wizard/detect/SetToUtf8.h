#pragma once

#include "wizard/detect/CharacterSets.h"
#include "wizard/detect/RussianSum.h"

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
    /// The same of whole lines, of which each one is looked over by itself.
    char* ConvertLines(std::string_view bytes, char* to, LookedLines& lines) const;
    /// The same as `Convert`, a byte at a time.
    char* ConvertPlainly(std::string_view bytes, char* to, bool& isClear) const;

    /// What each byte is, see `LetterCode`.
    const std::array<std::uint8_t, 0x100>& Codes() const { return codes_; }

private:
    class Look;

    char* Write(std::string_view bytes, char* to) const;
    char* ConvertTextWide(std::string_view bytes, char* to, bool& isClear) const;
    char* ConvertLinesWide(std::string_view bytes, char* to, LookedLines& lines) const;
    template <typename Sums>
    char* ConvertWide(std::string_view bytes, char* to, Sums& sums) const;
    /// 32 bytes.
    template <typename Sums>
    char* ConvertOne(const char* bytes, char* to, Look& look, Sums& sums) const;

    std::array<std::uint32_t, 0x100>
        becomes_{}; ///< three bytes, the first one lowest, and how many above them
    std::array<std::uint8_t, 0x100> codes_{};
    std::array<bool, 0x80> signs_{}; ///< which are usual ones
#ifdef QUILLSHIFT_WIDE
    WideTable<8> letters_; ///< of bytes from 0x80 on, U+0400 to U+047F: the place there and 0x80
#endif
};

} // namespace quillshift::wizard
