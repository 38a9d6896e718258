#include "wizard/detect/SetToUtf8.h"

#include "wizard/detect/ClearRussian.h"
#include "wizard/detect/RussianGlance.h"

#include <bit>
#include <cstring>

namespace quillshift::wizard {

namespace {

constexpr int lengthAt = 24;
constexpr std::uint32_t lettersFrom = 0x400;

static_assert(std::endian::native == std::endian::little,
              "the lowest byte of a number comes first in memory");

#ifdef QUILLSHIFT_WIDE

/// Which bytes of eight pairs stay: of a pair whose bit is not set only the first one.
using Picks = std::array<std::array<std::uint8_t, 16>, 0x100>;

constexpr Picks MakePicks() {
    Picks picks{};
    for (std::size_t pairs = 0; pairs < picks.size(); ++pairs) {
        std::size_t count = 0;
        for (std::size_t i = 0; i < 8; ++i) {
            picks[pairs][count++] = static_cast<std::uint8_t>(2 * i);
            if ((pairs >> i & 1) != 0)
                picks[pairs][count++] = static_cast<std::uint8_t>(2 * i + 1);
        }
    }
    return picks;
}

constexpr Picks picks = MakePicks();

/// Writes eight characters as pairs, of which those with a bit not set are one byte.
QUILLSHIFT_WIDE_PART char* WriteEight(__m128i pairs, std::uint32_t bits, char* to) {
    const auto* pick = reinterpret_cast<const __m128i*>(picks[bits & 0xFF].data());
    _mm_storeu_si128(reinterpret_cast<__m128i*>(to), _mm_shuffle_epi8(pairs, _mm_loadu_si128(pick)));
    return to + 8 + std::popcount(bits & 0xFF);
}

#endif

} // namespace

SetToUtf8::SetToUtf8(Set set) {
    std::array<std::uint8_t, 0x80> letters{};
    for (std::uint32_t byte = 0; byte < 0x100; ++byte) {
        const char16_t character = CharacterOf(set, static_cast<std::uint8_t>(byte));
        if (ByteOf(set, character) != static_cast<int>(byte))
            continue;
        std::string text;
        AppendUtf8(text, character);
        becomes_[byte] = static_cast<std::uint32_t>(text.size()) << lengthAt;
        std::memcpy(&becomes_[byte], text.data(), text.size());
        codes_[byte] = LetterCode(character);
        if (byte < 0x80)
            continue;
        if (character >= lettersFrom && character < lettersFrom + 0x80)
            letters[byte - 0x80] = static_cast<std::uint8_t>(0x80 | (character - lettersFrom));
        signs_[byte - 0x80] = IsUsualSign(character);
    }
#ifdef QUILLSHIFT_WIDE
    letters_ = WideTable<8>(letters);
#endif
}

char* SetToUtf8::Write(std::string_view bytes, char* to) const {
    for (const char byte : bytes) {
        const std::uint32_t becomes = becomes_[static_cast<std::uint8_t>(byte)];
        if (becomes == 0)
            return nullptr;
        std::memcpy(to, &becomes, sizeof becomes);
        to += becomes >> lengthAt;
    }
    return to;
}

char* SetToUtf8::ConvertPlainly(std::string_view bytes, char* to, bool& isClear) const {
    char* const end = Write(bytes, to);
    isClear = end != nullptr && IsClearlyRussianPlainly({to, static_cast<std::size_t>(end - to)});
    return end;
}

#ifdef QUILLSHIFT_WIDE

/// Looks the bytes over.
class SetToUtf8::Look {
public:
    explicit Look(const SetToUtf8& set) : set_(set) {}

    /// `places`: of the letters, see `letters_`.
    QUILLSHIFT_WIDE_PART WideLook At(const char* from, Wide bytes, Wide places) {
        const Wide gains = gains_.LookUp(_mm256_xor_si256(places, WideAll(0x80)));
        const std::uint32_t letters = ~HighBits(_mm256_cmpeq_epi8(gains, _mm256_setzero_si256()));
        const std::uint32_t small =
            letters & HighBits(_mm256_cmpgt_epi8(places, WideAll(0x80 | (u'а' - lettersFrom - 1))));
        const std::uint32_t signs = HighBits(bytes) & ~letters;
        return {gains, letters, signs,
                RussianSum::Controls(bytes) | capitals_.Among(letters, small) | Unusual(from, signs)};
    }

