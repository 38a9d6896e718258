#include "base/TextChange.h"

#include <algorithm>
#include <cstring>
#include <string>

namespace quillshift {
namespace {

// Texts of megabytes differ by a letter, so all but the last block is compared at the memory's speed.
constexpr std::size_t kBlock = 512;

bool SameBlock(const char16_t* a, const char16_t* b) {
    return std::memcmp(a, b, kBlock * sizeof(char16_t)) == 0;
}

std::size_t CommonFront(std::u16string_view a, std::u16string_view b) {
    const std::size_t limit = std::min(a.size(), b.size());
    std::size_t same = 0;
    while (same + kBlock <= limit && SameBlock(a.data() + same, b.data() + same))
        same += kBlock;
    while (same < limit && a[same] == b[same])
        ++same;
    return same;
}

std::size_t CommonBack(std::u16string_view a, std::u16string_view b) {
    const std::size_t limit = std::min(a.size(), b.size());
    const auto behind = [](std::u16string_view text, std::size_t count) {
        return text.data() + text.size() - count;
    };
    std::size_t same = 0;
    while (same + kBlock <= limit && SameBlock(behind(a, same + kBlock), behind(b, same + kBlock)))
        same += kBlock;
    while (same < limit && *behind(a, same + 1) == *behind(b, same + 1))
        ++same;
    return same;
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
    std::size_t back = CommonBack(from, to.substr(std::min(caret, to.size())));
    while (IsInsideCharacter(from, from.size() - back) || IsInsideCharacter(to, to.size() - back))
        --back;
    const std::size_t limit = std::min(from.size(), to.size()) - back;
    std::size_t front = CommonFront(from.substr(0, limit), to.substr(0, limit));
    while (IsInsideCharacter(from, front) || IsInsideCharacter(to, front))
        --front;
    return {.place = front, .removed = from.size() - front - back, .added = to.size() - front - back};
}

} // namespace quillshift
