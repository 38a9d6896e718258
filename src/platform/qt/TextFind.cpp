#include "platform/qt/TextFind.h"

#include "base/TextChange.h"
#include "platform/qt/QtText.h"

#include <QChar>

#include <algorithm>
#include <array>
#include <vector>

namespace quillshift {
namespace {

constexpr std::size_t kNowhere = std::u16string_view::npos;

// The small letter of each unit; half a surrogate pair stays as it is.
const std::vector<char16_t>& SmallLetters() {
    static const std::vector<char16_t> letters = [] {
        std::vector<char16_t> all(0x10000);
        for (std::size_t unit = 0; unit < all.size(); ++unit)
            all[unit] = QChar(static_cast<char16_t>(unit)).toCaseFolded().unicode();
        return all;
    }();
    return letters;
}

/// Finds in either case. The last letter of a place tells how far on the next place can be.
class CaselessFinder {
public:
    explicit CaselessFinder(std::u16string_view wanted) : small_(SmallLetters()), wanted_(wanted) {
        std::transform(wanted_.begin(), wanted_.end(), wanted_.begin(), [this](auto c) { return small_[c]; });
        steps_.fill(wanted_.size());
        for (std::size_t i = 0; i + 1 < wanted_.size(); ++i)
            steps_[wanted_[i] & 0xFFU] = wanted_.size() - 1 - i;
    }
    std::size_t Next(std::u16string_view text, std::size_t from) const {
        const std::size_t last = wanted_.size() - 1;
        const char16_t lastLetter = wanted_.back();
        for (std::size_t end = from + last; end < text.size();) {
            const char16_t letter = small_[text[end]];
            if (letter == lastLetter && IsAt(text.substr(end - last, last)))
                return end - last;
            end += steps_[letter & 0xFFU];
        }
        return kNowhere;
    }

private:
    bool IsAt(std::u16string_view place) const {
        return std::equal(place.begin(), place.end(), wanted_.begin(),
                          [this](char16_t a, char16_t b) { return small_[a] == b; });
    }

    const std::vector<char16_t>& small_;
    std::u16string wanted_;
    std::array<std::size_t, 256> steps_{};
};

bool HasPairs(std::u16string_view text) {
    return std::any_of(text.begin(), text.end(), [](char16_t unit) { return QChar::isSurrogate(unit); });
}

bool IsInWord(char32_t character) {
    return QChar::isLetterOrNumber(character) || QChar::isMark(character) || character == U'_';
}

bool IsPair(std::u16string_view text, std::size_t place) {
    return place > 0 && place < text.size() && QChar::isHighSurrogate(text[place - 1]) &&
           QChar::isLowSurrogate(text[place]);
}

// The character before a place, and that behind it; blanks at the ends.
char32_t Before(std::u16string_view text, std::size_t place) {
    if (place == 0)
        return U' ';
    return IsPair(text, place - 1) ? QChar::surrogateToUcs4(text[place - 2], text[place - 1])
                                   : char32_t(text[place - 1]);
}
char32_t Behind(std::u16string_view text, std::size_t place) {
    if (place == text.size())
        return U' ';
    return IsPair(text, place + 1) ? QChar::surrogateToUcs4(text[place], text[place + 1])
                                   : char32_t(text[place]);
}

bool Counts(std::u16string_view text, std::size_t begin, std::size_t end, FindOptions options) {
    if (IsInsideCharacter(text, begin) || IsInsideCharacter(text, end))
        return false;
    return !Has(options, FindOptions::WholeWord) ||
           (!IsInWord(Before(text, begin)) && !IsInWord(Behind(text, end)));
}

template <typename Next>
std::optional<std::size_t> FirstThatCounts(std::u16string_view text, std::size_t length, std::size_t start,
                                           FindOptions options, const Next& next) {
    for (std::size_t at = next(start); at != kNowhere; at = next(at + 1))
        if (Counts(text, at, at + length, options))
            return at;
    return std::nullopt;
}

} // namespace

std::optional<std::size_t> FindText(std::u16string_view text, std::u16string_view wanted, std::size_t start,
                                    FindOptions options) {
    if (wanted.empty() || start > text.size())
        return std::nullopt;
    const auto first = [&](const auto& next) {
        return FirstThatCounts(text, wanted.size(), start, options, next);
    };
    if (Has(options, FindOptions::MatchCase))
        return first([&](std::size_t from) { return text.find(wanted, from); });
    if (HasPairs(wanted)) // rare, and a letter's two halves change their case as one
        return first([&](std::size_t from) {
            return static_cast<std::size_t>(
                ViewOf(text).indexOf(ViewOf(wanted), static_cast<qsizetype>(from), Qt::CaseInsensitive));
        });
    const CaselessFinder finder(wanted);
    return first([&](std::size_t from) { return finder.Next(text, from); });
}

} // namespace quillshift
