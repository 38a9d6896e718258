#include "wizard/files/Sha256.h"

#include <nettle/sha2.h>

#include <array>
#include <cstdint>

namespace quillshift::wizard {

std::string Sha256(std::string_view bytes) {
    constexpr std::string_view kDigits = "0123456789abcdef";
    sha256_ctx context;
    sha256_init(&context);
    sha256_update(&context, bytes.size(), reinterpret_cast<const std::uint8_t*>(bytes.data()));
    std::array<std::uint8_t, SHA256_DIGEST_SIZE> digest{};
    sha256_digest(&context, digest.size(), digest.data());
    std::string text;
    for (const std::uint8_t byte : digest) {
        text += kDigits[byte >> 4U];
        text += kDigits[byte & 15U];
    }
    return text;
}

} // namespace quillshift::wizard
