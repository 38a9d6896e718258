#pragma once

#include <cstddef>
#include <string_view>

namespace quillshift {

/// What turns one text into another: from `place` on, `removed` characters of the first give way to `added`
/// characters of the second.
struct TextChange {
    std::size_t place = 0;
    std::size_t removed = 0;
    std::size_t added = 0;

    bool operator==(const TextChange&) const = default;
};

/// The change between two texts, without what they have in common before and behind it. An insertion or a
/// removal that could be at several places ("aa" to "aaa") is taken to end at `caret` if it can, else at the
/// first of them.
TextChange ChangeBetween(std::u16string_view from, std::u16string_view to, std::size_t caret);

} // namespace quillshift
