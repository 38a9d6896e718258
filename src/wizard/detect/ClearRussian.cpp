#include "wizard/detect/ClearRussian.h"

#include "wizard/detect/CharacterSets.h"
#include "wizard/detect/Processor.h"
#include "wizard/detect/RussianGlance.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cmath>
#include <cstring>

namespace quillshift::wizard {

namespace {

/// How often the letters come in a thousand letters of Russian, by common count.
constexpr std::u16string_view byOften = u"оеаинтсрвлкмдпуяыьгзбчйхжшюцщэфъё";
constexpr double perThousand[] = {109.7, 84.5, 80.1, 73.5, 67.0, 62.6, 54.7, 47.3, 45.4, 44.0, 34.9,
                                  32.1,  29.8, 28.1, 26.2, 20.1, 19.0, 17.4, 17.0, 16.5, 15.9, 14.4,
                                  12.1,  9.7,  9.4,  7.3,  6.4,  4.8,  3.6,  3.2,  2.6,  0.4,  0.4};

/// In sixteenths of a bit, and moved so that no letter is nothing.
constexpr int part = 16, moved = 128;
constexpr double letterBits = 5.5, capitalBits = 4.5;
constexpr int signCost = 4 * part;
constexpr int wanted = 12 * part, wantedALetter = 5;
constexpr std::size_t letterAt = 0x400, letterEnd = 0x452;

/// What a letter from U+0400 on gains, and `moved`; 0 where it is none of the Russian ones.
using Gains = std::array<std::uint8_t, 0x60>;

Gains MakeGains() {
    Gains gains{};
    for (std::size_t i = 0; i < byOften.size(); ++i) {
        const char16_t small = byOften[i];
        const auto large = static_cast<char16_t>(small == u'ё' ? u'Ё' : small - 0x20);
        const double bits = std::log2(perThousand[i] / 1000) + letterBits;
        const auto put = [&](char16_t letter, double gain) {
            gains[letter - letterAt] =
                static_cast<std::uint8_t>(std::clamp(std::lround(gain * part) + moved, 1L, 255L));
        };
        put(small, bits);
        put(large, bits - capitalBits);
    }
    return gains;
}

const Gains gains = MakeGains();

/// What was seen of a text.
struct Sum {
    std::int64_t gain = 0; ///< with `moved` for each letter
    std::int64_t letters = 0;
    std::int64_t signs = 0;
    bool IsClear() const {
        return gain - moved * letters - signCost * signs >= wanted + wantedALetter * letters;
    }
};

bool HasUsualSign(std::string_view text, std::size_t at) {
    const std::int32_t character = NextUtf8(text, at);
    return character > 0 && character < 0x10000 && IsUsualSign(static_cast<char16_t>(character));
}

bool IsControl(char c) {
    const auto byte = static_cast<std::uint8_t>(c);
    return (byte < 0x20 && c != '\n' && c != '\r' && c != '\t') || byte == 0x7F;
}

#ifdef QUILLSHIFT_WIDE

/// Adds up 32 bytes at a time.
class WideSum {
public:
    explicit WideSum(std::string_view text) : text_(text) {}

    QUILLSHIFT_WIDE bool IsClear() {
        std::size_t at = 0;
        for (; at + width < text_.size(); at += width)
            if (!Add(text_.data() + at, at))
                return false;
        char last[2 * width];
        std::memset(last, ' ', sizeof last);
        std::memcpy(last, text_.data() + at, text_.size() - at);
        return Add(last, at) && rests_ == 0 && sum_.IsClear();
    }

private:
    static constexpr std::size_t width = sizeof(Wide);

    QUILLSHIFT_WIDE static Wide From(Wide bytes, int least) {
        return _mm256_cmpeq_epi8(_mm256_max_epu8(bytes, WideAll(least)), bytes);
    }

