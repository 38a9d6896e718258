#pragma once

#include "wizard/detect/CharacterSets.h"
#include "wizard/detect/Processor.h"

#include <array>
#include <bit>

namespace quillshift::wizard {

/// Adds up how a text speaks for Russian, by how often its letters come and in whatever order.
class RussianSum {
public:
    /// What each letter of U+0400 to U+045F gains, in sixteenths of a bit and moved so that no letter gains
    /// nothing; 0 for what is no Russian letter.
    using Gains = std::array<std::uint8_t, 0x60>;
    static const Gains& AllGains();
    /// The same of any character.
    static std::uint8_t GainOf(char16_t character);
    static bool IsSmall(char16_t letter) { return letter >= u'а'; }
    static bool IsControl(char byte);

    void AddLetter(std::uint8_t gain) {
        gain_ += gain;
        ++letters_;
    }
    void AddSign() { ++signs_; }
    /// Whether all of it is Russian beyond doubt.
    bool IsClear() const;

#ifdef QUILLSHIFT_WIDE
    /// Adds the letters among 32 bytes. `bytesALetter`: what one takes. False for a capital inside a word.
    QUILLSHIFT_WIDE_PART bool AddWide(Wide gains, std::uint32_t letters, std::uint32_t small,
                                      int bytesALetter) {
        const std::uint64_t afterSmall = std::uint64_t{small} << bytesALetter | afterSmall_;
        afterSmall_ = afterSmall >> sizeof(Wide);
        letters_ += std::popcount(letters);
        wideGain_ = _mm256_add_epi64(wideGain_, _mm256_sad_epu8(gains, _mm256_setzero_si256()));
        return (afterSmall & letters & ~small) == 0;
    }
    QUILLSHIFT_WIDE bool IsClearWide() {
        gain_ += _mm256_extract_epi64(wideGain_, 0) + _mm256_extract_epi64(wideGain_, 1) +
                 _mm256_extract_epi64(wideGain_, 2) + _mm256_extract_epi64(wideGain_, 3);
        return IsClear();
    }
    QUILLSHIFT_WIDE_PART static bool HasControl(Wide bytes) {
        const Wide blanks = _mm256_or_si256(
            _mm256_or_si256(_mm256_cmpeq_epi8(bytes, WideAll('\n')), _mm256_cmpeq_epi8(bytes, WideAll('\r'))),
            _mm256_cmpeq_epi8(bytes, WideAll('\t')));
        const Wide low = _mm256_cmpeq_epi8(_mm256_min_epu8(bytes, WideAll(0x1F)), bytes);
        const Wide controls =
            _mm256_or_si256(_mm256_andnot_si256(blanks, low), _mm256_cmpeq_epi8(bytes, WideAll(0x7F)));
        return HighBits(controls) != 0;
    }
#endif

private:
    std::int64_t gain_ = 0, letters_ = 0, signs_ = 0;
    std::uint64_t afterSmall_ = 0; ///< what the last bytes say of the next ones
#ifdef QUILLSHIFT_WIDE
    Wide wideGain_{};
#endif
};

} // namespace quillshift::wizard
