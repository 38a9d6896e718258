#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace quillshift {

/// One of the five character sets. The number less one is its place in the selectors.
using Charset = std::int16_t;

inline constexpr int kCharsets = 5;
inline constexpr int kDirections = 20;
/// The longest text the recoder takes, in characters.
inline constexpr std::size_t kRecodingLimit = 32766;

/// Names of the character sets as they are shown, in order of their numbers.
inline constexpr std::array<std::u16string_view, kCharsets> kCharsetNames{
    u"DOS 866", u"Windows 1251", u"UNIX KOI-8", u"ISO 8859-5", u"MAC Apple"};

/// An ordered pair of different character sets.
struct Direction {
    Charset source;
    Charset target;

    bool operator==(const Direction&) const = default;
};

/// The pair with a number from 0 to 19: by source, then by target with the source left out.
constexpr Direction DirectionOf(int number) {
    const int source = number / (kCharsets - 1);
    const int place = number % (kCharsets - 1);
    const int target = place < source ? place : place + 1;
    return {static_cast<Charset>(source + 1), static_cast<Charset>(target + 1)};
}

/// How a direction is shown, such as "DOS 866 -> Windows 1251".
std::u16string DirectionName(Direction direction);

/// The 64 characters that stand for А to Я and а to я (without Ё) in a character set, each as the
/// Windows-1251 reading of its byte. Empty for a number outside 1 to 5.
std::u16string_view CodeTable(Charset number);

/// Replaces each character found in `source` by the one at the same place of `target`; where `source` repeats
/// a character, its first place counts. Everything else stays. Throws Error 6 for a text of more than 32766
/// characters.
std::u16string TranslateText(std::u16string_view text, std::u16string_view target,
                             std::u16string_view source);

/// Re-codes `text` from one character set to another, letter by letter. A number outside 1 to 5 gives an
/// empty table, so that the text comes back as it was. Throws as `TranslateText` does.
std::u16string RecodeText(std::u16string_view text, Charset source, Charset target);
inline std::u16string RecodeText(std::u16string_view text, Direction direction) {
    return RecodeText(text, direction.source, direction.target);
}

} // namespace quillshift
