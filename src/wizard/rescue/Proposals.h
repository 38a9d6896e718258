#pragma once

#include "wizard/files/Findings.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace quillshift::wizard {

/// A part of a text that is the same before and after, or not. UTF-8, on one line.
struct Piece {
    std::string text;
    bool differs = false;

    bool operator==(const Piece&) const = default;
};

/// One thing that can be done with a file.
struct Proposal {
    std::optional<Chain> chain; ///< to be undone; none: it stays as it is
    std::size_t lost = 0;       ///< characters of the sample that are lost on the way
    std::vector<Piece> before, after;
};

constexpr std::size_t kProposals = 3;

/// The best three ways to read the file, `chosen` where it is none of them, and the last one is to leave it.
/// None where there is nothing to read.
std::vector<Proposal> ProposalsOf(const Finding& finding, const std::optional<Chain>& chosen);

/// Bytes as the editor shows them: UTF-8 where they are, else Windows-1251.
std::string AsShown(std::string_view bytes);
/// The beginnings of two texts, and where they differ, word by word.
void Compare(std::string_view before, std::string_view after, Proposal& proposal);

} // namespace quillshift::wizard
