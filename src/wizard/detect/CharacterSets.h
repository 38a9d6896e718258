#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace quillshift::wizard {

/// The character sets that bytes can be in. `Latin` is Windows-1252 and ISO 8859-1 in one, as readers mix
/// them.
enum class Set : std::uint8_t {
    Dos866,
    Windows1251,
    Koi8R,
    Koi8U,
    Iso5,
    Mac,
    Latin,
    Dos437,
    Greek,
    Utf8,
    Utf16Le,
    Utf16Be
};

constexpr int singleByteSets = 9;
constexpr int setCount = 12;
/// The characters of bytes 0x80 to 0xFF.
extern const std::u16string_view upperHalves[singleByteSets];

constexpr bool IsSingleByte(Set set) {
    return static_cast<int>(set) < singleByteSets;
}

std::string_view NameOf(Set set);
std::optional<Set> SetNamed(std::string_view name);

/// The character of a byte in a single-byte set.
inline char16_t CharacterOf(Set set, std::uint8_t byte) {
    return byte < 0x80 ? byte : upperHalves[static_cast<std::size_t>(set)][byte - 0x80U];
}
/// The byte of a character in a single-byte set; -1 where the set does not hold it.
int ByteOf(Set set, char16_t character);

/// Stands for a character that was lost, and for a sequence that is none.
constexpr char16_t lostMark = 0xFFFD;

/// Reads UTF-8 from `at` on, which moves behind what was read. Above U+10FFFF, too long, a half of a pair or
/// broken: -1, and `at` moves by what could have been one character's beginning.
std::int32_t NextUtf8(std::string_view bytes, std::size_t& at);
/// The same in UTF-8 that lost bytes on its way: what is left of a character beside a lost byte ('?' or 0xFF)
/// is one character lost, not two.
std::int32_t NextLossyUtf8(std::string_view bytes, std::size_t& at);
void AppendUtf8(std::string& text, std::uint32_t character);

bool IsAscii(std::string_view bytes);
/// Whether all of the bytes are UTF-8.
bool IsUtf8(std::string_view bytes);

} // namespace quillshift::wizard
