#include "platform/qt/TextFind.h"

#include "base/TextChange.h"
#include "platform/qt/QtText.h"

#include <QChar>

#include <algorithm>
#include <array>
#include <utility>
#include <vector>

namespace quillshift {
namespace {

constexpr std::size_t kNowhere = std::u16string_view::npos;

// Letters that are the same but for their case: no more than four, such as those of theta.
using Variants = std::array<char16_t, 4>;

/// The small letter of each unit, and the other way. Half a surrogate pair stays as it is.
class Letters {
public:
    static const Letters& All() {
        static const Letters letters;
        return letters;
    }
    char16_t Small(char16_t unit) const { return small_[unit]; }
    Variants VariantsOf(char16_t small) const {
        Variants variants;
        variants.fill(small);
        std::size_t count = 1;
        for (auto at = std::lower_bound(others_.begin(), others_.end(), Other{small, u'\0'});
             at != others_.end() && at->first == small && count < variants.size(); ++at)
            variants[count++] = at->second;
        return variants;
    }

private:
    using Other = std::pair<char16_t, char16_t>; // a small letter, and another of its variants

    Letters() : small_(0x10000) {
        for (std::size_t unit = 0; unit < small_.size(); ++unit) {
            const auto letter = static_cast<char16_t>(unit);
            small_[unit] = QChar(letter).toCaseFolded().unicode();
            if (small_[unit] != letter)
                others_.emplace_back(small_[unit], letter);
        }
        std::sort(others_.begin(), others_.end());
    }

    std::vector<char16_t> small_;
    std::vector<Other> others_;
};

/// Looks for the first and the last letter, in their variants unless the case matters, at many places at
/// once, and then for the others.
class Finder {
public:
    Finder(std::u16string_view wanted, FindOptions options)
        : folds_(!Has(options, FindOptions::MatchCase)),
          wanted_(wanted),
          first_(VariantsOf(wanted.front())),
          last_(VariantsOf(wanted.back())) {
        std::ranges::transform(wanted_, wanted_.begin(), [this](char16_t unit) { return Folded(unit); });
    }
    std::size_t Next(std::u16string_view text, std::size_t from) const {
        if (text.size() < wanted_.size())
            return kNowhere;
        const std::size_t end = text.size() - wanted_.size() + 1;
        for (std::size_t at = from; at < end;) {
            const std::size_t blockEnd = std::min(at + kBlock, end);
            if (blockEnd == at + kBlock && !MayBeginIn(&text[at])) {
                at = blockEnd;
                continue;
            }
            for (; at < blockEnd; ++at)
                if (IsAt(text.substr(at, wanted_.size())))
                    return at;
        }
        return kNowhere;
    }

private:
    static constexpr std::size_t kBlock = 32;

    bool MayBeginIn(const char16_t* block) const {
        return folds_ ? HasBoth(block, IsAny) : HasBoth(block, IsOne);
    }
    // Without a way out, so that the processor takes several units at once.
    template <typename Is>
    bool HasBoth(const char16_t* block, const Is& is) const {
        const char16_t* const ends = block + wanted_.size() - 1;
        unsigned found = 0;
        for (std::size_t i = 0; i < kBlock; ++i)
            found |= is(block[i], first_) & is(ends[i], last_);
        return found != 0;
    }
    static constexpr auto IsOne = [](char16_t unit, const Variants& variants) {
        return static_cast<unsigned>(unit == variants[0]);
    };
    static constexpr auto IsAny = [](char16_t unit, const Variants& variants) {
        return static_cast<unsigned>(unit == variants[0]) | static_cast<unsigned>(unit == variants[1]) |
               static_cast<unsigned>(unit == variants[2]) | static_cast<unsigned>(unit == variants[3]);
    };
    bool IsAt(std::u16string_view place) const {
        return std::ranges::equal(place, wanted_, {}, [this](char16_t unit) { return Folded(unit); });
    }
    char16_t Folded(char16_t unit) const { return folds_ ? letters_.Small(unit) : unit; }
    Variants VariantsOf(char16_t unit) const {
        return folds_ ? letters_.VariantsOf(letters_.Small(unit)) : Variants{unit, unit, unit, unit};
    }

    const Letters& letters_ = Letters::All();
    bool folds_;
    std::u16string wanted_;
    Variants first_;
    Variants last_;
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
    if (!Has(options, FindOptions::MatchCase) && HasPairs(wanted)) // whose halves change their case as one
        return first([&](std::size_t from) {
            return static_cast<std::size_t>(
                ViewOf(text).indexOf(ViewOf(wanted), static_cast<qsizetype>(from), Qt::CaseInsensitive));
        });
    const Finder finder(wanted, options);
    return first([&](std::size_t from) { return finder.Next(text, from); });
}

} // namespace quillshift