    QUILLSHIFT_WIDE_PART WideLook AtAscii(Wide bytes) {
        capitals_.Among(0, 0);
        return {_mm256_setzero_si256(), 0, 0, RussianSum::Controls(bytes)};
    }

private:
    std::uint32_t Unusual(const char* from, std::uint32_t signs) const {
        std::uint32_t unusual = 0;
        for (; signs != 0; signs &= signs - 1)
            if (!set_.signs_[static_cast<std::uint8_t>(from[std::countr_zero(signs)]) - 0x80U])
                unusual |= signs & -signs;
        return unusual;
    }

    InnerCapitals capitals_{1};
    const SetToUtf8& set_;
    const WideTable<6>& gains_ = RussianSum::WideGains();
};

template <typename Sums>
QUILLSHIFT_WIDE_PART char* SetToUtf8::ConvertOne(const char* bytes, char* to, Look& look, Sums& sums) const {
    const Wide from = WideAt(bytes);
    const std::uint32_t high = HighBits(from);
    if (high == 0) {
        if (sums.Wants())
            sums.Add(from, look.AtAscii(from));
        _mm256_storeu_si256(reinterpret_cast<Wide*>(to), from);
        return to + sizeof(Wide);
    }
    const Wide letters = letters_.LookUp(_mm256_xor_si256(from, WideAll(0x80)));
    if (sums.Wants())
        sums.Add(from, look.At(bytes, from, letters));
    const std::uint32_t others = high & ~HighBits(letters);
    const Wide leads =
        _mm256_or_si256(_mm256_and_si256(_mm256_srli_epi16(letters, 6), WideAll(1)), WideAll(0xD0));
    const Wide first = _mm256_blendv_epi8(from, leads, letters);
    const Wide rest = _mm256_and_si256(letters, WideAll(0xBF));
    const Wide even = _mm256_unpacklo_epi8(first, rest), odd = _mm256_unpackhi_epi8(first, rest);
    const __m128i eights[] = {_mm256_castsi256_si128(even), _mm256_castsi256_si128(odd),
                              _mm256_extracti128_si256(even, 1), _mm256_extracti128_si256(odd, 1)};
    if (others == 0) {
        to = WriteEight(eights[0], high, to);
        to = WriteEight(eights[1], high >> 8, to);
        to = WriteEight(eights[2], high >> 16, to);
        return WriteEight(eights[3], high >> 24, to);
    }
    for (std::size_t eight = 0; eight < 4 && to != nullptr; ++eight)
        to = (others >> 8 * eight & 0xFF) == 0 ? WriteEight(eights[eight], high >> 8 * eight, to)
                                               : Write({bytes + 8 * eight, 8}, to);
    return to;
}

template <typename Sums>
QUILLSHIFT_WIDE_PART char* SetToUtf8::ConvertWide(std::string_view bytes, char* to, Sums& sums) const {
    Look look(*this);
    for (; bytes.size() >= sizeof(Wide) && to != nullptr; bytes.remove_prefix(sizeof(Wide)))
        to = ConvertOne(bytes.data(), to, look, sums);
    if (!bytes.empty() && to != nullptr) {
        // What is left is filled up with blanks, each of which becomes one byte.
        char last[sizeof(Wide)];
        std::memset(last, ' ', sizeof last);
        std::memcpy(last, bytes.data(), bytes.size());
        to = ConvertOne(last, to, look, sums);
        to = to == nullptr ? nullptr : to - (sizeof last - bytes.size());
    }
    return to;
}

QUILLSHIFT_WIDE char* SetToUtf8::ConvertTextWide(std::string_view bytes, char* to, bool& isClear) const {
    WideText text;
    char* const end = ConvertWide(bytes, to, text);
    isClear = end != nullptr && text.IsClear();
    return end;
}

QUILLSHIFT_WIDE char* SetToUtf8::ConvertLinesWide(std::string_view bytes, char* to,
                                                  LookedLines& lines) const {
    lines.Start(bytes);
    WideLines sums(lines);
    return ConvertWide(bytes, to, sums);
}

#endif

char* SetToUtf8::Convert(std::string_view bytes, char* to, bool& isClear) const {
#ifdef QUILLSHIFT_WIDE
    if (HasWideRegisters())
        return ConvertTextWide(bytes, to, isClear);
#endif
    return ConvertPlainly(bytes, to, isClear);
}

char* SetToUtf8::ConvertLines(std::string_view bytes, char* to, LookedLines& lines) const {
#ifdef QUILLSHIFT_WIDE
    if (HasWideRegisters())
        return ConvertLinesWide(bytes, to, lines);
#endif
    char* const end = Write(bytes, to);
    if (end != nullptr)
        LookAtLines({to, static_cast<std::size_t>(end - to)}, lines);
    return end;
}

} // namespace quillshift::wizard
