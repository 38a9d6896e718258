#include "base/TextChange.h"

#include "base/GapText.h"

#include <algorithm>
#include <cstring>
#include <string>

namespace quillshift {
namespace {

// Texts of megabytes differ by a letter, so all but the last block is compared at the memory's speed.
constexpr std::size_t kBlock = 512;

std::u16string_view PieceOf(std::u16string_view text, std::size_t from, std::size_t length) {
    return text.substr(from, length);
}

std::u16string PieceOf(const GapText& text, std::size_t from, std::size_t length) {
    return text.Part(from, length);
}

std::size_t LengthOf(std::u16string_view text) {
    return text.size();
}

std::size_t LengthOf(const GapText& text) {
    return text.Length();
}

bool AreSame(std::u16string_view a, std::u16string_view b) {
    return std::memcmp(a.data(), b.data(), a.size() * sizeof(char16_t)) == 0;
}

template <typename Text>
std::size_t CommonFront(const Text& a, const Text& b, std::size_t limit) {
    for (std::size_t same = 0; same < limit; same += kBlock) {
        const std::size_t length = std::min(kBlock, limit - same);
        const auto one = PieceOf(a, same, length);
        const auto other = PieceOf(b, same, length);
        if (!AreSame(one, other))
            return same + static_cast<std::size_t>(
                              std::mismatch(one.begin(), one.end(), other.begin()).first - one.begin());
    }
    return limit;
}

template <typename Text>
std::size_t CommonBack(const Text& a, const Text& b, std::size_t limit) {
    for (std::size_t same = 0; same < limit; same += kBlock) {
        const std::size_t length = std::min(kBlock, limit - same);
        const auto one = PieceOf(a, LengthOf(a) - same - length, length);
        const auto other = PieceOf(b, LengthOf(b) - same - length, length);
        if (!AreSame(one, other))
            return same + static_cast<std::size_t>(
                              std::mismatch(one.rbegin(), one.rend(), other.rbegin()).first - one.rbegin());
    }
    return limit;
}

template <typename Text>
bool IsInside(const Text& text, std::size_t place) {
    return place > 0 && IsInsideCharacter(PieceOf(text, place - 1, 2), 1);
}

template <typename Text>
TextChange Between(const Text& from, const Text& to, std::size_t caret) {
    const std::size_t length = LengthOf(from);
    const std::size_t other = LengthOf(to);
    std::size_t back = CommonBack(from, to, std::min(length, other - std::min(caret, other)));
    while (IsInside(from, length - back) || IsInside(to, other - back))
        --back;
    std::size_t front = CommonFront(from, to, std::min(length, other) - back);
    while (IsInside(from, front) || IsInside(to, front))
        --front;
    return {.place = front, .removed = length - front - back, .added = other - front - back};
}

} // namespace

bool IsInsideCharacter(std::u16string_view text, std::size_t place) {
    if (place == 0 || place >= text.size())
        return false;
    const char16_t before = text[place - 1];
    const char16_t behind = text[place];
    const bool isPair = before >= 0xD800 && before < 0xDC00 && behind >= 0xDC00 && behind < 0xE000;
    return isPair || (before == u'\r' && behind == u'\n');
}

Halves CutHalves(std::u16string_view text, const TextChange& change, std::u16string_view came) {
    const std::size_t end = change.place + change.removed;
    const std::size_t before = change.place > 0 ? 1 : 0;
    const std::size_t behind = end < text.size() ? 1 : 0;
    std::u16string now(text.substr(change.place - before, before));
    (now += came) += text.substr(end, behind);
    const bool cutsBefore = IsInsideCharacter(text, change.place) || IsInsideCharacter(now, before);
    const bool cutsBehind = IsInsideCharacter(text, end) || IsInsideCharacter(now, now.size() - behind);
    return {cutsBefore ? before : 0, cutsBehind ? behind : 0};
}

TextChange ChangeBetween(std::u16string_view from, std::u16string_view to, std::size_t caret) {
    return Between(from, to, caret);
}

TextChange ChangeBetween(const GapText& from, const GapText& to) {
    return Between(from, to, 0);
}

} // namespace quillshift