    /// `from`: 33 bytes, of which the last one only ends a character.
    QUILLSHIFT_WIDE bool Add(const char* from, std::size_t at) {
        const Wide bytes = WideAt(from);
        const Wide after = WideAt(from + 1);
        const Wide leads = _mm256_cmpeq_epi8(_mm256_and_si256(bytes, WideAll(0xFE)), WideAll(0xD0));
        const Wide numbers = _mm256_or_si256(_mm256_and_si256(after, WideAll(0x3F)),
                                             _mm256_and_si256(_mm256_slli_epi16(bytes, 6), WideAll(0x40)));
        const Wide found = _mm256_and_si256(LookUp<0, gains.size() / 16>(numbers, gains.data()), leads);
        const std::uint32_t letters = ~HighBits(_mm256_cmpeq_epi8(found, _mm256_setzero_si256()));
        const std::uint32_t small = letters & HighBits(_mm256_cmpgt_epi8(numbers, WideAll(0x2F)));
        if (HighBits(leads) != letters || !IsWhole(bytes) ||
            !AddSigns(HighBits(From(bytes, 0xC0)) & ~letters, at) || HasControl(bytes))
            return false;
        const std::uint64_t afterSmall = std::uint64_t{small} << 2 | afterSmall_;
        afterSmall_ = afterSmall >> width;
        sum_.letters += std::popcount(letters);
        const Wide sums = _mm256_sad_epu8(found, _mm256_setzero_si256());
        sum_.gain += _mm256_extract_epi64(sums, 0) + _mm256_extract_epi64(sums, 1) +
                     _mm256_extract_epi64(sums, 2) + _mm256_extract_epi64(sums, 3);
        return (afterSmall & letters & ~small) == 0;
    }

    /// Whether each character has all of its bytes, as far as two and three go.
    QUILLSHIFT_WIDE bool IsWhole(Wide bytes) {
        const std::uint64_t leads = HighBits(From(bytes, 0xC0)), leadsOfThree = HighBits(From(bytes, 0xE0));
        const std::uint64_t rests = leads << 1 | leadsOfThree << 2 | rests_;
        rests_ = rests >> width;
        return static_cast<std::uint32_t>(rests) == (HighBits(bytes) & ~leads);
    }

    QUILLSHIFT_WIDE static bool HasControl(Wide bytes) {
        const Wide blank = _mm256_or_si256(
            _mm256_or_si256(_mm256_cmpeq_epi8(bytes, WideAll('\n')), _mm256_cmpeq_epi8(bytes, WideAll('\r'))),
            _mm256_cmpeq_epi8(bytes, WideAll('\t')));
        const Wide fine = _mm256_or_si256(blank, From(bytes, 0x20));
        return ~HighBits(fine) != 0 || HighBits(_mm256_cmpeq_epi8(bytes, WideAll(0x7F))) != 0;
    }

    /// `leads`: where the characters begin that are no letters, from `at` on.
    bool AddSigns(std::uint32_t leads, std::size_t at) {
        for (; leads != 0; leads &= leads - 1) {
            if (!HasUsualSign(text_, at + static_cast<std::size_t>(std::countr_zero(leads))))
                return false;
            ++sum_.signs;
        }
        return true;
    }

    std::string_view text_;
    Sum sum_;
    std::uint64_t rests_ = 0, afterSmall_ = 0; ///< what the last bytes say of the next ones
};

#endif

} // namespace

bool IsClearlyRussianPlainly(std::string_view text) {
    Sum sum;
    bool afterSmall = false;
    for (std::size_t at = 0; at < text.size();) {
        if (IsControl(text[at]))
            return false;
        std::size_t next = at;
        const std::int32_t character = NextUtf8(text, next);
        const auto number = static_cast<std::size_t>(character) - letterAt;
        const bool isLetter = character >= 0x400 && character < 0x452 && gains[number] != 0;
        const bool isSmall = isLetter && number >= 0x30;
        if (isLetter) {
            sum.gain += gains[number];
            ++sum.letters;
            if (afterSmall && !isSmall)
                return false;
        } else if (static_cast<std::uint8_t>(text[at]) >= 0x80) {
            if (!HasUsualSign(text, at))
                return false;
            ++sum.signs;
        }
        afterSmall = isSmall;
        at = next;
    }
    return sum.IsClear();
}

bool IsClearlyRussian(std::string_view text) {
#ifdef QUILLSHIFT_WIDE
    if (HasWideRegisters())
        return WideSum(text).IsClear();
#endif
    return IsClearlyRussianPlainly(text);
}

} // namespace quillshift::wizard
