#include "wizard/detect/Pieces.h"

#include "wizard/detect/LineRepair.h"
#include "wizard/detect/Processor.h"

#include <algorithm>
#include <bit>

namespace quillshift::wizard {

namespace {

constexpr std::size_t longestCharacter = 64; ///< bytes, garbled as often as can be
constexpr std::size_t longestNumber = 16;    ///< bytes of one character as an escape or entity

/// In UTF-16 a line end of one byte says nothing.
std::size_t WholeUnits(std::string_view bytes, bool big) {
    std::size_t end = bytes.size() / 2 * 2;
    if (end > 0 && (static_cast<std::uint8_t>(bytes[end - (big ? 2 : 1)]) & 0xFC) == 0xD8)
        end -= 2; // the other half of the pair is to come
    return end;
}

/// Where a line without an end can be cut. ASCII stands for itself in all sets; where there is none, the
/// longest beginning that can be undone.
std::size_t CutLine(const Chain& chain, std::string_view bytes) {
    const auto isAscii = [](char c) { return static_cast<std::uint8_t>(c) < 0x80 && c != '?'; };
    const auto half = static_cast<std::ptrdiff_t>(bytes.size() / 2);
    const auto last = std::find_if(bytes.rbegin(), bytes.rbegin() + half, isAscii);
    if (last != bytes.rbegin() + half)
        return static_cast<std::size_t>(bytes.rend() - last);
    for (std::size_t end = bytes.size(); end + longestCharacter > bytes.size(); --end)
        if (Lossless(chain, bytes.substr(0, end)))
            return end;
    return bytes.size();
}

bool IsBase64Digit(char c) {
    return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || (c >= '0' && c <= '9') || c == '+' || c == '/';
}

std::size_t WholeBase64(std::string_view bytes) {
    std::size_t digits = 0, end = 0;
    for (std::size_t i = 0; i < bytes.size(); ++i) {
        digits += IsBase64Digit(bytes[i]);
        if (digits % 4 == 0)
            end = i + 1;
    }
    return end;
}

/// Words of a header that stand side by side are read together.
std::size_t WholeWords(std::string_view bytes) {
    for (std::size_t at = bytes.size() - 1; (at = bytes.rfind('\n', at)) != bytes.npos && at > 0; --at)
        if (at + 1 < bytes.size() && bytes[at + 1] != ' ' && bytes[at + 1] != '\t')
            return at + 1;
    return bytes.size() < longestWhole ? 0 : bytes.size();
}

#ifdef QUILLSHIFT_WIDE
/// As far as there are line ends before the last one that is wanted, 32 bytes at a time; takes off what was
/// found.
QUILLSHIFT_WIDE std::size_t WideBytesOfLines(std::string_view bytes, std::size_t& count) {
    std::size_t at = 0;
    for (; at + sizeof(Wide) <= bytes.size(); at += sizeof(Wide)) {
        const Wide ends = _mm256_cmpeq_epi8(WideAt(bytes.data() + at), WideAll('\n'));
        const auto found = static_cast<std::size_t>(std::popcount(HighBits(ends)));
        if (found >= count)
            break;
        count -= found;
    }
    return at;
}
#endif

} // namespace

std::size_t BytesOfLines(std::string_view bytes, std::size_t count) {
    std::size_t at = 0;
#ifdef QUILLSHIFT_WIDE
    if (HasWideRegisters())
        at = WideBytesOfLines(bytes, count);
#endif
    for (; count > 0 && at < bytes.size(); --count)
        at = std::min(bytes.find('\n', at), bytes.size() - 1) + 1;
    return at;
}

std::size_t WholeLines(const Chain& chain, std::string_view bytes) {
    if (chain.stored == Set::Utf16Le || chain.stored == Set::Utf16Be)
        return WholeUnits(bytes, chain.stored == Set::Utf16Be);
    if (const std::size_t end = bytes.rfind('\n'); end != bytes.npos)
        return end + 1;
    return bytes.size() < longestWhole ? 0 : CutLine(chain, bytes);
}

std::size_t WholePieces(Debris debris, std::string_view bytes) {
    if (bytes.empty())
        return 0;
    if (debris == Debris::Base64)
        return WholeBase64(bytes);
    if (debris == Debris::EncodedWords)
        return WholeWords(bytes);
    std::size_t start = bytes.find_last_of("=&\\%");
    if (start == bytes.npos || bytes.size() - start >= longestNumber)
        return bytes.size();
    // A backslash before it, or the first half of a pair, belongs to it.
    if (debris == Debris::Escapes && start >= 6 && bytes.substr(start - 6, 3) == "\\ud")
        start -= 6;
    while (start > 0 && bytes.size() - start < longestWhole && bytes[start] == '\\' &&
           bytes[start - 1] == '\\')
        --start;
    return start;
}

} // namespace quillshift::wizard
