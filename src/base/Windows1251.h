#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace quillshift {

/// The fixed reading between file bytes and text: Windows-1251, with the byte 0x98, which the published set
/// leaves open, as U+0098. Every byte gives exactly one character, and that character gives back the byte.
namespace windows1251 {

/// The characters of the bytes from 0x80 on.
inline constexpr std::u16string_view kUpperHalf =
    u"\u0402\u0403\u201A\u0453\u201E\u2026\u2020\u2021\u20AC\u2030\u0409\u2039\u040A\u040C\u040B\u040F"
    u"\u0452\u2018\u2019\u201C\u201D\u2022\u2013\u2014\x98\u2122\u0459\u203A\u045A\u045C\u045B\u045F"
    u"\u00A0\u040E\u045E\u0408\u00A4\u0490\u00A6\u00A7\u0401\u00A9\u0404\u00AB\u00AC\u00AD\u00AE\u0407"
    u"\u00B0\u00B1\u0406\u0456\u0491\u00B5\u00B6\u00B7\u0451\u2116\u0454\u00BB\u0458\u0405\u0455\u0457"
    u"\u0410\u0411\u0412\u0413\u0414\u0415\u0416\u0417\u0418\u0419\u041A\u041B\u041C\u041D\u041E\u041F"
    u"\u0420\u0421\u0422\u0423\u0424\u0425\u0426\u0427\u0428\u0429\u042A\u042B\u042C\u042D\u042E\u042F"
    u"\u0430\u0431\u0432\u0433\u0434\u0435\u0436\u0437\u0438\u0439\u043A\u043B\u043C\u043D\u043E\u043F"
    u"\u0440\u0441\u0442\u0443\u0444\u0445\u0446\u0447\u0448\u0449\u044A\u044B\u044C\u044D\u044E\u044F";
static_assert(kUpperHalf.size() == 128);

constexpr char16_t FromByte(std::uint8_t byte) {
    return byte < 0x80 ? byte : kUpperHalf[byte - 0x80U];
}

/// Nothing for a character that has no byte.
std::optional<std::uint8_t> ToByte(char16_t character);

std::u16string Decode(std::string_view bytes);
/// Puts what the bytes mean behind a text.
void DecodeBehind(std::u16string& text, std::string_view bytes);
/// A character that has no byte becomes "?".
std::string Encode(std::u16string_view text);

/// The characters of a text that have no byte and would be lost by `Encode`.
struct Unencodable {
    std::size_t count = 0;  ///< a surrogate pair counts as one
    std::u16string example; ///< the first of them, as a whole character
};
Unencodable FindUnencodable(std::u16string_view text);

} // namespace windows1251
} // namespace quillshift
