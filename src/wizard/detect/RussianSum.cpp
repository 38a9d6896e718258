#include "wizard/detect/RussianSum.h"

#include <algorithm>
#include <cmath>

namespace quillshift::wizard {

namespace {

/// How often the letters come in a thousand letters of Russian, by common count.
constexpr std::u16string_view byOften = u"оеаинтсрвлкмдпуяыьгзбчйхжшюцщэфъё";
constexpr double perThousand[] = {109.7, 84.5, 80.1, 73.5, 67.0, 62.6, 54.7, 47.3, 45.4, 44.0, 34.9,
                                  32.1,  29.8, 28.1, 26.2, 20.1, 19.0, 17.4, 17.0, 16.5, 15.9, 14.4,
                                  12.1,  9.7,  9.4,  7.3,  6.4,  4.8,  3.6,  3.2,  2.6,  0.4,  0.4};

constexpr double letterBits = 5.5, capitalBits = 4.5;

constexpr char16_t lettersFrom = 0x400;

/// `part` and `moved`: see `RussianSum::Gains`.
RussianSum::Gains MakeGains(int part, int moved) {
    RussianSum::Gains gains{};
    for (std::size_t i = 0; i < byOften.size(); ++i) {
        const char16_t small = byOften[i];
        const auto large = static_cast<char16_t>(small == u'ё' ? u'Ё' : small - 0x20);
        const double bits = std::log2(perThousand[i] / 1000) + letterBits;
        const auto put = [&](char16_t letter, double gain) {
            gains[static_cast<std::size_t>(letter - lettersFrom)] =
                static_cast<std::uint8_t>(std::clamp(std::lround(gain * part) + moved, 1L, 255L));
        };
        put(small, bits);
        put(large, bits - capitalBits);
    }
    return gains;
}

} // namespace

const RussianSum::Gains& RussianSum::AllGains() {
    static const Gains gains = MakeGains(part, moved);
    return gains;
}

#ifdef QUILLSHIFT_WIDE
const WideTable<6>& RussianSum::WideGains() {
    static const WideTable<6> table(AllGains());
    return table;
}
#endif

std::uint8_t RussianSum::GainOf(char16_t character) {
    const Gains& gains = AllGains();
    const std::size_t place = static_cast<std::size_t>(character) - lettersFrom;
    return place < gains.size() ? gains[place] : std::uint8_t{0};
}

bool RussianSum::IsControl(char byte) {
    const auto value = static_cast<std::uint8_t>(byte);
    return (value < 0x20 && byte != '\n' && byte != '\r' && byte != '\t') || value == 0x7F;
}

} // namespace quillshift::wizard
