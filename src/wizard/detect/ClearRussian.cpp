#include "wizard/detect/ClearRussian.h"

#include "wizard/detect/RussianGlance.h"
#include "wizard/detect/RussianSum.h"

#include <cstring>

namespace quillshift::wizard {

namespace {

bool HasUsualSign(std::string_view text, std::size_t at) {
    const std::int32_t character = NextUtf8(text, at);
    return character > 0 && character < 0x10000 && IsUsualSign(static_cast<char16_t>(character));
}

#ifdef QUILLSHIFT_WIDE

/// Looks over a text 32 bytes at a time.
class WideLook {
public:
    explicit WideLook(std::string_view text) : text_(text), gains_(RussianSum::AllGains()) {}

    QUILLSHIFT_WIDE bool IsClear() {
        std::size_t at = 0;
        for (; at + width < text_.size(); at += width)
            if (!Add(text_.data() + at, at))
                return false;
        char last[2 * width];
        std::memset(last, ' ', sizeof last);
        std::memcpy(last, text_.data() + at, text_.size() - at);
        return Add(last, at) && rests_ == 0 && sum_.IsClearWide();
    }

private:
    static constexpr std::size_t width = sizeof(Wide);

    /// The bytes that are no less.
    QUILLSHIFT_WIDE_PART static std::uint32_t From(Wide bytes, int least) {
        return HighBits(_mm256_cmpeq_epi8(_mm256_max_epu8(bytes, WideAll(least)), bytes));
    }

    /// `from`: 33 bytes, of which the last one only ends a character.
    QUILLSHIFT_WIDE_PART bool Add(const char* from, std::size_t at) {
        const Wide bytes = WideAt(from);
        const Wide leads = _mm256_cmpeq_epi8(_mm256_and_si256(bytes, WideAll(0xFE)), WideAll(0xD0));
        const Wide numbers = _mm256_or_si256(_mm256_and_si256(WideAt(from + 1), WideAll(0x3F)),
                                             _mm256_and_si256(_mm256_slli_epi16(bytes, 6), WideAll(0x40)));
        const Wide gains = _mm256_and_si256(LookUp<0, 6>(numbers, gains_.data()), leads);
        const std::uint32_t letters = ~HighBits(_mm256_cmpeq_epi8(gains, _mm256_setzero_si256()));
        const std::uint32_t small = letters & HighBits(_mm256_cmpgt_epi8(numbers, WideAll(0x2F)));
        return HighBits(leads) == letters && !RussianSum::HasControl(bytes) &&
               AddOthers(bytes, letters, at) && sum_.AddWide(gains, letters, small, 2);
    }

    /// Adds the signs; whether each character has all of its bytes, as far as two and three go.
    QUILLSHIFT_WIDE_PART bool AddOthers(Wide bytes, std::uint32_t letters, std::size_t at) {
        const std::uint32_t leads = From(bytes, 0xC0);
        std::uint64_t rests = std::uint64_t{leads} << 1 | rests_;
        if (const std::uint32_t signs = leads & ~letters; signs != 0) {
            rests |= std::uint64_t{From(bytes, 0xE0)} << 2;
            for (std::uint32_t left = signs; left != 0; left &= left - 1) {
                if (!HasUsualSign(text_, at + static_cast<std::size_t>(std::countr_zero(left))))
                    return false;
                sum_.AddSign();
            }
        }
        rests_ = rests >> width;
        return static_cast<std::uint32_t>(rests) == (HighBits(bytes) & ~leads);
    }

    RussianSum sum_;
    std::string_view text_;
    const RussianSum::Gains& gains_;
    std::uint64_t rests_ = 0; ///< which of the next bytes belong to a character before them
};

#endif

} // namespace

bool IsClearlyRussianPlainly(std::string_view text) {
    RussianSum sum;
    bool afterSmall = false;
    for (std::size_t at = 0; at < text.size();) {
        const std::size_t start = at;
        const std::int32_t character = NextUtf8(text, at);
        const std::uint8_t gain =
            character > 0 && character < 0x10000 ? RussianSum::GainOf(static_cast<char16_t>(character)) : 0;
        const bool isSmall = gain != 0 && RussianSum::IsSmall(static_cast<char16_t>(character));
        const bool isSign = character < 0 || character >= 0x80;
        if (RussianSum::IsControl(text[start]) || (gain != 0 && afterSmall && !isSmall) ||
            (gain == 0 && isSign && !HasUsualSign(text, start)))
            return false;
        if (gain != 0)
            sum.AddLetter(gain);
        else if (isSign)
            sum.AddSign();
        afterSmall = isSmall;
    }
    return sum.IsClear();
}

bool IsClearlyRussian(std::string_view text) {
#ifdef QUILLSHIFT_WIDE
    if (HasWideRegisters())
        return WideLook(text).IsClear();
#endif
    return IsClearlyRussianPlainly(text);
}

} // namespace quillshift::wizard
