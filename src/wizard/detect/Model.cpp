#include "wizard/detect/Model.h"

#include "wizard/detect/CharacterSets.h"

namespace quillshift::wizard {

namespace {

constexpr std::uint8_t capital = 0x80;

bool IsLatinLetter(char16_t c) {
    return (c >= u'a' && c <= u'z') || (c >= u'A' && c <= u'Z');
}

bool IsBox(char16_t c) {
    return c >= 0x2500 && c < 0x25A1;
}

bool IsForeignLetter(char16_t c) {
    return (c >= 0xC0 && c < 0x530 && c != 0xD7 && c != 0xF7) || (c >= 0x531 && c < 0x2000) ||
           (c >= 0x2C00 && c < 0xFF00) || c == 0xAA || c == 0xBA || c == 0xB5;
}

char16_t CapitalOf(char16_t c) {
    if ((c >= u'a' && c <= u'z') || (c >= 0xE0 && c < 0xFF) || (c >= 0x3B1 && c < 0x3CC && c != 0x3C2) ||
        (c >= 0x430 && c < 0x450))
        return static_cast<char16_t>(c - 0x20);
    if (c >= 0x450 && c < 0x460)
        return static_cast<char16_t>(c - 0x50);
    if ((c >= 0x100 && c < 0x138) || (c >= 0x14A && c < 0x178) || (c >= 0x490 && c < 0x500))
        return static_cast<char16_t>(c & ~1);
    if ((c >= 0x139 && c < 0x149) || (c >= 0x179 && c < 0x17F))
        return static_cast<char16_t>(c % 2 == 0 ? c - 1 : c);
    constexpr char16_t pairs[][2] = {{u'ά', u'Ά'}, {u'έ', u'Έ'}, {u'ή', u'Ή'}, {u'ί', u'Ί'},
                                     {u'ό', u'Ό'}, {u'ύ', u'Ύ'}, {u'ώ', u'Ώ'}};
    for (const auto& pair : pairs)
        if (pair[0] == c)
            return pair[1];
    return c;
}

/// Opens English quotations and closes those that begin with a low one.
constexpr char16_t eitherQuote = 0x201C;

bool IsOpening(char16_t c) {
    return c == 0xAB || c == 0x201E || c == eitherQuote;
}

bool IsClosing(char16_t c) {
    return c == 0xBB || c == 0x201D || c == 0x2026;
}

bool IsDash(char16_t c) {
    return c == 0x2014 || c == 0x2013;
}

/// What a character that is no letter of the language costs, in bits.
double SignBits(char16_t c) {
    if (c == u' ')
        return 0.5;
    if (c == u'\n' || c == u'\r' || c == u'\t' || c == u',' || c == u'.' || c == u'-')
        return 3;
    if (c < 0x20 || c == 0x7F)
        return 16;
    if (IsLatinLetter(c) || (c >= u'0' && c <= u'9'))
        return 5.5;
    if (c < 0x80)
        return 6;
    if (IsDash(c))
        return c == 0x2014 ? 4 : 6;
    if (IsOpening(c) || IsClosing(c) || c == 0x2116 || c == 0xA0)
        return 8;
    if (c < 0xA0)
        return 22;
    if (c == 0x20AC)
        return 18;
    if (c == 0xA9 || c == 0xAE || c == 0xB0 || c == 0xA7 || c == 0xB1 || c == 0x2022 || c == 0x2122)
        return 13;
    if (c == lostMark)
        return 12;
    if (IsBox(c))
        return 14;
    if (c >= 0x400 && c < 0x530)
        return 19;
    return IsForeignLetter(c) ? 14 : 16;
}

} // namespace

Model::Model(const ModelData& data) : data_(data), size_(data.letters.size() + 1) {
    costs_.reserve(data.costs.size());
    for (const char digit : data.costs) // the backslash is left out
        costs_.push_back(static_cast<std::uint8_t>(digit - '@' - (digit > '\\')));
    rough_.fill(16);
    for (std::size_t c = 0; c < reach; ++c)
        rough_[c] = static_cast<float>(SignBits(static_cast<char16_t>(c)));
    std::vector<double> mean(size_, 0);
    for (std::size_t i = 0; i < data.letters.size(); ++i) {
        const char16_t c = data.letters[i];
        const char16_t large = CapitalOf(c);
        letter_[c] = static_cast<std::uint8_t>(i + 1);
        if (large != c)
            letter_[large] = static_cast<std::uint8_t>((i + 1) | capital);
        double bits = 0;
        for (std::size_t last = 0; last < size_; ++last)
            bits += Cost(0, last, i + 1);
        rough_[c] = static_cast<float>(bits / static_cast<double>(size_) * 0.75);
        if (large != c)
            rough_[large] = rough_[c] + 1.0F;
    }
}

std::size_t Model::Letters(std::span<const std::uint32_t> counts, std::span<const char16_t> alphabet) const {
    std::size_t letters = 0;
    for (std::size_t symbol = 0; symbol < alphabet.size(); ++symbol)
        letters += alphabet[symbol] < reach && letter_[alphabet[symbol]] != 0 ? counts[symbol] : 0;
    return letters;
}

double Model::Cost(std::size_t before, std::size_t last, std::size_t next) const {
    const std::size_t row = data_.order == 3 ? before * size_ + last : last;
    return costs_[row * size_ + next] / 4.0;
}

double Model::SignCost(char16_t character) {
    return SignBits(character);
}

double Model::RoughBits(std::span<const std::uint32_t> counts, std::span<const char16_t> alphabet) const {
    double bits = 0;
    for (std::size_t symbol = 0; symbol < alphabet.size(); ++symbol)
        bits +=
            counts[symbol] * static_cast<double>(alphabet[symbol] < reach ? rough_[alphabet[symbol]] : 14.0F);
    return bits;
}

namespace {

/// What kind of sign a character is, as far as that says what may stand beside it.
enum class Sign : std::uint8_t { Other, Blank, Stop, Opening, Closing, Either, Dash, HardBlank, Number };

Sign SignOf(char16_t c) {
    return c == u' ' || c == u'\n' || c == u'\r' || c == u'\t' ? Sign::Blank
           : c == u'.' || c == u'!' || c == u'?'               ? Sign::Stop
           : c == eitherQuote                                  ? Sign::Either
           : IsOpening(c)                                      ? Sign::Opening
           : IsClosing(c)                                      ? Sign::Closing
           : IsDash(c)                                         ? Sign::Dash
           : c == 0xA0                                         ? Sign::HardBlank
           : c == 0x2116                                       ? Sign::Number
                                                               : Sign::Other;
}

/// What it costs that a letter stands directly behind a sign: one that closes, a dash or a number sign that
/// should be apart from it.
double LetterAfter(Sign sign) {
    return sign == Sign::Closing ? 8 : sign == Sign::Dash ? 9 : sign == Sign::Number ? 6 : 0;
}

/// What it costs that a sign stands behind a letter or not, and behind another sign.
double SignAfter(Sign sign, bool afterLetter, Sign before) {
    if (before == Sign::Opening || (before == Sign::Dash && sign == Sign::Dash))
        return 5;
    if (sign == Sign::HardBlank)
        return before == Sign::Blank || before == Sign::HardBlank ? 6 : 0;
    if (before == Sign::HardBlank)
        return sign == Sign::Blank ? 6 : 0;
    return sign == Sign::Opening && afterLetter    ? 7
           : sign == Sign::Closing && !afterLetter ? 7
           : sign == Sign::Dash && afterLetter     ? 6
                                                   : 0;
}

/// What the case of a letter costs: after [nothing, a small letter, one capital, capitals, capitals and a
/// gap, one capital after those, the end of a sentence][small, capital].
constexpr double caseBits[7][2] = {{0.25, 2.7}, {0.01, 13}, {0.4, 2.0}, {6, 0.02},
                                   {3, 0.2},    {3, 0.1},   {2.7, 0.3}};

constexpr int smallCase = 1; // the row after a small letter

constexpr double unclosedBits = 5;

int CaseAfterGap(int letterCase) {
    return letterCase == 3 || letterCase == 5 ? 4 : 0;
}

} // namespace

double Model::Bits(const Reading& reading, double most) const {
    struct Symbol {
        std::uint8_t letter;
        bool large, box, ascii, strange;
        Sign sign;
        double bits;
    };
    std::array<Symbol, 256> table; // filled as far as the alphabet goes
    for (std::size_t i = 0; i < reading.alphabet.size(); ++i) {
        const char16_t c = reading.alphabet[i];
        const std::uint8_t letter = c < reach ? letter_[c] : 0;
        table[i] = {static_cast<std::uint8_t>(letter & ~capital),
                    (letter & capital) != 0,
                    IsBox(c),
                    IsLatinLetter(c),
                    c >= 0x80 && c != 0xAB && c != 0xBB && c != 0x2026 && (c < 0x2018 || c > 0x201E) &&
                        c != 0xA0 && c != lostMark && !IsDash(c),
                    SignOf(c),
                    SignBits(c)};
    }
    double bits = 0;
    std::size_t before = 0, last = 0;
    int letterCase = 0;
    int previous = -1;
    Sign sign = Sign::Blank;
    bool afterAscii = false, afterStrange = false, sentenceEnded = false;
    int open = 0;
    for (const std::uint8_t s : reading.symbols) {
        if (bits > most)
            return bits;
        const Symbol& symbol = table[s];
        if (last != 0 && symbol.letter != 0 && letterCase == smallCase && !symbol.large) { // as most are
            bits += Cost(before, last, symbol.letter) + caseBits[smallCase][0];
            before = last;
            last = symbol.letter;
        } else if (symbol.letter != 0) {
            bits += Cost(before, last, symbol.letter) + LetterAfter(sign) +
                    caseBits[sentenceEnded && letterCase == 0 && sign == Sign::Blank ? 6 : letterCase]
                            [symbol.large ? 1 : 0];
            if (last == 0)
                bits += 1 + (afterAscii ? 5 : 0) + (afterStrange ? 4 : 0);
            letterCase = !symbol.large ? smallCase : letterCase == 0 ? 2 : letterCase == 4 ? 5 : 3;
            before = last;
            last = symbol.letter;
            sign = Sign::Other;
            sentenceEnded = false;
        } else {
            if (last != 0) {
                bits += Cost(before, last, 0) + (symbol.ascii ? 5 : 0) +
                        (symbol.box       ? 10
                         : symbol.strange ? 4
                                          : 0);
                letterCase = CaseAfterGap(letterCase);
            }
            const Sign kind = symbol.sign != Sign::Either ? symbol.sign
                              : open > 0                  ? Sign::Closing
                                                          : Sign::Opening;
            bits += (symbol.box && s == previous ? 2 : symbol.bits) +
                    SignAfter(kind, last != 0 || afterAscii, sign) + (symbol.ascii ? LetterAfter(sign) : 0);
            sign = kind;
            open += (sign == Sign::Opening) - (sign == Sign::Closing && open > 0);
            sentenceEnded = sign == Sign::Stop || (sentenceEnded && sign == Sign::Blank);
            before = last = 0;
        }
        previous = s;
        afterAscii = symbol.ascii;
        afterStrange = symbol.strange && symbol.letter == 0;
    }
    bits += unclosedBits * open;
    return last != 0 ? bits + Cost(before, last, 0) : bits;
}

const std::vector<Model>& Models() {
    static const std::vector<Model> models = [] {
        std::vector<Model> made;
        made.reserve(modelCount);
        for (const ModelData& data : modelData)
            made.emplace_back(data);
        return made;
    }();
    return models;
}

} // namespace quillshift::wizard
