#include "wizard/detect/TableUndo.h"

#include <algorithm>
#include <bit>
#include <cstring>

namespace quillshift::wizard {

namespace {

constexpr std::uint32_t reach = 0x2600;
constexpr std::size_t widest = 4; ///< bytes written at a time

static_assert(std::endian::native == std::endian::little,
              "the lowest byte of a number comes first in memory");
constexpr int lengthAt = 24, codeAt = 32, readersAt = 40;
/// Of the set that is Windows-1252 and ISO 8859-1 in one, a text has had one or the other.
constexpr std::uint64_t windows = 1, iso = 2, anyReader = windows | iso;

std::uint64_t EntryOf(std::string_view bytes, std::uint8_t code, std::uint64_t readers) {
    std::uint64_t entry = readers << readersAt | std::uint64_t{code} << codeAt | bytes.size() << lengthAt;
    for (std::size_t i = 0; i < bytes.size(); ++i)
        entry |= std::uint64_t{static_cast<std::uint8_t>(bytes[i])} << (8 * i);
    return entry;
}

std::uint64_t EntryOf(char16_t character, std::uint64_t readers = anyReader) {
    std::string text;
    AppendUtf8(text, character);
    return EntryOf(text, LetterCode(character), readers);
}

std::uint64_t Word(const char* bytes) {
    std::uint64_t word = 0;
    std::memcpy(&word, bytes, sizeof word);
    return word;
}

constexpr std::uint64_t highBits = 0x8080808080808080;

std::uint32_t Rest(char byte) {
    return static_cast<std::uint8_t>(byte) & 0x3FU;
}

bool IsRest(char byte) {
    return (static_cast<std::uint8_t>(byte) & 0xC0) == 0x80;
}

/// Which readers make this character of a byte.
std::uint64_t ReadersOf(Set set, std::uint8_t byte, std::uint32_t character) {
    if (set != Set::Latin)
        return CharacterOf(set, byte) == character ? anyReader : 0;
    return (CharacterOf(set, byte) == character ? windows : 0) | (byte == character ? iso : 0);
}

/// A character of two or three bytes up to U+25FF at a place, which moves behind it; `reach` for anything
/// else.
std::uint32_t HighCharacter(std::string_view bytes, std::size_t& at) {
    const auto lead = static_cast<std::uint8_t>(bytes[at]);
    if (lead >= 0xC2 && lead < 0xE0 && at + 1 < bytes.size() && IsRest(bytes[at + 1])) {
        at += 2;
        return (lead & 0x1FU) << 6 | Rest(bytes[at - 1]);
    }
    if (lead < 0xE0 || lead > 0xE2 || at + 2 >= bytes.size() || !IsRest(bytes[at + 1]) ||
        !IsRest(bytes[at + 2]))
        return reach;
    const std::uint32_t character = (lead & 0xFU) << 12 | Rest(bytes[at + 1]) << 6 | Rest(bytes[at + 2]);
    if (character < 0x800 || character >= reach)
        return reach;
    at += 3;
    return character;
}

} // namespace

bool IsAscii(std::string_view bytes) {
    std::size_t at = 0;
    for (; at + 8 <= bytes.size(); at += 8)
        if ((Word(bytes.data() + at) & highBits) != 0)
            return false;
    return std::none_of(bytes.begin() + static_cast<std::ptrdiff_t>(at), bytes.end(),
                        [](char c) { return static_cast<std::uint8_t>(c) >= 0x80; });
}

TableUndo::TableUndo(const Chain& chain) {
    if (chain.debris || chain.stored == Set::Utf16Le || chain.stored == Set::Utf16Be)
        return;
    knows_ = true;
    if (chain.stored != Set::Utf8) {
        Step step{std::vector<Entry>(0x100), true, false, {}};
        for (std::uint32_t byte = 0; byte < 0x100; ++byte) {
            const char16_t character = CharacterOf(chain.stored, static_cast<std::uint8_t>(byte));
            if (ByteOf(chain.stored, character) == static_cast<int>(byte))
                step.becomes[byte] = EntryOf(character);
        }
        steps_.push_back(std::move(step));
    }
    std::for_each(chain.layers.rbegin(), chain.layers.rend(), [&](const Layer& layer) {
        Step step{std::vector<Entry>(reach), false, layer.writtenIn == Set::Utf8, {}};
        for (std::uint32_t c = 0; c < reach; ++c) {
            const int byte = ByteOf(layer.readAs, static_cast<char16_t>(c));
            const std::uint64_t readers =
                byte < 0 ? 0 : ReadersOf(layer.readAs, static_cast<std::uint8_t>(byte), c);
            if (readers == 0)
                continue;
            if (step.toBytes) {
                const char plain = static_cast<char>(byte);
                step.becomes[c] = EntryOf({&plain, 1}, 0, readers);
                continue;
            }
            const char16_t written = CharacterOf(layer.writtenIn, static_cast<std::uint8_t>(byte));
            if (ByteOf(layer.writtenIn, written) == byte)
                step.becomes[c] = EntryOf(written, readers);
        }
        steps_.push_back(std::move(step));
    });
}

bool TableUndo::Undo(std::string_view bytes, std::string_view& text) {
    if (!knows_)
        return false;
    text = bytes;
    readers_ = anyReader;
    return std::all_of(steps_.begin(), steps_.end(), [&](Step& step) { return Go(step, text, text); }) &&
           (!steps_.empty() || ReadCodes(text));
}

bool TableUndo::Go(Step& step, std::string_view bytes, std::string_view& text) {
    if (step.out.size() < 3 * bytes.size() + widest)
        step.out.resize(3 * bytes.size() + widest);
    if (codes_.size() < bytes.size())
        codes_.resize(bytes.size());
    char* to = step.out.data();
    std::uint8_t* code = codes_.data();
    const Entry* becomes = step.becomes.data();
    Entry readers = readers_ << readersAt;
    const auto put = [&](Entry entry) {
        std::memcpy(to, &entry, widest);
        to += entry >> lengthAt & 3;
        *code++ = static_cast<std::uint8_t>(entry >> codeAt);
        readers &= entry;
    };
    if (step.fromBytes) {
        for (const char byte : bytes)
            put(becomes[static_cast<std::uint8_t>(byte)]);
    } else {
        for (std::size_t at = 0; at < bytes.size();) {
            const auto lead = static_cast<std::uint8_t>(bytes[at]);
            const std::uint32_t c =
                lead < 0x80 ? static_cast<std::uint32_t>(bytes[at++]) : HighCharacter(bytes, at);
            if (c == reach)
                return false;
            put(becomes[c]);
        }
    }
    count_ = static_cast<std::size_t>(code - codes_.data());
    text = {step.out.data(), static_cast<std::size_t>(to - step.out.data())};
    readers_ = readers >> readersAt;
    return readers_ != 0 && (!step.toBytes || ReadCodes(text));
}

bool TableUndo::ReadCodes(std::string_view text) {
    static const std::vector<std::uint8_t> codeOf = [] {
        std::vector<std::uint8_t> made(reach);
        for (std::uint32_t c = 0; c < reach; ++c)
            made[c] = LetterCode(static_cast<char16_t>(c));
        return made;
    }();
    if (codes_.size() < text.size())
        codes_.resize(text.size());
    count_ = 0;
    for (std::size_t at = 0; at < text.size();) {
        const auto lead = static_cast<std::uint8_t>(text[at]);
        std::uint32_t c = lead < 0x80 ? static_cast<std::uint32_t>(text[at++]) : HighCharacter(text, at);
        if (c == reach) {
            const std::int32_t other = NextUtf8(text, at);
            if (other < 0)
                return false;
            c = std::min(static_cast<std::uint32_t>(other), reach - 1);
        }
        codes_[count_++] = codeOf[c];
    }
    return true;
}

} // namespace quillshift::wizard
