#include "recoding/modDecode.h"

#include "base/Error.h"
#include "base/Windows1251.h"

#include <algorithm>
#include <cstdint>
#include <vector>

namespace quillshift {
namespace {

constexpr std::size_t kLetters = 64;
using Bytes = std::array<std::uint8_t, kLetters>;
using Table = std::array<char16_t, kLetters>;

// The bytes of А to Я and of а to я where each alphabet, or each half of it, is one run of bytes.
constexpr Bytes Runs(std::uint8_t capitals, std::uint8_t smallFirst, std::uint8_t smallSecond) {
    Bytes bytes{};
    for (std::uint8_t i = 0; i < 32; ++i)
        bytes[i] = static_cast<std::uint8_t>(capitals + i);
    for (std::uint8_t i = 0; i < 16; ++i) {
        bytes[32U + i] = static_cast<std::uint8_t>(smallFirst + i);
        bytes[48U + i] = static_cast<std::uint8_t>(smallSecond + i);
    }
    return bytes;
}

// KOI-8 keeps the order of the Latin letters that sound alike, with the capitals above the small letters.
constexpr Bytes Koi8() {
    constexpr std::array<std::uint8_t, 32> kCapitals{
        0xE1, 0xE2, 0xF7, 0xE7, 0xE4, 0xE5, 0xF6, 0xFA, 0xE9, 0xEA, 0xEB, 0xEC, 0xED, 0xEE, 0xEF, 0xF0,
        0xF2, 0xF3, 0xF4, 0xF5, 0xE6, 0xE8, 0xE3, 0xFE, 0xFB, 0xFD, 0xFF, 0xF9, 0xF8, 0xFC, 0xE0, 0xF1};
    Bytes bytes{};
    for (std::size_t i = 0; i < kCapitals.size(); ++i) {
        bytes[i] = kCapitals[i];
        bytes[32 + i] = static_cast<std::uint8_t>(kCapitals[i] - 0x20);
    }
    return bytes;
}

// я is the one letter of the Macintosh set outside its run.
constexpr Bytes Mac() {
    Bytes bytes = Runs(0x80, 0xE0, 0xF0);
    bytes.back() = 0xDF;
    return bytes;
}

constexpr Table Readings(const Bytes& bytes) {
    Table table{};
    for (std::size_t i = 0; i < kLetters; ++i)
        table[i] = windows1251::FromByte(bytes[i]);
    return table;
}

constexpr std::array<Table, kCharsets> kTables{Readings(Runs(0x80, 0xA0, 0xE0)),
                                               Readings(Runs(0xC0, 0xE0, 0xF0)), Readings(Koi8()),
                                               Readings(Runs(0xB0, 0xD0, 0xE0)), Readings(Mac())};

// What each character becomes: a page of 256 entries for every high byte that the source table knows, made
// for one call. A table touches four pages or so, which is quicker to set up than one flat map of all
// characters.
class Substitution {
public:
    Substitution(std::u16string_view source, std::u16string_view target) {
        pages_.reserve(source.size());
        // Backwards, so that the first place of a repeated character is the one that stays.
        for (std::size_t i = std::min(source.size(), target.size()); i-- > 0;)
            PageOf(source[i])[source[i] & 0xFFU] = target[i];
    }

    void Apply(std::u16string& text) const {
        for (char16_t& character : text)
            if (const std::uint16_t page = index_[character >> 8U])
                character = pages_[page - 1U][character & 0xFFU];
    }

private:
    using Page = std::array<char16_t, 256>;

    Page& PageOf(char16_t character) {
        std::uint16_t& page = index_[character >> 8U];
        if (page == 0) {
            Page same{};
            for (std::size_t i = 0; i < same.size(); ++i)
                same[i] = static_cast<char16_t>((character & 0xFF00U) | i);
            pages_.push_back(same);
            page = static_cast<std::uint16_t>(pages_.size());
        }
        return pages_[page - 1U];
    }

    std::array<std::uint16_t, 256> index_{}; // 0: the page stays as it is
    std::vector<Page> pages_;
};

} // namespace

std::u16string DirectionName(Direction direction) {
    std::u16string name(kCharsetNames[static_cast<std::size_t>(direction.source - 1)]);
    name += u" -> ";
    name += kCharsetNames[static_cast<std::size_t>(direction.target - 1)];
    return name;
}

std::u16string_view CodeTable(Charset number) {
    if (number < 1 || number > kCharsets)
        return {};
    const Table& table = kTables[static_cast<std::size_t>(number - 1)];
    return {table.data(), table.size()};
}

std::u16string TranslateText(std::u16string_view text, std::u16string_view target,
                             std::u16string_view source) {
    if (text.size() > kRecodingLimit)
        throw Error(6, u"modDecode", u"Текст слишком длинный: перекодировать можно не более 32766 символов.");
    std::u16string result(text);
    Substitution(source, target).Apply(result);
    return result;
}

std::u16string RecodeText(std::u16string_view text, Charset source, Charset target) {
    return TranslateText(text, CodeTable(target), CodeTable(source));
}

} // namespace quillshift
