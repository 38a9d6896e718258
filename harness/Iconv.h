#pragma once

#include <cstdint>
#include <iconv.h>
#include <stdexcept>
#include <string>
#include <string_view>

namespace quillshift {

/// Converts bytes between two published character sets, by the system's own tables. Throws for what the
/// target set does not hold.
inline std::string Iconv(std::string_view bytes, const char* from, const char* to) {
    iconv_t converter = iconv_open(to, from);
    std::string source(bytes);
    std::string result(4 * bytes.size() + 16, '\0');
    char* in = source.data();
    char* out = result.data();
    std::size_t inLeft = source.size();
    std::size_t outLeft = result.size();
    const bool converted = iconv(converter, &in, &inLeft, &out, &outLeft) == 0;
    iconv_close(converter);
    if (!converted)
        throw std::runtime_error("not convertible from " + std::string(from) + " to " + to);
    result.resize(result.size() - outLeft);
    return result;
}

/// The character of a byte in a published set; U+FFFD where the set leaves it open.
inline char16_t Published(const char* set, std::uint8_t byte) {
    iconv_t converter = iconv_open("UTF-16LE", set);
    char16_t character = 0xFFFD;
    char* in = reinterpret_cast<char*>(&byte);
    char* out = reinterpret_cast<char*>(&character);
    std::size_t inLeft = 1;
    std::size_t outLeft = sizeof character;
    iconv(converter, &in, &inLeft, &out, &outLeft);
    iconv(converter, nullptr, nullptr, &out, &outLeft); // some sets hold letters back for an accent
    iconv_close(converter);
    return character;
}

} // namespace quillshift
