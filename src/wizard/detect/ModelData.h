#pragma once

#include <string_view>

namespace quillshift::wizard {

/// The letters of a language and what each costs after the one or two before it.
struct ModelData {
    std::string_view language;
    std::u16string_view letters; ///< small ones; number 0 is the gap between words, these are 1 and up
    int order;                   ///< how many letters a cost depends on: 2 or 3
    std::string_view
        costs; ///< quarters of a bit, from '@' on without the backslash; the last letter runs fastest
};

constexpr int modelCount = 7;
/// Russian comes first.
extern const ModelData modelData[modelCount];

} // namespace quillshift::wizard
