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
class Utf8Look {
public:
    explicit Utf8Look(std::string_view text) : text_(text), gains_(RussianSum::WideGains()) {}

    template <typename Sums>
    QUILLSHIFT_WIDE_PART void Go(Sums& sums) {
        std::size_t at = 0;
        for (; at + width < text_.size() && sums.Wants(); at += width)
            sums.Add(WideAt(text_.data() + at), At(text_.data() + at, at));
        if (!sums.Wants())
            return;
        char last[2 * width];
        std::memset(last, ' ', sizeof last);
        std::memcpy(last, text_.data() + at, text_.size() - at);
        sums.Add(WideAt(last), At(last, at));
    }

    bool EndsWhole() const { return rests_ == 0; }

private:
    static constexpr std::size_t width = sizeof(Wide);

    /// The bytes that are no less.
    QUILLSHIFT_WIDE_PART static std::uint32_t From(Wide bytes, int least) {
        return HighBits(_mm256_cmpeq_epi8(_mm256_max_epu8(bytes, WideAll(least)), bytes));
    }

    /// `from`: 33 bytes, of which the last one only ends a character.
    QUILLSHIFT_WIDE_PART WideLook At(const char* from, std::size_t at) {
        const Wide bytes = WideAt(from);
        if (HighBits(bytes) == 0 && rests_ == 0) {
            capitals_.Among(0, 0);
            return {_mm256_setzero_si256(), 0, 0, RussianSum::Controls(bytes)};
        }
        const Wide leads = _mm256_cmpeq_epi8(_mm256_and_si256(bytes, WideAll(0xFE)), WideAll(0xD0));
        const Wide numbers = _mm256_or_si256(_mm256_and_si256(WideAt(from + 1), WideAll(0x3F)),
                                             _mm256_and_si256(_mm256_slli_epi16(bytes, 6), WideAll(0x40)));
        const Wide gains = _mm256_and_si256(gains_.LookUp(numbers), leads);
        const std::uint32_t letters = ~HighBits(_mm256_cmpeq_epi8(gains, _mm256_setzero_si256()));
        const std::uint32_t small = letters & HighBits(_mm256_cmpgt_epi8(numbers, WideAll(0x2F)));
        WideLook look{gains, letters, From(bytes, 0xC0) & ~letters,
                      RussianSum::Controls(bytes) | capitals_.Among(letters, small)};
        look.refused |= (HighBits(leads) & ~letters) | Refused(bytes, letters, look.signs, at);
        return look;
    }

    /// Unusual signs, and bytes that are no character as far as two and three go.
    QUILLSHIFT_WIDE_PART std::uint32_t Refused(Wide bytes, std::uint32_t letters, std::uint32_t signs,
                                               std::size_t at) {
        const std::uint32_t leads = letters | signs;
        std::uint32_t unusual = 0;
        std::uint64_t rests = std::uint64_t{leads} << 1 | rests_;
        if (signs != 0) {
            rests |= std::uint64_t{From(bytes, 0xE0)} << 2;
            for (std::uint32_t left = signs; left != 0; left &= left - 1)
                if (!HasUsualSign(text_, at + static_cast<std::size_t>(std::countr_zero(left))))
                    unusual |= left & -left;
        }
        rests_ = rests >> width;
        return unusual | (static_cast<std::uint32_t>(rests) ^ (HighBits(bytes) & ~leads));
    }

    std::string_view text_;
    const WideTable<6>& gains_;
    InnerCapitals capitals_{2};
    std::uint64_t rests_ = 0; ///< which of the next bytes belong to a character before them
};

QUILLSHIFT_WIDE bool IsClearWide(std::string_view text) {
    WideText sums;
    Utf8Look look(text);
    look.Go(sums);
    return look.EndsWhole() && sums.IsClear();
}

QUILLSHIFT_WIDE void LookAtLinesWide(std::string_view text, LookedLines& lines) {
    WideLines sums(lines);
    Utf8Look(text).Go(sums);
}

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
        return IsClearWide(text);
#endif
    return IsClearlyRussianPlainly(text);
}

void LookAtLines(std::string_view text, LookedLines& lines) {
    lines.Start(text);
#ifdef QUILLSHIFT_WIDE
    if (HasWideRegisters())
        return LookAtLinesWide(text, lines);
#endif
    while (!text.empty()) {
        const std::string_view line = text.substr(0, std::min(text.find('\n'), text.size() - 1) + 1);
        lines.Add(LookOf(IsAscii(line), IsClearlyRussianPlainly(line)));
        text.remove_prefix(line.size());
    }
}

} // namespace quillshift::wizard
