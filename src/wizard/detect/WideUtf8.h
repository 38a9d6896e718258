#pragma once

#include "wizard/detect/Processor.h"

#ifdef QUILLSHIFT_WIDE
#include <array>
#include <bit>
#include <string_view>

namespace quillshift::wizard {

/// Which of eight numbers of two bytes stay; behind them comes 0.
using NumberPicks = std::array<std::array<std::uint8_t, 16>, 0x100>;

constexpr NumberPicks MakeNumberPicks() {
    NumberPicks picks{};
    for (std::size_t stay = 0; stay < picks.size(); ++stay) {
        picks[stay].fill(0x80);
        std::size_t at = 0;
        for (std::size_t byte = 0; byte < 16; ++byte)
            if ((stay >> byte / 2 & 1) != 0)
                picks[stay][at++] = static_cast<std::uint8_t>(byte);
    }
    return picks;
}

inline constexpr NumberPicks numberPicks = MakeNumberPicks();

/// Reads characters of up to three bytes of UTF-8, 16 bytes at a time.
class WideUtf8 {
public:
    /// Characters from `reach` on are read as that.
    WideUtf8(std::string_view text, std::uint16_t reach) : text_(text), reach_(reach) {}

    /// Where the next character begins.
    std::size_t At() const { return at_ + static_cast<std::size_t>(std::popcount(rests_)); }
    /// Whether the last character lacks what belongs to it.
    bool IsBroken() const {
        return std::any_of(text_.begin() + static_cast<std::ptrdiff_t>(at_),
                           text_.begin() + static_cast<std::ptrdiff_t>(At()),
                           [](char byte) { return (byte & 0xC0) != 0x80; });
    }
    void MoveTo(std::size_t at) {
        at_ = at;
        rests_ = 0;
    }
    /// Reads on. False near the end, and before what is longer or may be nothing: that has to be read
    /// plainly.
    QUILLSHIFT_WIDE_PART bool Read() {
        if (at_ + width + 2 > text_.size())
            return false;
        const char* from = text_.data() + at_;
        const __m128i bytes = _mm_loadu_si128(reinterpret_cast<const __m128i*>(from));
        const std::uint32_t leads = From(bytes, 0xC0), ofThree = From(bytes, 0xE0);
        const std::uint32_t rests = Bits(bytes) & ~leads;
        const std::uint32_t wanted = leads << 1 | ofThree << 2 | rests_;
        if ((From(bytes, 0xF0) | Bits(Doubtful(bytes))) != 0 || (wanted & allBits) != rests)
            return false;
        Keep(_mm256_min_epu16(CodesAt(from), _mm256_set1_epi16(static_cast<short>(reach_))),
             ~rests & allBits);
        rests_ = wanted >> width;
        at_ += width;
        return true;
    }
    /// What was read: so many characters of 16, the others are NUL or come from before.
    const std::uint16_t* Codes() const { return codes_.data(); }
    std::size_t Count() const { return count_; }

    static constexpr std::size_t width = 16;

private:
    static constexpr std::uint32_t allBits = 0xFFFF;

    QUILLSHIFT_WIDE_PART static __m128i All(int value) { return _mm_set1_epi8(static_cast<char>(value)); }
    QUILLSHIFT_WIDE_PART static std::uint32_t Bits(__m128i bytes) {
        return static_cast<std::uint32_t>(_mm_movemask_epi8(bytes));
    }
    /// The bytes that are no less.
    QUILLSHIFT_WIDE_PART static std::uint32_t From(__m128i bytes, int least) {
        return Bits(_mm_cmpeq_epi8(_mm_max_epu8(bytes, All(least)), bytes));
    }
    QUILLSHIFT_WIDE_PART static Wide NumbersAt(const char* from) {
        return _mm256_cvtepu8_epi16(_mm_loadu_si128(reinterpret_cast<const __m128i*>(from)));
    }
    QUILLSHIFT_WIDE_PART static Wide BitsOf(Wide numbers, short bits) {
        return _mm256_and_si256(numbers, _mm256_set1_epi16(bits));
    }

    /// Bytes that begin what is too long for its character, a half of a pair, or at times something else.
    QUILLSHIFT_WIDE_PART static __m128i Doubtful(__m128i bytes) {
        const __m128i ofTwo = _mm_cmpeq_epi8(_mm_and_si128(bytes, All(0xFE)), All(0xC0));
        return _mm_or_si128(ofTwo,
                            _mm_or_si128(_mm_cmpeq_epi8(bytes, All(0xE0)), _mm_cmpeq_epi8(bytes, All(0xED))));
    }
    /// What would begin with each of the bytes.
    QUILLSHIFT_WIDE_PART static Wide CodesAt(const char* from) {
        const Wide first = NumbersAt(from), second = BitsOf(NumbersAt(from + 1), 0x3F);
        const Wide third = BitsOf(NumbersAt(from + 2), 0x3F);
        const Wide ofTwo = _mm256_or_si256(_mm256_slli_epi16(BitsOf(first, 0x1F), 6), second);
        const Wide ofThree = _mm256_or_si256(
            _mm256_or_si256(_mm256_slli_epi16(first, 12), _mm256_slli_epi16(second, 6)), third);
        const Wide isLong = _mm256_cmpgt_epi16(first, _mm256_set1_epi16(0x7F));
        const Wide isOfThree = _mm256_cmpgt_epi16(first, _mm256_set1_epi16(0xDF));
        return _mm256_blendv_epi8(_mm256_blendv_epi8(first, ofTwo, isLong), ofThree, isOfThree);
    }
    QUILLSHIFT_WIDE_PART void Keep(Wide codes, std::uint32_t starts) {
        KeepEight(_mm256_castsi256_si128(codes), starts & 0xFF, codes_.data());
        KeepEight(_mm256_extracti128_si256(codes, 1), starts >> 8,
                  codes_.data() + std::popcount(starts & 0xFF));
        count_ = static_cast<std::size_t>(std::popcount(starts));
    }
    QUILLSHIFT_WIDE_PART static void KeepEight(__m128i codes, std::uint32_t starts, std::uint16_t* to) {
        const auto* pick = reinterpret_cast<const __m128i*>(numberPicks[starts].data());
        _mm_storeu_si128(reinterpret_cast<__m128i*>(to), _mm_shuffle_epi8(codes, _mm_loadu_si128(pick)));
    }

    std::string_view text_;
    std::uint16_t reach_;
    std::size_t at_ = 0, count_ = 0;
    std::uint32_t rests_ = 0; ///< which of the next bytes belong to a character before them
    std::array<std::uint16_t, width> codes_{};
};

} // namespace quillshift::wizard
#endif
