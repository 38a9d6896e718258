#pragma once

#include "platform/TextSurface.h"

#include <cstddef>
#include <string_view>
#include <vector>

namespace quillshift {

/// What a run over the whole document replaces, in order.
struct Replacements {
    std::vector<Replacement> each;
    bool isCut = false; ///< there are more matches than one run replaces
};

/// A run counts to here.
inline constexpr std::size_t kMostReplacements = 32767;

/// Finds what a run that puts in `by` for each `wanted` replaces. Each search begins where the match before
/// it ended in the text as it was before that was replaced: a shorter `by` can skip text behind it, a longer
/// one be found itself. A match that lies wholly in what the run has put in is passed over, so that each
/// replacement takes something of the old text away, and the run ends. Both texts have whole line breaks.
Replacements ReplacementsIn(const TextSurface& document, std::u16string_view wanted, std::u16string_view by,
                            FindOptions options);

} // namespace quillshift
