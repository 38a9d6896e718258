#pragma once

#include "base/RichText.h"

#include <numeric>
#include <string>

namespace quillshift {

/// What is wrong with a text's bookkeeping; empty when all is well. Holds for every input, however broken.
inline std::string RichTextFault(const RichText& rich) {
    std::size_t breaks = 0;
    for (std::size_t i = 0; i < rich.text.size(); ++i) {
        const bool pair = rich.text.compare(i, 2, u"\r\n") == 0;
        if (!pair && (rich.text[i] == u'\r' || rich.text[i] == u'\n'))
            return "a lone CR or LF at " + std::to_string(i);
        breaks += pair ? 1 : 0;
        i += pair ? 1 : 0;
    }
    if (rich.paragraphs.size() != breaks + 1)
        return std::to_string(rich.paragraphs.size()) + " paragraphs for " + std::to_string(breaks) +
               " breaks";
    const auto add = [](std::size_t sum, const RichText::Run& run) { return sum + run.length; };
    const std::size_t covered = std::accumulate(rich.runs.begin(), rich.runs.end(), std::size_t{0}, add);
    if (covered != rich.text.size())
        return "runs of " + std::to_string(covered) + " for " + std::to_string(rich.text.size()) +
               " characters";
    for (std::size_t i = 0; i < rich.runs.size(); ++i)
        if (rich.runs[i].length == 0 || (i > 0 && rich.runs[i].format == rich.runs[i - 1].format))
            return "an empty or repeated run " + std::to_string(i);
    return {};
}

} // namespace quillshift
