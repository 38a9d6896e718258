#include "document/Replacements.h"

#include <algorithm>
#include <cstddef>
#include <iterator>
#include <string>

namespace quillshift {
namespace {

// Positions are told by 31 bits here and there, and a longer text would only fill the memory.
constexpr std::ptrdiff_t kMostGrowth = 1 << 27;

} // namespace

// The text stays in its place while matches are replaced in it by the ends of what comes, as many characters
// as they had at most. No search looks further to the left, and none behind what was found is moved.
Replacements ReplacementsIn(const TextSurface& document, std::u16string_view wanted, std::u16string_view by,
                            FindOptions options) {
    Replacements found;
    std::u16string text(document.Text());
    const auto growth = std::ssize(by) - std::ssize(wanted);
    const std::u16string_view end = by.substr(by.size() - std::min(by.size(), wanted.size()));
    std::ptrdiff_t grown = 0;
    std::size_t from = 0;
    while (const auto place = document.FindIn(text, wanted, from, options)) {
        found.isCut = found.each.size() == kMostReplacements || grown > kMostGrowth;
        if (found.isCut)
            break;
        const auto behind = static_cast<std::ptrdiff_t>(*place + wanted.size());
        found.each.push_back(
            {.place = *place + static_cast<std::size_t>(grown), .went = text.substr(*place, wanted.size())});
        std::copy(end.begin(), end.end(), text.begin() + behind - std::ssize(end));
        grown += growth;
        from = std::max(*place + 1, static_cast<std::size_t>(std::max(behind - growth, std::ptrdiff_t(0))));
    }
    return found;
}

} // namespace quillshift
