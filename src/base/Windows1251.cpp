#include "base/Windows1251.h"

#include <algorithm>
#include <array>

namespace quillshift::windows1251 {
namespace {

// All characters of the set lie below this one, so the inverse is one flat table.
constexpr char16_t kInverseSize = 0x2123;

constexpr std::array<std::uint8_t, kInverseSize> MakeInverse() {
    std::array<std::uint8_t, kInverseSize> inverse{};
    for (std::size_t i = 0; i < kUpperHalf.size(); ++i)
        inverse[kUpperHalf[i]] = static_cast<std::uint8_t>(0x80 + i);
    for (std::size_t i = 0; i < 0x80; ++i)
        inverse[i] = static_cast<std::uint8_t>(i);
    return inverse;
}

constexpr auto kInverse = MakeInverse();

constexpr std::array<char16_t, 256> MakeAll() {
    std::array<char16_t, 256> all{};
    for (std::size_t i = 0; i < all.size(); ++i)
        all[i] = FromByte(static_cast<std::uint8_t>(i));
    return all;
}

constexpr auto kAll = MakeAll();

bool IsLowSurrogate(char16_t unit) {
    return unit >= 0xDC00 && unit <= 0xDFFF;
}

bool IsHighSurrogate(char16_t unit) {
    return unit >= 0xD800 && unit <= 0xDBFF;
}

} // namespace

std::optional<std::uint8_t> ToByte(char16_t character) {
    if (character >= kInverseSize || (kInverse[character] == 0 && character != 0))
        return std::nullopt;
    return kInverse[character];
}

void DecodeBehind(std::u16string& text, std::string_view bytes) {
    std::array<char16_t, 4096> part{}; // new memory is what takes the time: it is gone through once
    for (std::size_t begin = 0; begin < bytes.size(); begin += part.size()) {
        const std::string_view some = bytes.substr(begin, part.size());
        std::transform(some.begin(), some.end(), part.begin(),
                       [](char byte) { return kAll[static_cast<std::uint8_t>(byte)]; });
        text.append(part.data(), some.size());
    }
}

std::u16string Decode(std::string_view bytes) {
    std::u16string text;
    text.reserve(bytes.size());
    DecodeBehind(text, bytes);
    return text;
}

std::string Encode(std::u16string_view text) {
    std::string bytes(text.size(), '?');
    for (std::size_t i = 0; i < text.size(); ++i)
        if (const auto byte = ToByte(text[i]))
            bytes[i] = static_cast<char>(*byte);
    return bytes;
}

Unencodable FindUnencodable(std::u16string_view text) {
    Unencodable found;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (ToByte(text[i]))
            continue;
        const bool pair = IsHighSurrogate(text[i]) && i + 1 < text.size() && IsLowSurrogate(text[i + 1]);
        if (found.count++ == 0)
            found.example = text.substr(i, pair ? 2 : 1);
        i += pair ? 1 : 0;
    }
    return found;
}

} // namespace quillshift::windows1251
