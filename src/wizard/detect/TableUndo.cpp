#include "wizard/detect/TableUndo.h"

#include "wizard/detect/ClearRussian.h"
#include "wizard/detect/RussianGlance.h"
#include "wizard/detect/WideUtf8.h"

#include <algorithm>
#include <bit>
#include <cstring>

namespace quillshift::wizard {

namespace {

constexpr std::uint32_t reach = 0x2600;
constexpr std::size_t widest = 4;      ///< bytes written at a time
constexpr std::size_t usualCount = 10; ///< as many characters at most are in 16 bytes of Russian
constexpr std::size_t slack = 16;      ///< characters written behind what is meant

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

/// Which readers make this character of a byte.
std::uint32_t ReadersOf(Set set, std::uint8_t byte, std::uint32_t character) {
    if (set != Set::Latin)
        return CharacterOf(set, byte) == character ? anyReader : 0;
    return (CharacterOf(set, byte) == character ? windows : 0) | (byte == character ? iso : 0);
}

/// Takes the characters of a text, as an array of which so many mean something; `reach` stands for one that
/// no set has. False where it is not UTF-8.
template <typename Take>
bool TakePlainly(std::string_view text, std::size_t& at, const Take& take) {
    const std::int32_t character = NextUtf8(text, at);
    const auto code = static_cast<std::uint16_t>(std::min(static_cast<std::uint32_t>(character), reach));
    if (character >= 0)
        take(&code, 1, 1);
    return character >= 0;
}

#ifdef QUILLSHIFT_WIDE
/// `take` gets the whole array as well, which costs less than counting.
template <typename Take>
QUILLSHIFT_WIDE bool TakeWide(std::string_view text, const Take& take) {
    WideUtf8 reader(text, reach);
    for (std::size_t at = 0; at < text.size(); reader.MoveTo(at)) {
        for (; reader.Read();)
            if (reader.Count() > usualCount)
                take(reader.Codes(), WideUtf8::width, reader.Count());
            else
                take(reader.Codes(), usualCount, reader.Count());
        if (reader.IsBroken())
            return false;
        at = reader.At();
        if (at < text.size() && !TakePlainly(text, at, take))
            return false;
    }
    return true;
}
#endif

template <typename Take>
bool TakeAll(std::string_view text, const Take& take) {
#ifdef QUILLSHIFT_WIDE
    if (HasWideRegisters())
        return TakeWide(text, take);
#endif
    for (std::size_t at = 0; at < text.size();)
        if (!TakePlainly(text, at, take))
            return false;
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
        Step step{std::vector<Entry>(reach + 1), layer.writtenIn == Set::Utf8, {}};
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
    if (!hasCodes_)
        NoteCodes();
    return RussianGlance(codes_, count_);
}

bool TableUndo::IsPlausible(std::string_view line, std::string_view undone) {
    bytes_ = line;
    text_ = undone;
    return NoteCodes() && RussianGlance(codes_, count_) >= 0;
}

bool TableUndo::NoteCodes() {
    if (!stored_ || !steps_.empty())
        return ReadCodes();
    TakeCodes();
    return true;
}

bool TableUndo::Take(Step& step) {
    step.out.resize(std::max(step.out.size(), 3 * text_.size() + slack * widest));
    char* to = step.out.data();
    const Entry* becomes = step.becomes.data();
    Entry readers = anyReader << readersAt;
    // What is captured lies in memory: it is touched once for many characters.
    const auto putBytes = [&, becomes](const std::uint16_t* codes, std::size_t all, std::size_t count) {
        char* const out = to;
        Entry both = readers;
#pragma GCC unroll 16
        for (std::size_t i = 0; i < all; ++i) {
            const Entry entry = becomes[codes[i]];
            out[i] = static_cast<char>(entry);
            both &= entry;
        }
        to = out + count;
        readers = both;
    };
    const auto put = [&, becomes](const std::uint16_t* codes, std::size_t all, std::size_t count) {
        char* out = to;
        Entry both = readers;
#pragma GCC unroll 16
        for (std::size_t i = 0; i < all; ++i) {
            const Entry entry = becomes[codes[i]];
            std::memcpy(out, &entry, widest);
            out += i < count ? entry >> lengthAt & 3 : 0;
            both &= entry;
        }
        to = out;
        readers = both;
    };
    if (!(step.toBytes ? TakeAll(text_, putBytes) : TakeAll(text_, put)) || readers == 0)
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
    codes_.resize(std::max(codes_.size(), text_.size() + slack));
    std::uint8_t* code = codes_.data();
    hasCodes_ = TakeAll(text_, [&code, table = codeOf.data()](const std::uint16_t* codes, std::size_t all,
                                                              std::size_t count) {
        std::uint8_t* const out = code;
        for (std::size_t i = 0; i < all; ++i)
            out[i] = table[codes[i]];
        code = out + count;
    });
    count_ = static_cast<std::size_t>(code - codes_.data());
    return hasCodes_;
}

} // namespace quillshift::wizard
