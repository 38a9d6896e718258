#pragma once

#include "wizard/detect/Chain.h"

namespace quillshift::wizard {

struct Hypothesis {
    Chain chain;
    bool leaveAlone = false;
    std::string_view language;
    double bits = 0;
    double prior = 0; ///< how many of the bits the chain costs before the text is seen
};

/// How well UTF-8 text does as Russian.
struct Fit {
    double bits = 0;
    bool plausible = false; ///< nearly all that is not ASCII is Russian letters, in an order as in words
};
Fit RussianFit(std::string_view text);

/// Every explanation of the sample that is worth a look, the likeliest first.
std::vector<Hypothesis> Hypotheses(std::string_view sample, std::size_t depth,
                                   const std::vector<Set>& exclude);

} // namespace quillshift::wizard
