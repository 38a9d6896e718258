#include "wizard/rescue/Proposals.h"

#include <algorithm>
#include <array>

namespace quillshift::wizard {

namespace {

constexpr std::size_t kWords = 14;       ///< of each text are compared
constexpr std::size_t kCharacters = 130; ///< and so many at most

/// The first words, without control characters between or in them.
std::vector<std::string> WordsOf(std::string_view text) {
    std::vector<std::string> words(1);
    std::size_t characters = 0;
    for (std::size_t at = 0; at < text.size() && characters < kCharacters;) {
        const std::int32_t c = NextUtf8(text, at);
        const bool isBlank = c >= 0 && c <= ' ';
        if (isBlank && !words.back().empty() && words.size() == kWords)
            break;
        if (isBlank && !words.back().empty())
            words.emplace_back();
        if (isBlank || (c >= 0x7F && c < 0xA0))
            continue;
        AppendUtf8(words.back(), static_cast<std::uint32_t>(c < 0 ? lostMark : c));
        ++characters;
    }
    if (words.back().empty())
        words.pop_back();
    return words;
}

using Marks = std::array<bool, kWords>; ///< which words have their like on the other side

/// The longest row of words that both have, in their order.
void MarkShared(const std::vector<std::string>& one, const std::vector<std::string>& other, Marks& inOne,
                Marks& inOther) {
    std::array<std::array<std::size_t, kWords + 1>, kWords + 1> longest{};
    for (std::size_t i = one.size(); i-- > 0;)
        for (std::size_t j = other.size(); j-- > 0;)
            longest[i][j] = one[i] == other[j] ? longest[i + 1][j + 1] + 1
                                               : std::max(longest[i + 1][j], longest[i][j + 1]);
    for (std::size_t i = 0, j = 0; i < one.size() && j < other.size();) {
        if (one[i] == other[j])
            inOne[i++] = inOther[j++] = true;
        else if (longest[i + 1][j] >= longest[i][j + 1])
            ++i;
        else
            ++j;
    }
}

std::vector<Piece> Pieces(const std::vector<std::string>& words, const Marks& shared) {
    std::vector<Piece> pieces;
    for (std::size_t i = 0; i < words.size(); ++i) {
        const bool differs = !shared[i];
        if (!pieces.empty() && pieces.back().differs == differs) {
            pieces.back().text += ' ' + words[i];
            continue;
        }
        const bool isFirst = pieces.empty();
        if (!isFirst && differs) // a blank is no difference
            pieces.back().text += ' ';
        pieces.push_back({(isFirst || differs ? "" : " ") + words[i], differs});
    }
    return pieces;
}

Proposal ProposalBy(const Chain& chain, const Finding& finding, std::string_view text, std::size_t lost) {
    Proposal proposal{.chain = chain, .lost = lost, .before = {}, .after = {}};
    Compare(AsShown(finding.beginning), text, proposal);
    return proposal;
}

} // namespace

std::string AsShown(std::string_view bytes) {
    // The end may be in the middle of a character, where there are whole ones before it.
    std::string_view whole = bytes;
    for (int i = 0; i < 4 && !whole.empty() && !IsUtf8(whole); ++i)
        whole.remove_suffix(1);
    const bool isCut = whole.size() < bytes.size();
    if (IsUtf8(whole) && (!isCut || std::ranges::any_of(whole, [](char c) { return c < 0; })))
        return std::string(whole);
    std::size_t lost = 0;
    return Decode(Set::Windows1251, bytes, lost);
}

void Compare(std::string_view before, std::string_view after, Proposal& proposal) {
    const std::vector<std::string> one = WordsOf(before), other = WordsOf(after);
    Marks inOne{}, inOther{};
    MarkShared(one, other, inOne, inOther);
    proposal.before = Pieces(one, inOne);
    proposal.after = Pieces(other, inOther);
}

std::vector<Proposal> ProposalsOf(const Finding& finding, const std::optional<Chain>& chosen) {
    std::vector<Proposal> proposals;
    if (finding.beginning.empty() || finding.isBinary)
        return proposals;
    for (const Candidate& one : finding.verdict.candidates)
        if (!one.leaveAlone && proposals.size() < kProposals)
            proposals.push_back(ProposalBy(one.chain, finding, one.preview, one.lost));
    if (chosen && std::ranges::find(proposals, chosen, &Proposal::chain) == proposals.end()) {
        const Undone undone = Undo(*chosen, finding.beginning);
        proposals.push_back(ProposalBy(*chosen, finding, undone.text, undone.lost));
    }
    Proposal asItIs;
    const std::string shown = AsShown(finding.beginning);
    Compare(shown, shown, asItIs);
    proposals.push_back(std::move(asItIs));
    return proposals;
}

} // namespace quillshift::wizard
