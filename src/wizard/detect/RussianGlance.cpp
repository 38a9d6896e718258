#include "wizard/detect/RussianGlance.h"

#include "wizard/detect/Model.h"

#include <cstdint>

namespace quillshift::wizard {

namespace {

/// 0 is a blank; small letters are 1 to 33, capitals as many more, and then come the signs.
constexpr std::size_t letterCount = 33;
enum Sign : std::uint8_t {
    lineEnd = 2 * letterCount + 1,
    light,
    other,
    latin,
    control,
    high,
    strange,
    codes
};

/// In quarters of a bit: what a character gains over the most that is plausible. A line that stays well above
/// nothing is plausible, whatever came before each pair.
constexpr double part = 4;
constexpr double letterBits = 4.8, blankBits = 3, signBits = 6;
constexpr double startGain = 8, wantedGain = 4;
constexpr double highGain = -11;
constexpr double strangeGain = -4000;
constexpr double latinBesideLetter = 6;

bool IsOneOf(char16_t character, std::u16string_view some) {
    return some.find(character) != some.npos;
}

bool IsLetter(std::size_t code) {
    return code > 0 && code <= 2 * letterCount;
}

double CaseCost(std::size_t last, bool large) {
    if (!IsLetter(last))
        return large ? 2.7 : 0.25;
    return last > letterCount ? 0.4 : large ? 19 : 0;
}

double SignGain(std::size_t code) {
    switch (code) {
    case 0:
        return blankBits - Model::SignCost(u' ');
    case lineEnd:
        return blankBits - Model::SignCost(u'\n');
    case light:
        return signBits - Model::SignCost(u',');
    case other:
    case latin:
        return signBits - Model::SignCost(u'@');
    case control:
        return blankBits - Model::SignCost(u'\x1B');
    case high:
        return highGain;
    default:
        return strangeGain;
    }
}

/// What a character gains beside the one before it, but for what the order of letters costs.
double Gain(std::size_t last, std::size_t next) {
    const bool latinBeside = (last == latin && IsLetter(next)) || (next == latin && IsLetter(last));
    const double beside = latinBeside ? latinBesideLetter : 0;
    if (!IsLetter(next))
        return SignGain(next) - beside;
    return letterBits - beside - (IsLetter(last) ? 0 : 1) - CaseCost(last, next > letterCount);
}

struct Tables {
    static constexpr std::size_t numbers = letterCount + 1;
    std::array<std::array<std::int16_t, codes>, codes> gain{};
    std::array<std::int16_t, numbers * numbers * numbers>
        cost{}; ///< of a letter after two others; 0 is no letter
    std::array<std::uint8_t, codes> number{};

    Tables() {
        for (std::size_t last = 0; last < codes; ++last) {
            number[last] = static_cast<std::uint8_t>(IsLetter(last) ? (last - 1) % letterCount + 1 : 0);
            for (std::size_t next = 0; next < codes; ++next)
                gain[last][next] = static_cast<std::int16_t>(part * Gain(last, next));
        }
        for (std::size_t before = 0; before < numbers; ++before)
            for (std::size_t last = 0; last < numbers; ++last)
                for (std::size_t next = 0; next < numbers; ++next)
                    if (last != 0 || next != 0)
                        cost[(before * numbers + last) * numbers + next] = static_cast<std::uint8_t>(
                            part * Models()[0].Cost(last == 0 ? 0 : before, last, next));
    }
};

} // namespace

std::uint8_t LetterCode(char16_t character) {
    const auto small = static_cast<char16_t>(character == u'Ё'                        ? u'ё'
                                             : character >= u'А' && character <= u'Я' ? character + 0x20
                                                                                      : character);
    if (const std::size_t letter = modelData[0].letters.find(small); letter != std::u16string_view::npos)
        return static_cast<std::uint8_t>(letter + 1 + (small == character ? 0 : letterCount));
    if (character == u' ')
        return 0;
    if (character < 0x80) {
        const bool isLatin = (character | 0x20) >= u'a' && (character | 0x20) <= u'z';
        return IsOneOf(character, u"\n\r\t")           ? lineEnd
               : IsOneOf(character, u",.-")            ? light
               : character < 0x20 || character == 0x7F ? control
               : isLatin                               ? latin
                                                       : other;
    }
    return IsUsualSign(character) ? high : strange;
}

bool IsUsualSign(char16_t character) {
    return IsOneOf(character, u"«»–—…№\u00A0“”„");
}

double RussianGlance(const std::vector<std::uint8_t>& codes, std::size_t count) {
    static const Tables tables;
    int gain = static_cast<int>(part * (startGain - wantedGain));
    std::size_t last = 0, before = 0, lastNumber = 0;
    for (std::size_t i = 0; i < count; ++i) {
        const std::size_t next = codes[i], number = tables.number[next];
        gain += tables.gain[last][next] -
                tables.cost[(before * Tables::numbers + lastNumber) * Tables::numbers + number];
        last = next;
        before = lastNumber;
        lastNumber = number;
    }
    return gain / part;
}

} // namespace quillshift::wizard
