#include "wizard/detect/TableUndo.h"

#include "wizard/detect/ClearRussian.h"
#include "wizard/detect/RussianGlance.h"

#include <algorithm>
#include <bit>
#include <cstring>

namespace quillshift::wizard {

namespace {

constexpr std::uint32_t reach = 0x2600;
constexpr std::size_t widest = 4;         ///< bytes written at a time
constexpr std::size_t pairCount = 0x2000; ///< of two bytes, the first one from 0xC0 to 0xDF

static_assert(std::endian::native == std::endian::little,
              "the lowest byte of a number comes first in memory");
constexpr int lengthAt = 24, readersAt = 26;
/// Of the set that is Windows-1252 and ISO 8859-1 in one, a text has had one or the other.
constexpr std::uint32_t windows = 1, iso = 2, anyReader = windows | iso;

std::uint32_t EntryOf(std::string_view bytes, std::uint32_t readers) {
    std::uint32_t entry = readers << readersAt | static_cast<std::uint32_t>(bytes.size()) << lengthAt;
    for (std::size_t i = 0; i < bytes.size(); ++i)
        entry |= std::uint32_t{static_cast<std::uint8_t>(bytes[i])} << (8 * i);
    return entry;
}

std::uint64_t Word(const char* bytes) {
    std::uint64_t word = 0;
    std::memcpy(&word, bytes, sizeof word);
    return word;
}

/// Which readers make this character of a byte.
std::uint32_t ReadersOf(Set set, std::uint8_t byte, std::uint32_t character) {
    if (set != Set::Latin)
        return CharacterOf(set, byte) == character ? anyReader : 0;
    return (CharacterOf(set, byte) == character ? windows : 0) | (byte == character ? iso : 0);
}

constexpr std::uint8_t noCode = 0x80; ///< beside those of `LetterCode`

constexpr std::uint64_t pair = 0x80C0, pairBits = 0xC0E0;
constexpr std::uint64_t twoPairs = pair << 16 | pair, twoPairsBits = pairBits << 16 | pairBits;
constexpr std::uint64_t triple = 0x8080E0, tripleBits = 0xC0C0F0;

/// The character of three bytes that a word begins with.
std::uint32_t OfTriple(std::uint64_t word) {
    return static_cast<std::uint32_t>((word & 0xF) << 12 | (word >> 8 & 0x3F) << 6 | (word >> 16 & 0x3F));
}

/// What stands for each pair of bytes in UTF-8: `common` for one that says too long what one byte says.
template <typename Value>
std::vector<Value> OfPairs(const std::vector<Value>& ofCharacters, Value common) {
    std::vector<Value> made(pairCount, common);
    for (std::uint32_t c = 0x80; c < 0x800; ++c)
        made[(c >> 6) << 8 | 0x80 | (c & 0x3F)] = ofCharacters[c];
    return made;
}

/// Takes each character of a text, `reach` for one that no set has, and a pair by its number among them.
/// False where it is not UTF-8.
template <typename Take, typename TakePair>
bool EachCharacter(std::string_view text, const Take& take, const TakePair& takePair) {
    for (std::size_t at = 0; at < text.size();) {
        const std::uint64_t word = at + sizeof(std::uint64_t) <= text.size() ? Word(text.data() + at) : 0;
        const std::uint64_t swapped = __builtin_bswap64(word);
        if ((word & twoPairsBits) == twoPairs) {
            takePair(swapped >> 48 & (pairCount - 1));
            takePair(swapped >> 32 & (pairCount - 1));
            at += 4;
        } else if (static_cast<std::uint8_t>(text[at]) < 0x80) {
            take(static_cast<std::uint8_t>(text[at++]));
        } else if ((word & pairBits) == pair) {
            takePair(swapped >> 48 & (pairCount - 1));
            at += 2;
        } else if (const std::uint32_t character = OfTriple(word);
                   (word & tripleBits) == triple && character >= 0x800 && character < reach) {
            take(character);
            at += 3;
        } else {
            const std::int32_t other = NextUtf8(text, at);
            if (other < 0)
                return false;
            take(std::min(static_cast<std::uint32_t>(other), reach));
        }
    }
    return true;
}

} // namespace

TableUndo::TableUndo(const Chain& chain) {
    if (chain.debris || chain.stored == Set::Utf16Le || chain.stored == Set::Utf16Be)
        return;
    knows_ = true;
    if (chain.stored != Set::Utf8)
        stored_.emplace(chain.stored);
    std::for_each(chain.layers.rbegin(), chain.layers.rend(), [&](const Layer& layer) {
        Step step{std::vector<Entry>(reach + 1), {}, layer.writtenIn == Set::Utf8, {}};
        for (std::uint32_t c = 0; c < reach; ++c) {
            const int byte = ByteOf(layer.readAs, static_cast<char16_t>(c));
            const std::uint32_t readers =
                byte < 0 ? 0 : ReadersOf(layer.readAs, static_cast<std::uint8_t>(byte), c);
            if (readers == 0)
                continue;
            std::string becomes(1, static_cast<char>(byte));
            if (!step.toBytes) {
                const char16_t written = CharacterOf(layer.writtenIn, static_cast<std::uint8_t>(byte));
                if (ByteOf(layer.writtenIn, written) != byte)
                    continue;
                becomes.clear();
                AppendUtf8(becomes, written);
            }
            step.becomes[c] = EntryOf(becomes, readers);
        }
        step.ofPairs = OfPairs(step.becomes, Entry{0});
        steps_.push_back(std::move(step));
    });
}

bool TableUndo::Undo(std::string_view bytes, std::string_view& text) {
    isClear_.reset();
    hasCodes_ = false;
    const auto convert = [&](const SetToUtf8& set, char* to) {
        bool isClear = false;
        char* const end = set.Convert(bytes, to, isClear);
        if (steps_.empty())
            isClear_ = isClear;
        return end;
    };
    if (!Go(bytes, convert))
        return false;
    text = text_;
    const bool isUtf8 = steps_.empty() ? stored_.has_value() : !steps_.back().toBytes;
    return isUtf8 || IsClear() || ReadCodes();
}

bool TableUndo::UndoLines(std::string_view bytes, std::string_view& text, LookedLines& lines) {
    const auto convert = [&](const SetToUtf8& set, char* to) {
        bool isClear = false;
        return steps_.empty() ? set.ConvertLines(bytes, to, lines) : set.Convert(bytes, to, isClear);
    };
    if (!Go(bytes, convert))
        return false;
    text = text_;
    if (!stored_ || !steps_.empty())
        LookAtLines(text, lines);
    lines_.swap(steps_.empty() ? storedOut_ : steps_.back().out);
    return true;
}

template <typename Convert>
bool TableUndo::Go(std::string_view bytes, const Convert& convert) {
    text_ = bytes_ = bytes;
    if (!knows_)
        return false;
    if (stored_) {
        storedOut_.resize(std::max(storedOut_.size(), 3 * bytes.size() + SetToUtf8::slack));
        const char* const end = convert(*stored_, storedOut_.data());
        if (end == nullptr)
            return false;
        text_ = {storedOut_.data(), static_cast<std::size_t>(end - storedOut_.data())};
    }
    return std::all_of(steps_.begin(), steps_.end(), [&](Step& step) { return Take(step); });
}

bool TableUndo::IsClear() {
    if (!isClear_)
        isClear_ = IsClearlyRussian(text_);
    return *isClear_;
}

double TableUndo::Glance() {
    if (!hasCodes_ && stored_ && steps_.empty())
        TakeCodes();
    else if (!hasCodes_)
        ReadCodes();
    return RussianGlance(codes_, count_);
}

bool TableUndo::Take(Step& step) {
    step.out.resize(std::max(step.out.size(), 3 * text_.size() + widest));
    char* to = step.out.data();
    const Entry *becomes = step.becomes.data(), *ofPairs = step.ofPairs.data();
    Entry readers = anyReader << readersAt;
    const auto putByte = [&](Entry entry) {
        *to++ = static_cast<char>(entry);
        readers &= entry;
    };
    const auto put = [&](Entry entry) {
        std::memcpy(to, &entry, widest);
        to += entry >> lengthAt & 3;
        readers &= entry;
    };
    const auto go = [&](const auto& each) {
        return EachCharacter(
            text_, [&](std::uint32_t character) { each(becomes[character]); },
            [&](std::uint64_t number) { each(ofPairs[number]); });
    };
    if (!(step.toBytes ? go(putByte) : go(put)) || readers == 0)
        return false;
    text_ = {step.out.data(), static_cast<std::size_t>(to - step.out.data())};
    return true;
}

void TableUndo::TakeCodes() {
    count_ = bytes_.size();
    codes_.resize(std::max(codes_.size(), count_));
    const std::array<std::uint8_t, 0x100>& ofBytes = stored_->Codes();
    std::transform(bytes_.begin(), bytes_.end(), codes_.begin(),
                   [&](char byte) { return ofBytes[static_cast<std::uint8_t>(byte)]; });
    hasCodes_ = true;
}

bool TableUndo::ReadCodes() {
    static const std::vector<std::uint8_t> codeOf = [] {
        std::vector<std::uint8_t> made(reach + 1);
        for (std::uint32_t c = 0; c <= reach; ++c)
            made[c] = LetterCode(static_cast<char16_t>(c));
        return made;
    }();
    static const std::vector<std::uint8_t> codeOfPair = OfPairs(codeOf, noCode);
    codes_.resize(std::max(codes_.size(), text_.size()));
    std::uint8_t *code = codes_.data(), seen = 0;
    const auto put = [&](std::uint8_t next) {
        *code++ = next;
        seen |= next;
    };
    hasCodes_ = EachCharacter(
                    text_, [&](std::uint32_t character) { put(codeOf[character]); },
                    [&](std::uint64_t number) { put(codeOfPair[number]); }) &&
                (seen & noCode) == 0;
    count_ = static_cast<std::size_t>(code - codes_.data());
    return hasCodes_;
}

} // namespace quillshift::wizard
