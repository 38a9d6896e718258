#include "wizard/detect/CharacterSets.h"
#include "wizard/detect/Processor.h"

#include <algorithm>
#include <array>
#include <cstring>

namespace quillshift::wizard {

namespace {

constexpr std::size_t longestCharacter = 4; ///< in bytes
constexpr std::size_t lookedBack = longestCharacter - 1;
constexpr std::size_t pieceBytes = 1 << 16; ///< after so many it stops where something is wrong

using Bytes = const std::uint8_t*;

/// So many bytes beside each other; what is compared is 0xFF where it is true.
template <std::size_t width>
struct Lane {
    using Unsigned [[gnu::vector_size(width)]] = std::uint8_t;
    using Signed [[gnu::vector_size(width)]] = std::int8_t;
};

template <std::size_t width>
[[gnu::always_inline]] inline void Load(typename Lane<width>::Unsigned& wide, Bytes bytes) {
    std::memcpy(&wide, bytes, width);
}

template <std::size_t width>
[[gnu::always_inline]] inline bool Any(const typename Lane<width>::Unsigned& wide) {
    std::array<std::uint64_t, width / sizeof(std::uint64_t)> words{};
    std::memcpy(words.data(), &wide, width);
    std::uint64_t any = 0;
    for (const std::uint64_t word : words)
        any |= word;
    return any != 0;
}

/// Whether all from `at` to `end` are what may stand behind the three bytes before each: the rest of a
/// character where one is begun, and nowhere else. `end` is `at` and a multiple of the width.
template <std::size_t width>
[[gnu::always_inline]] inline bool FollowWell(Bytes at, Bytes end) {
    using Unsigned = typename Lane<width>::Unsigned;
    using Signed = typename Lane<width>::Signed;
    Unsigned wrong{};
    for (; at != end; at += width) {
        Unsigned byte, last, second, third;
        Load<width>(byte, at);
        Load<width>(last, at - 1);
        Load<width>(second, at - 2);
        Load<width>(third, at - lookedBack);
        const auto isRest = (Unsigned)((Signed)byte < -0x40);
        const auto isBegun =
            (Unsigned)(last >= 0xC0) | (Unsigned)(second >= 0xE0) | (Unsigned)(third >= 0xF0);
        wrong |= (isRest ^ isBegun) | (Unsigned)((byte & 0xFE) == 0xC0);
        // Written too long, half of a pair, or above U+10FFFF.
        if (Any<width>((Unsigned)(last >= 0xE0)))
            wrong |= ((Unsigned)(last == 0xE0) & (Unsigned)(byte < 0xA0)) |
                     ((Unsigned)(last == 0xED) & (Unsigned)(byte >= 0xA0)) |
                     ((Unsigned)(last == 0xF0) & (Unsigned)(byte < 0x90)) |
                     ((Unsigned)(last == 0xF4) & (Unsigned)(byte >= 0x90)) | (Unsigned)(last > 0xF4);
    }
    return !Any<width>(wrong);
}

constexpr std::size_t width = 32; ///< the narrow way takes two steps for it

bool FollowWellNarrow(Bytes at, Bytes end) {
    return FollowWell<width / 2>(at, end);
}

#ifdef QUILLSHIFT_WIDE
QUILLSHIFT_WIDE bool FollowWellWide(Bytes at, Bytes end) {
    return FollowWell<width>(at, end);
}
#endif

auto FastestHere() {
#ifdef QUILLSHIFT_WIDE
    if (HasWideRegisters())
        return FollowWellWide;
#endif
    return FollowWellNarrow;
}

bool IsUtf8From(std::size_t at, std::string_view bytes) {
    while (at < bytes.size())
        if (NextUtf8(bytes, at) < 0)
            return false;
    return true;
}

} // namespace

bool IsAscii(std::string_view bytes) {
    constexpr std::uint64_t highBits = 0x8080808080808080;
    std::size_t at = 0;
    for (std::uint64_t word = 0; at + sizeof word <= bytes.size(); at += sizeof word) {
        std::memcpy(&word, bytes.data() + at, sizeof word);
        if ((word & highBits) != 0)
            return false;
    }
    return std::none_of(bytes.begin() + static_cast<std::ptrdiff_t>(at), bytes.end(),
                        [](char c) { return static_cast<std::uint8_t>(c) >= 0x80; });
}

bool IsUtf8(std::string_view bytes) {
    static const auto followWell = FastestHere();
    const auto first = reinterpret_cast<Bytes>(bytes.data());
    std::size_t at = 0;
    while (at < std::min(lookedBack, bytes.size()))
        if (NextUtf8(bytes, at) < 0)
            return false;
    while (at + width <= bytes.size()) {
        const std::size_t piece = std::min(pieceBytes, (bytes.size() - at) / width * width);
        if (!followWell(first + at, first + at + piece))
            return false;
        at += piece;
    }
    // A character that is only begun is looked at once more.
    for (std::size_t back = 1; back <= std::min(lookedBack, at); ++back)
        if (first[at - back] >= 0xC0)
            return IsUtf8From(at - back, bytes);
    return IsUtf8From(at, bytes);
}

} // namespace quillshift::wizard
