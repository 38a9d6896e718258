#pragma once

#include "wizard/detect/CharacterSets.h"
#include "wizard/detect/Processor.h"

#include <array>
#include <bit>
#include <vector>

namespace quillshift::wizard {

#ifdef QUILLSHIFT_WIDE
/// What 32 bytes say of a text, a bit for each.
struct WideLook {
    Wide gains; ///< of each letter, see `RussianSum`
    std::uint32_t letters, signs;
    std::uint32_t refused; ///< what Russian has not: controls, capitals inside a word, other signs
};

/// Finds capitals inside words, 32 bytes after 32 others.
class InnerCapitals {
public:
    explicit InnerCapitals(int bytesALetter) : bytesALetter_(bytesALetter) {}

    std::uint32_t Among(std::uint32_t letters, std::uint32_t small) {
        const std::uint64_t afterSmall = std::uint64_t{small} << bytesALetter_ | afterSmall_;
        afterSmall_ = afterSmall >> sizeof(Wide);
        return static_cast<std::uint32_t>(afterSmall) & letters & ~small;
    }

private:
    int bytesALetter_;
    std::uint64_t afterSmall_ = 0;
};
#endif

/// Adds up how a text speaks for Russian, by how often its letters come and in whatever order.
class RussianSum {
public:
    /// What each letter of U+0400 to U+045F gains, in sixteenths of a bit and moved so that no letter gains
    /// nothing; 0 for what is no Russian letter.
    using Gains = std::array<std::uint8_t, 0x60>;
    static const Gains& AllGains();
#ifdef QUILLSHIFT_WIDE
    static const WideTable<6>& WideGains();
#endif
    /// The same of any character.
    static std::uint8_t GainOf(char16_t character);
    static bool IsSmall(char16_t letter) {
        return letter >= u'а';
    }
    static bool IsControl(char byte);

    void AddLetter(std::uint8_t gain) {
        gain_ += gain;
        ++letters_;
    }
    void AddSign() {
        ++signs_;
    }
    /// Whether all of it is Russian beyond doubt.
    bool IsClear() const {
        return gain_ - moved * letters_ - signCost * signs_ >= wanted + wantedALetter * letters_;
    }

#ifdef QUILLSHIFT_WIDE
    QUILLSHIFT_WIDE_PART void AddWide(const WideLook& look) {
        letters_ += std::popcount(look.letters);
        signs_ += std::popcount(look.signs);
        isRefused_ = isRefused_ || look.refused != 0;
        wideGain_ = _mm256_add_epi64(wideGain_, _mm256_sad_epu8(look.gains, _mm256_setzero_si256()));
    }
    /// The same of those of the 32 bytes that are a part of it, a bit for each.
    QUILLSHIFT_WIDE_PART void AddWide(const WideLook& look, std::uint32_t bytes) {
        AddWide({_mm256_and_si256(look.gains, WideOfBits(bytes)), look.letters & bytes, look.signs & bytes,
                 look.refused & bytes});
    }
    /// Whether there is something that Russian has not.
    bool IsRefused() const {
        return isRefused_;
    }
    QUILLSHIFT_WIDE_PART bool IsClearWide() {
        gain_ += _mm256_extract_epi64(wideGain_, 0) + _mm256_extract_epi64(wideGain_, 1) +
                 _mm256_extract_epi64(wideGain_, 2) + _mm256_extract_epi64(wideGain_, 3);
        return !isRefused_ && IsClear();
    }
    QUILLSHIFT_WIDE_PART static std::uint32_t Controls(Wide bytes) {
        const Wide blanks = _mm256_or_si256(
            _mm256_or_si256(_mm256_cmpeq_epi8(bytes, WideAll('\n')), _mm256_cmpeq_epi8(bytes, WideAll('\r'))),
            _mm256_cmpeq_epi8(bytes, WideAll('\t')));
        const Wide low = _mm256_cmpeq_epi8(_mm256_min_epu8(bytes, WideAll(0x1F)), bytes);
        const Wide controls =
            _mm256_or_si256(_mm256_andnot_si256(blanks, low), _mm256_cmpeq_epi8(bytes, WideAll(0x7F)));
        return HighBits(controls);
    }
#endif

private:
    static constexpr int part = 16, moved = 128; // see `Gains`
    static constexpr int signCost = 4 * part, wanted = 12 * part, wantedALetter = 5;

#ifdef QUILLSHIFT_WIDE
    Wide wideGain_{};
    bool isRefused_ = false;
#endif
    std::int64_t gain_ = 0, letters_ = 0, signs_ = 0;
};

/// What was seen of a line; clear is what is Russian beyond doubt.
enum class LineLook : std::uint8_t { Ascii, Clear, Unclear };

/// What was seen of each line of a text.
class LookedLines {
public:
    /// Forgets all, and makes room: there are no more lines than bytes.
    void Start(std::string_view text) {
        looks_.resize(std::max(looks_.size(), text.size()));
        count_ = 0;
    }
    void Add(LineLook look) { looks_[count_++] = look; }
    std::size_t Count() const { return count_; }
    LineLook operator[](std::size_t line) const { return looks_[line]; }

private:
    std::vector<LineLook> looks_; ///< of which so many are meant
    std::size_t count_ = 0;
};

constexpr LineLook LookOf(bool isAscii, bool isClear) {
    return isAscii ? LineLook::Ascii : isClear ? LineLook::Clear : LineLook::Unclear;
}

#ifdef QUILLSHIFT_WIDE

/// Adds up a text, 32 bytes at a time, until something is refused.
class WideText {
public:
    bool Wants() const { return !sum_.IsRefused(); }
    QUILLSHIFT_WIDE_PART void Add(Wide /*bytes*/, const WideLook& look) { sum_.AddWide(look); }
    QUILLSHIFT_WIDE_PART bool IsClear() { return sum_.IsClearWide(); }

private:
    RussianSum sum_;
};

/// Adds up each line of a text, 32 bytes at a time.
class WideLines {
public:
    explicit WideLines(LookedLines& lines) : lines_(lines) {}

    static bool Wants() { return true; }
    QUILLSHIFT_WIDE_PART void Add(Wide bytes, const WideLook& look) {
        const std::uint32_t high = HighBits(bytes);
        std::uint32_t rest = ~0U;
        for (std::uint32_t ends = HighBits(_mm256_cmpeq_epi8(bytes, WideAll('\n'))); ends != 0;
             ends &= ends - 1) {
            const std::uint32_t upTo = ends ^ (ends - 1); // the lowest of them and what is below it
            sum_.AddWide(look, rest & upTo);
            lines_.Add(LookOf(((high & rest & upTo) | high_) == 0, sum_.IsClearWide()));
            rest &= ~upTo;
            sum_ = {};
            high_ = 0;
        }
        high_ |= high & rest;
        if (rest == ~0U)
            sum_.AddWide(look);
        else
            sum_.AddWide(look, rest);
    }

private:
    RussianSum sum_;
    LookedLines& lines_;
    std::uint32_t high_ = 0; ///< of the line at hand
};

#endif

} // namespace quillshift::wizard
