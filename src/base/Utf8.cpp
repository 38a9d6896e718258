#include "base/Utf8.h"

#include <cstddef>
#include <cstdint>

namespace quillshift {
namespace {

constexpr char32_t kReplacement = 0xFFFD;

void AppendUtf8(std::string& bytes, char32_t character) {
    const auto add = [&](char32_t byte) { bytes.push_back(static_cast<char>(byte)); };
    if (character < 0x80) {
        add(character);
    } else if (character < 0x800) {
        add(0xC0 | (character >> 6U));
        add(0x80 | (character & 0x3FU));
    } else if (character < 0x10000) {
        add(0xE0 | (character >> 12U));
        add(0x80 | ((character >> 6U) & 0x3FU));
        add(0x80 | (character & 0x3FU));
    } else {
        add(0xF0 | (character >> 18U));
        add(0x80 | ((character >> 12U) & 0x3FU));
        add(0x80 | ((character >> 6U) & 0x3FU));
        add(0x80 | (character & 0x3FU));
    }
}

void AppendUtf16(std::u16string& text, char32_t character) {
    if (character < 0x10000) {
        text.push_back(static_cast<char16_t>(character));
        return;
    }
    character -= 0x10000;
    text.push_back(static_cast<char16_t>(0xD800 + (character >> 10U)));
    text.push_back(static_cast<char16_t>(0xDC00 + (character & 0x3FFU)));
}

// Decodes the sequence at `i` and moves `i` behind it; a broken one gives U+FFFD and moves by one byte.
char32_t NextCharacter(std::string_view bytes, std::size_t& i) {
    const auto byteAt = [&](std::size_t at) { return static_cast<std::uint8_t>(bytes[at]); };
    const std::uint8_t lead = byteAt(i);
    const std::size_t length = lead < 0x80 ? 1 : lead >= 0xF0 ? 4 : lead >= 0xE0 ? 3 : lead >= 0xC2 ? 2 : 0;
    if (length == 1)
        return byteAt(i++);
    if (length == 0 || lead > 0xF4 || i + length > bytes.size())
        return ++i, kReplacement;
    char32_t character = lead & (0xFFU >> (length + 1));
    for (std::size_t k = 1; k < length; ++k) {
        if ((byteAt(i + k) & 0xC0U) != 0x80)
            return ++i, kReplacement;
        character = (character << 6U) | (byteAt(i + k) & 0x3FU);
    }
    constexpr char32_t kLeast[] = {0, 0, 0x80, 0x800, 0x10000};
    const bool surrogate = character >= 0xD800 && character <= 0xDFFF;
    if (character < kLeast[length] || character > 0x10FFFF || surrogate)
        return ++i, kReplacement;
    i += length;
    return character;
}

} // namespace

std::string ToUtf8(std::u16string_view text) {
    std::string bytes;
    bytes.reserve(text.size());
    for (std::size_t i = 0; i < text.size(); ++i) {
        const char16_t unit = text[i];
        if (unit < 0xD800 || unit > 0xDFFF) {
            AppendUtf8(bytes, unit);
        } else if (unit < 0xDC00 && i + 1 < text.size() && text[i + 1] >= 0xDC00 && text[i + 1] <= 0xDFFF) {
            const char32_t high = unit - 0xD800U;
            const char32_t low = text[++i] - 0xDC00U;
            AppendUtf8(bytes, 0x10000 + (high << 10U) + low);
        } else {
            AppendUtf8(bytes, kReplacement);
        }
    }
    return bytes;
}

std::u16string FromUtf8(std::string_view bytes) {
    std::u16string text;
    text.reserve(bytes.size());
    for (std::size_t i = 0; i < bytes.size();)
        AppendUtf16(text, NextCharacter(bytes, i));
    return text;
}

} // namespace quillshift
