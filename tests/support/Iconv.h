#pragma once

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

} // namespace quillshift
