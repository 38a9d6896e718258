#include "document/RecoveryFormat.h"

namespace quillshift {
namespace {

constexpr std::string_view kSignature = "quillshift recovery 1\n";
constexpr std::size_t kWord = 8;
constexpr std::size_t kHead = 3 * kWord; // kind and length, their checksum, the contents' checksum
constexpr char kEnd = '\n';              // a record ends in it, so that a tail of zeros is no whole record
constexpr unsigned kKindShift = 56;

enum class Kind : std::uint64_t { Text = 1, Edit, Place };
constexpr bool RecoveryPlace::*kFlags[] = {&RecoveryPlace::isRich, &RecoveryPlace::reopenAvailable,
                                           &RecoveryPlace::saveAvailable, &RecoveryPlace::isLocked};

// --- Writing

void Put(std::string& bytes, std::uint64_t word) {
    for (std::size_t i = 0; i < kWord; ++i)
        bytes += static_cast<char>(word >> (8 * i) & 0xFFU);
}

void PutText(std::string& bytes, std::u16string_view text) {
    Put(bytes, text.size());
    const std::size_t at = bytes.size();
    bytes.resize(at + 2 * text.size());
    char* to = bytes.data() + at;
    for (const char16_t unit : text) {
        *to++ = static_cast<char>(unit & 0xFFU);
        *to++ = static_cast<char>(unit >> 8U);
    }
}

// FNV-1a, 64 bits.
std::uint64_t Checksum(std::string_view bytes) {
    std::uint64_t sum = 0xCBF29CE484222325U;
    for (const char byte : bytes)
        sum = (sum ^ static_cast<unsigned char>(byte)) * 0x100000001B3U;
    return sum;
}

std::string Record(Kind kind, std::string_view contents) {
    std::string record;
    record.reserve(kHead + contents.size() + 1);
    Put(record, static_cast<std::uint64_t>(kind) << kKindShift | contents.size());
    Put(record, Checksum(record));
    Put(record, Checksum(contents));
    record += contents;
    record += kEnd;
    return record;
}

// --- Reading

class Reader {
public:
    explicit Reader(std::string_view bytes) : bytes_(bytes) {}

    std::uint64_t Word() {
        std::uint64_t word = 0;
        const std::string_view part = Take(kWord);
        for (std::size_t i = 0; i < part.size(); ++i)
            word |= static_cast<std::uint64_t>(static_cast<unsigned char>(part[i])) << (8 * i);
        return word;
    }
    std::u16string Text() {
        const std::uint64_t length = Word();
        isWhole_ = isWhole_ && length <= bytes_.size() / 2;
        std::u16string text;
        if (!isWhole_)
            return text;
        const std::string_view part = Take(2 * length);
        text.reserve(length);
        for (std::size_t i = 0; i < part.size(); i += 2)
            text += static_cast<char16_t>(static_cast<unsigned char>(part[i]) |
                                          static_cast<unsigned char>(part[i + 1]) << 8U);
        return text;
    }
    bool IsWhole() const { return isWhole_; }

private:
    std::string_view Take(std::size_t count) {
        isWhole_ = isWhole_ && count <= bytes_.size();
        const std::string_view part = bytes_.substr(0, isWhole_ ? count : 0);
        bytes_.remove_prefix(part.size());
        return part;
    }

    std::string_view bytes_;
    bool isWhole_ = true;
};

enum class Look { Record, Tail, Damage };

// Takes the next record off the bytes.
Look Next(std::string_view& bytes, Kind& kind, std::string_view& contents) {
    // What the disk has not got of a file's end is missing or zero.
    const Look unless = bytes.back() == '\0' ? Look::Tail : Look::Damage;
    if (bytes.size() < kHead)
        return Look::Tail;
    Reader head(bytes.substr(0, kHead));
    const std::uint64_t what = head.Word();
    if (head.Word() != Checksum(bytes.substr(0, kWord)))
        return unless;
    kind = static_cast<Kind>(what >> kKindShift);
    const std::uint64_t length = what & ((std::uint64_t{1} << kKindShift) - 1);
    if (length >= bytes.size() - kHead)
        return Look::Tail;
    contents = bytes.substr(kHead, length);
    if (head.Word() != Checksum(contents) || bytes[kHead + length] != kEnd)
        return unless;
    bytes.remove_prefix(kHead + length + 1);
    return Look::Record;
}

bool ReadEdit(Reader& record, std::u16string& text) {
    const std::uint64_t place = record.Word();
    const std::uint64_t went = record.Word();
    const std::u16string came = record.Text();
    if (!record.IsWhole() || place > text.size() || went > text.size() - place)
        return false;
    text.replace(place, went, came);
    return true;
}

bool ReadPlace(Reader& record, RecoveryPlace& place) {
    place.caret = record.Word();
    for (const auto flag : kFlags)
        place.*flag = record.Word() != 0;
    place.knownDigest = record.Word();
    place.path = record.Text();
    place.saveTarget = record.Text();
    return record.IsWhole();
}

bool ReadRecord(Kind kind, std::string_view contents, RecoveredText& left) {
    Reader record(contents);
    switch (kind) {
    case Kind::Text:
        left.text = record.Text();
        return record.IsWhole();
    case Kind::Edit:
        return ReadEdit(record, left.text);
    case Kind::Place:
        return ReadPlace(record, left.place);
    }
    return false;
}

} // namespace

std::string RecoveryFile(std::u16string_view text, const RecoveryPlace& place) {
    std::string contents;
    contents.reserve(2 * text.size() + kWord);
    PutText(contents, text);
    return std::string(kSignature) + Record(Kind::Text, contents) + PlaceRecord(place);
}

std::string EditRecord(std::size_t place, std::size_t went, std::u16string_view came) {
    std::string contents;
    Put(contents, place);
    Put(contents, went);
    PutText(contents, came);
    return Record(Kind::Edit, contents);
}

std::string PlaceRecord(const RecoveryPlace& place) {
    std::string contents;
    Put(contents, place.caret);
    for (const auto flag : kFlags)
        Put(contents, place.*flag ? 1 : 0);
    Put(contents, place.knownDigest);
    PutText(contents, place.path);
    PutText(contents, place.saveTarget);
    return Record(Kind::Place, contents);
}

std::optional<RecoveredText> ReadRecoveryFile(std::string_view bytes) {
    if (!bytes.starts_with(kSignature))
        return std::nullopt;
    bytes.remove_prefix(kSignature.size());
    RecoveredText left;
    bool hasText = false;
    while (!bytes.empty()) {
        Kind kind{};
        std::string_view contents;
        const Look look = Next(bytes, kind, contents);
        if (look == Look::Tail)
            break;
        if (look == Look::Damage || (!hasText && kind != Kind::Text) || !ReadRecord(kind, contents, left))
            return std::nullopt;
        hasText = true;
    }
    return hasText ? std::optional(std::move(left)) : std::nullopt;
}

} // namespace quillshift
