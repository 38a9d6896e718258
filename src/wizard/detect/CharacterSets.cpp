#include "wizard/detect/CharacterSets.h"

#include <array>

namespace quillshift::wizard {

namespace {

constexpr std::array<std::string_view, setCount> names = {"866",        "1251",  "koi8-r",   "koi8-u",
                                                          "iso-8859-5", "mac",   "1252",     "437",
                                                          "1253",       "utf-8", "utf-16le", "utf-16be"};

constexpr std::size_t reach = 0x2600; // no set holds a character from here on

using Inverse = std::array<std::uint8_t, reach>;

std::array<Inverse, singleByteSets> MakeInverses() {
    std::array<Inverse, singleByteSets> inverses{};
    for (std::size_t set = 0; set < singleByteSets; ++set)
        for (std::size_t place = 0; place < 128; ++place)
            inverses[set][upperHalves[set][place]] = static_cast<std::uint8_t>(0x80 + place);
    // ISO 8859-1 has controls where Windows-1252 has letters: either reader may have been at work.
    for (std::size_t byte = 0x80; byte < 0xA0; ++byte)
        inverses[static_cast<std::size_t>(Set::Latin)][byte] = static_cast<std::uint8_t>(byte);
    return inverses;
}

} // namespace

std::string_view NameOf(Set set) {
    return names[static_cast<std::size_t>(set)];
}

std::optional<Set> SetNamed(std::string_view name) {
    for (std::size_t set = 0; set < names.size(); ++set)
        if (names[set] == name)
            return static_cast<Set>(set);
    return std::nullopt;
}

int ByteOf(Set set, char16_t character) {
    static const auto inverses = MakeInverses();
    if (character < 0x80)
        return character;
    if (character >= reach)
        return -1;
    const int byte = inverses[static_cast<std::size_t>(set)][character];
    return byte == 0 ? -1 : byte;
}

std::int32_t NextUtf8(std::string_view bytes, std::size_t& at) {
    const auto lead = static_cast<std::uint8_t>(bytes[at++]);
    if (lead < 0x80)
        return lead;
    if (lead < 0xC2 || lead > 0xF4)
        return -1;
    const int following = lead < 0xE0 ? 1 : lead < 0xF0 ? 2 : 3;
    std::int32_t character = lead & (0x3F >> following);
    for (int i = 0; i < following; ++i) {
        if (at == bytes.size() || (static_cast<std::uint8_t>(bytes[at]) & 0xC0) != 0x80)
            return -1;
        character = character << 6 | (static_cast<std::uint8_t>(bytes[at++]) & 0x3F);
    }
    const bool tooLong = (following == 2 && character < 0x800) || (following == 3 && character < 0x10000);
    const bool half = character >= 0xD800 && character < 0xE000;
    return tooLong || half || character > 0x10FFFF ? -1 : character;
}

std::int32_t NextLossyUtf8(std::string_view bytes, std::size_t& at) {
    const auto isLost = [&](std::size_t place) {
        return place < bytes.size() && (bytes[place] == '?' || bytes[place] == '\xFF');
    };
    const auto isRest = [&](std::size_t place) {
        return place < bytes.size() && (static_cast<std::uint8_t>(bytes[place]) & 0xC0) == 0x80;
    };
    const bool lost = isLost(at);
    if (lost && isRest(at + 1)) {
        at += 2;
        return -1;
    }
    const std::int32_t character = NextUtf8(bytes, at);
    if (character < 0 && !lost && isLost(at) && !isRest(at + 1))
        ++at;
    return character;
}

void AppendUtf8(std::string& text, std::uint32_t character) {
    const auto add = [&](std::uint32_t byte) { text += static_cast<char>(byte); };
    if (character < 0x80) {
        add(character);
    } else if (character < 0x800) {
        add(0xC0 | character >> 6);
        add(0x80 | (character & 0x3F));
    } else {
        if (character < 0x10000) {
            add(0xE0 | character >> 12);
        } else {
            add(0xF0 | character >> 18);
            add(0x80 | (character >> 12 & 0x3F));
        }
        add(0x80 | (character >> 6 & 0x3F));
        add(0x80 | (character & 0x3F));
    }
}

} // namespace quillshift::wizard
