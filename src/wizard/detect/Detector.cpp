#include "wizard/detect/Detector.h"

#include "wizard/detect/Hypotheses.h"

#include <algorithm>

namespace quillshift::wizard {

namespace {

constexpr std::size_t wholeBytes = 3200; // up to here all is looked at
constexpr std::size_t sampleBytes = 1600;
constexpr std::size_t longestLine = 400;
constexpr std::size_t longestWord = 4000; // of one without ASCII, garbled as often as can be
constexpr std::size_t debrisBytes = 6000;
constexpr std::size_t alonesShown = 2;   // ways to leave it alone: a person wants readings to choose from
constexpr double sureLead = 11;          // bits before the next text
constexpr double sureLeadOfMany = 15;    // the same of a text that went wrong more than once
constexpr double sureByText = 3;         // the same by the text alone, whatever the chains cost
constexpr double mostBitsACharacter = 8; // what costs more is no text that was found
constexpr double sureLeadOverCase = 18;  // bits before the same text in capitals or small letters
constexpr double sureLeadOverLonger = 7; // the same where that one's chain is the longer
constexpr double sureOverAlone = 42;     // bits before the same text as another language

/// The same for so many letters: names are much alike in all languages, so that a few prove little and a long
/// list has to differ all over.
double OverAloneFor(std::size_t letters) {
    return std::max(sureOverAlone, 0.6 * static_cast<double>(letters));
}

bool IsHigh(char byte) {
    return static_cast<std::uint8_t>(byte) >= 0x80;
}

/// A blank that a piece can begin at; the place itself if none is near.
std::size_t BlankBefore(std::string_view bytes, std::size_t at) {
    const std::size_t blank = bytes.rfind(' ', at);
    return blank == bytes.npos || at - blank > longestLine / 2 ? at : blank + 1;
}

/// Where a piece can begin or end behind a place without cutting a character, in any set and however often it
/// was read wrongly: at a blank that is near, or at ASCII that is not too far. npos where all is one word.
std::size_t GapBehind(std::string_view bytes, std::size_t at) {
    if (at >= bytes.size())
        return bytes.size();
    if (const std::size_t blank = bytes.substr(at, longestLine).find(' '); blank != bytes.npos)
        return at + blank;
    const std::string_view word = bytes.substr(at, longestWord);
    const auto gap = std::find_if_not(word.begin(), word.end(), IsHigh);
    return gap == word.end() ? bytes.npos : at + static_cast<std::size_t>(gap - word.begin());
}

/// Adds lines with high bytes from a place on, until the sample has `most` bytes. Gives the place behind
/// them.
std::size_t AddLines(std::string& sample, std::string_view bytes, std::size_t at, std::size_t most) {
    std::size_t looked = 0;
    bytes.remove_prefix(at);
    while (!bytes.empty() && sample.size() < most && looked < 1U << 20) {
        const auto high = std::find_if(
            bytes.begin(),
            bytes.begin() + static_cast<std::ptrdiff_t>(std::min<std::size_t>(bytes.size(), 1U << 20)),
            IsHigh);
        if (high == bytes.end() || !IsHigh(*high))
            break;
        const auto place = static_cast<std::size_t>(high - bytes.begin());
        const std::size_t before = bytes.rfind('\n', place);
        const std::size_t start = before == bytes.npos ? 0 : before + 1;
        const std::string_view near = bytes.substr(0, place + 2 * longestLine); // a line can be endless
        const std::size_t end = std::min(near.find('\n', place), near.size());
        const std::size_t from = place - start > longestLine / 2 ? BlankBefore(bytes, place) : start;
        const std::size_t gap = GapBehind(bytes, from + longestLine);
        const std::size_t behind = end - from < longestLine ? std::min(end + 1, bytes.size())
                                   : gap == bytes.npos ? from + longestLine // goes on there if there is room
                                                       : gap;
        sample.append(bytes.substr(from, behind - from));
        looked += behind;
        bytes.remove_prefix(behind);
    }
    return at + looked;
}

bool IsBinary(std::string_view bytes) {
    bytes = bytes.substr(0, 4096);
    const auto control = std::count_if(bytes.begin(), bytes.end(), [](char c) {
        return static_cast<std::uint8_t>(c) < 0x20 && c != '\n' && c != '\r' && c != '\t' && c != '\f' &&
               c != 0x1B && c != 0x1A;
    });
    return static_cast<std::size_t>(control) * 50 > bytes.size();
}

std::string WithoutCase(std::string_view text) {
    std::string folded;
    for (std::size_t at = 0; at < text.size();) {
        const std::int32_t c = NextUtf8(text, at);
        AppendUtf8(folded, static_cast<std::uint32_t>(c < 0                      ? lostMark
                                                      : c >= 0x410 && c <= 0x42F ? c + 0x20
                                                      : c == 0x401               ? 0x451
                                                                                 : c));
    }
    return folded;
}

bool DiffersInCaseOnly(const Candidate& one, const Candidate& other) {
    return WithoutCase(one.preview) == WithoutCase(other.preview);
}

/// The lead that makes a reading sure. Twice or more garbled, a text in capitals and one in small letters are
/// a single set apart, and the shorter chain says little; with a longer chain the other is far-fetched.
double LeadOver(const Candidate& best, const Candidate& rival) {
    const std::size_t layers = best.chain.layers.size();
    if (!DiffersInCaseOnly(best, rival))
        return layers >= 2 ? sureLeadOfMany : sureLead;
    return layers >= 2                          ? sureLeadOverCase
           : layers < rival.chain.layers.size() ? sureLeadOverLonger
                                                : sureLead;
}

/// Whether the best is the likeliest by its text, too. A capital or two must not be decided by the length of
/// the chains, unless all are capitals against a chain that is longer by two; and what is unlikely in any
/// reading is no text.
bool TextDecides(const std::vector<Candidate>& candidates) {
    const Candidate& best = candidates.front();
    const double bits = best.bits - best.prior;
    std::size_t characters = 0;
    for (std::size_t at = 0; at < best.preview.size(); ++characters)
        NextUtf8(best.preview, at);
    return bits <= mostBitsACharacter * static_cast<double>(characters) &&
           std::all_of(candidates.begin(), candidates.end(), [&](const Candidate& other) {
               return other.preview == best.preview || other.bits - other.prior >= bits + sureByText ||
                      (other.chain.layers.size() >= best.chain.layers.size() + 2 &&
                       DiffersInCaseOnly(best, other));
           });
}

Candidate Finish(const Hypothesis& hypothesis, std::string_view sample) {
    Candidate candidate{hypothesis.chain,
                        hypothesis.leaveAlone,
                        hypothesis.language,
                        hypothesis.bits,
                        hypothesis.prior,
                        0,
                        0,
                        {}};
    Undone undone =
        Undo(hypothesis.leaveAlone ? Chain{hypothesis.chain.stored, {}} : hypothesis.chain, sample);
    candidate.lost = undone.lost;
    for (std::size_t at = 0; at < undone.text.size();)
        candidate.letters += NextUtf8(undone.text, at) >= 0x80;
    candidate.preview = std::move(undone.text);
    return candidate;
}

/// Characters lost in the sample, without one that its end cuts.
std::size_t LostButAtEnd(const Candidate& candidate, std::string_view sample, std::string_view bytes) {
    constexpr std::size_t longestCharacter = 64; // in bytes, garbled as often as can be
    const std::size_t cuts = sample.size() < bytes.size() ? longestCharacter : 0;
    std::size_t lost = candidate.lost;
    for (std::size_t cut = 1; lost > 0 && cut <= cuts; ++cut)
        lost = Undo(candidate.chain, sample.substr(0, sample.size() - cut)).lost;
    return lost;
}

/// What is looked at of bytes that are more than `whole`.
std::string SampleOver(std::size_t whole, std::string_view bytes) {
    std::string sample;
    if (bytes.size() <= whole)
        return std::string(bytes);
    std::size_t done = AddLines(sample, bytes, 0, sampleBytes / 2);
    const std::size_t third = std::min<std::size_t>(bytes.size() / 3, 20000);
    for (const auto& [from, most] :
         {std::pair{bytes.size() / 2, sampleBytes * 3 / 4}, std::pair{bytes.size() - third, sampleBytes}}) {
        // Nothing twice, or it would count twice.
        const std::size_t gap = from < done ? done : GapBehind(bytes, from);
        done = AddLines(sample, bytes, gap == bytes.npos ? done : gap, most);
    }
    return sample;
}

Verdict Binary() {
    return {Answer::Clean, {{{Set::Utf8, {}}, true, "binary", 0, 0, 0, 0, {}}}};
}

/// UTF-16 by its mark, or by the many bytes 0 or 4 on one side.
std::optional<Set> Utf16Of(std::string_view bytes) {
    if (bytes.size() < 4)
        return std::nullopt;
    if (bytes.starts_with("\xFF\xFE"))
        return Set::Utf16Le;
    if (bytes.starts_with("\xFE\xFF"))
        return Set::Utf16Be;
    std::size_t side[2] = {0, 0};
    std::size_t zeros = 0;
    const std::size_t looked = std::min<std::size_t>(bytes.size(), 4096) / 2 * 2;
    for (std::size_t i = 0; i < looked; ++i) {
        side[i % 2] += bytes[i] == 0 || bytes[i] == 4;
        zeros += bytes[i] == 0;
    }
    const std::size_t pairs = looked / 2;
    for (const int high : {0, 1})
        if (side[high] * 10 >= pairs * 9 && side[1 - high] * 10 < pairs &&
            (zeros > 0 || side[high] == pairs) && bytes.size() % 2 == 0)
            return high == 0 ? Set::Utf16Be : Set::Utf16Le;
    return std::nullopt;
}

/// Whether the bytes only seem to be well because a set has no part in it.
bool NeedsTheExcluded(std::string_view bytes) {
    return Detect(bytes).answer != Answer::Clean;
}

bool IsCyrillic(std::string_view language) {
    return language == "ru" || language == "uk" || language == "be" || language == "bg" || language == "sr";
}

/// The verdict on what bytes written down in ASCII say, if they are text that needs it.
std::optional<Verdict> DetectDebris(std::string_view bytes, const DetectOptions& options) {
    const auto debris = FindDebris(bytes.substr(0, debrisBytes));
    if (!debris)
        return std::nullopt;
    // Bytes past the beginning matter only where few are looked at.
    const std::string plain = UndoDebris(*debris, bytes.substr(0, debrisBytes));
    Verdict verdict = Detect(SampleOver(sampleBytes, plain), options);
    if (verdict.candidates.empty() || !IsCyrillic(verdict.candidates[0].language) ||
        verdict.candidates[0].letters < 3)
        return std::nullopt;
    if (verdict.answer == Answer::Clean)
        verdict.answer = verdict.candidates[0].chain.stored == Set::Utf8 ? Answer::Sure : Answer::Unsure;
    for (Candidate& candidate : verdict.candidates) {
        candidate.chain.debris = debris;
        candidate.leaveAlone = false;
    }
    return verdict;
}

} // namespace

std::string Sample(std::string_view bytes) {
    return SampleOver(wholeBytes, bytes);
}

Verdict Detect(std::string_view bytes, const DetectOptions& options) {
    if (const auto utf16 = Utf16Of(bytes)) {
        const std::string_view start = bytes.substr(0, 800);
        return {Answer::Sure, {Finish({{*utf16, {}}, false, "", 0}, start)}};
    }
    if (IsBinary(bytes))
        return Binary();
    if (auto debris = DetectDebris(bytes, options))
        return *debris;
    const std::string sample = Sample(bytes);
    if (std::none_of(sample.begin(), sample.end(), IsHigh))
        return {};

    Verdict verdict;
    std::size_t alones = 0;
    for (const Hypothesis& hypothesis : Hypotheses(sample, options.depth, options.exclude)) {
        Candidate candidate = Finish(hypothesis, sample);
        const bool known =
            std::any_of(verdict.candidates.begin(), verdict.candidates.end(), [&](const Candidate& other) {
                return other.preview == candidate.preview && other.leaveAlone == candidate.leaveAlone;
            });
        if (known || (candidate.leaveAlone && alones++ >= alonesShown))
            continue;
        verdict.candidates.push_back(std::move(candidate));
        if (verdict.candidates.size() >= std::max<std::size_t>(options.candidates, 2))
            break;
    }
    if (verdict.candidates.empty())
        return Binary();
    Candidate& best = verdict.candidates.front();
    best.lost = LostButAtEnd(best, sample, bytes);
    // A rival with the same text does no harm: 866 and Mac agree on capitals, KOI8-R and -U on Russian.
    const auto rival = std::find_if(verdict.candidates.begin(), verdict.candidates.end(),
                                    [&](const Candidate& other) { return other.preview != best.preview; });
    const double lead = rival == verdict.candidates.end() ? 1e9 : rival->bits - best.bits;
    const double wanted = rival == verdict.candidates.end() ? sureLead : LeadOver(best, *rival);
    const auto alone = std::find_if(verdict.candidates.begin(), verdict.candidates.end(),
                                    [](const Candidate& other) { return other.leaveAlone; });
    const double overAlone = alone == verdict.candidates.end() ? 1e9 : alone->bits - best.bits;
    const bool isSure = lead >= wanted && overAlone >= OverAloneFor(best.letters) && best.lost == 0 &&
                        TextDecides(verdict.candidates);
    // Neither binary nor UTF-8 as it should be: something is wrong with it, whatever it is.
    const bool undecided = best.leaveAlone && (best.chain.stored == Set::Utf8
                                                   ? !IsUtf8(bytes)
                                                   : !options.exclude.empty() && NeedsTheExcluded(bytes));
    verdict.answer = best.leaveAlone && !undecided ? Answer::Clean
                     : isSure && !undecided        ? Answer::Sure
                                                   : Answer::Unsure;
    return verdict;
}

} // namespace quillshift::wizard
