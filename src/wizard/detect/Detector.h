#pragma once

#include "wizard/detect/Chain.h"

namespace quillshift::wizard {

enum class Answer { Clean, Sure, Unsure };

/// One explanation of the bytes.
struct Candidate {
    Chain chain;
    bool leaveAlone = false;   ///< nothing is to be done: UTF-8 as it is, another language, or no text at all
    std::string_view language; ///< the model that explains it; "binary" for none
    double bits = 0;           ///< what the sample costs under it: a smaller number is likelier
    double prior = 0;          ///< how many of them the chain costs before the text is seen
    std::size_t letters = 0;   ///< letters of the language in the sample
    std::size_t lost = 0;      ///< characters of the sample lost on the way
    std::string preview;       ///< the sample's beginning as it would read, UTF-8
};

struct Verdict {
    Answer answer = Answer::Clean;
    std::vector<Candidate> candidates; ///< best first; none where there is nothing but ASCII
};

struct DetectOptions {
    std::size_t depth = deepestChain; ///< wrong readings at most
    std::size_t candidates = 5;       ///< how many to return
    std::vector<Set> exclude;         ///< sets that have no part in it
};

/// Says what happened to the bytes. Takes the same time for any size: what is looked at is a sample of the
/// lines that hold something else than ASCII. Only what is to be left alone as UTF-8 is read whole, to see
/// whether it is.
Verdict Detect(std::string_view bytes, const DetectOptions& options = {});

/// What `Detect` looks at: whole lines with something else than ASCII, from start, middle and end.
std::string Sample(std::string_view bytes);

} // namespace quillshift::wizard
