#pragma once

#include <cstddef>
#include <string_view>

namespace quillshift {

class GapText;

/// What turns one text into another: from `place` on, `removed` characters of the first give way to `added`
/// characters of the second.
struct TextChange {
    std::size_t place = 0;
    std::size_t removed = 0;
    std::size_t added = 0;

    bool operator==(const TextChange&) const = default;
};

/// The change between two texts, without what they have in common behind it and before it; neither end of it
/// lies inside a character. What stands before `caret` in the second text does not count as behind the
/// change.
TextChange ChangeBetween(std::u16string_view from, std::u16string_view to, std::size_t caret);
/// Looks at no more of the texts than it needs.
TextChange ChangeBetween(const GapText& from, const GapText& to);

/// Whether a place lies inside what is one to a reader: CR LF, or the two halves of a surrogate pair.
bool IsInsideCharacter(std::u16string_view text, std::size_t place);

struct Halves {
    std::size_t before = 0;
    std::size_t behind = 0;
};
/// How many units on each side of a change of `text` make one character with what goes or comes there: 0
/// or 1.
Halves CutHalves(std::u16string_view text, const TextChange& change, std::u16string_view came);

} // namespace quillshift
