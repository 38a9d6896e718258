#include "document/TextChange.h"

#include <algorithm>
#include <cstring>

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

TextChange ChangeBetween(std::u16string_view from, std::u16string_view to, std::size_t caret) {
    const std::size_t shorter = std::min(from.size(), to.size());
    const auto frontUpTo = [&](std::size_t limit) {
        return CommonFront(from.substr(0, limit), to.substr(0, limit));
    };
    std::size_t back = CommonBack(from, to.substr(std::min(caret, to.size())));
    std::size_t front = frontUpTo(shorter - back);
    if (front + back < shorter) { // no insertion or removal at the caret
        back = CommonBack(from, to);
        front = frontUpTo(shorter - back);
    }
    return {.place = front, .removed = from.size() - front - back, .added = to.size() - front - back};
}

} // namespace quillshift
