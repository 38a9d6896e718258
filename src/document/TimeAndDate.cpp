#include "document/TimeAndDate.h"

#include "base/Texts.h"

#include <algorithm>
#include <string_view>

namespace quillshift {
namespace {

// "d" day, "m" month, "y" year, "h" hour, "n" minute and "s" second, as many digits as letters; four "m" are
// the month's name; "/" and ":" are the country's separators.
constexpr std::array<std::u16string_view, kTimeAndDateFormats> kFormats{u"hh:nn",
                                                                        u"hh:nn:ss",
                                                                        u"dd/mm/yy",
                                                                        u"dd/mm/yy hh:nn",
                                                                        u"dd/mm/yy hh:nn:ss",
                                                                        u"dd/mm/yyyy",
                                                                        u"dd/mm/yyyy hh:nn",
                                                                        u"dd/mm/yyyy hh:nn:ss",
                                                                        u"dd mmmm yy",
                                                                        u"dd mmmm yy hh:nn",
                                                                        u"dd mmmm yy hh:nn:ss",
                                                                        u"dd mmmm yyyy",
                                                                        u"dd mmmm yyyy hh:nn",
                                                                        u"dd mmmm yyyy hh:nn:ss"};

// As they stand behind the day.
constexpr std::array<std::u16string_view, 12> kMonths{u"января",   u"февраля", u"марта",  u"апреля",
                                                      u"мая",      u"июня",    u"июля",   u"августа",
                                                      u"сентября", u"октября", u"ноября", u"декабря"};

// The last digits of a number, with zeros in front.
std::u16string Digits(int number, std::size_t count) {
    std::u16string digits = WholeNumberText(number);
    digits.insert(0, count - std::min(count, digits.size()), u'0');
    return digits.substr(digits.size() - count);
}

std::u16string Part(char16_t letter, std::size_t count, const Moment& moment, const Clock& clock) {
    switch (letter) {
    case u'd':
        return Digits(moment.day, count);
    case u'm':
        return count == 4 ? std::u16string(kMonths[static_cast<std::size_t>(moment.month - 1)])
                          : Digits(moment.month, count);
    case u'y':
        return Digits(moment.year, count);
    case u'h':
        return Digits(moment.hour, count);
    case u'n':
        return Digits(moment.minute, count);
    case u's':
        return Digits(moment.second, count);
    case u'/':
        return {clock.DateSeparator()};
    case u':':
        return {clock.TimeSeparator()};
    default:
        return std::u16string(count, letter);
    }
}

std::u16string Formatted(std::u16string_view format, const Moment& moment, const Clock& clock) {
    std::u16string text;
    while (!format.empty()) {
        const std::size_t count = std::min(format.find_first_not_of(format.front()), format.size());
        text += Part(format.front(), count, moment, clock);
        format.remove_prefix(count);
    }
    return text;
}

} // namespace

std::array<std::u16string, kTimeAndDateFormats> TimeAndDateTexts(const Clock& clock) {
    const Moment now = clock.Now();
    std::array<std::u16string, kTimeAndDateFormats> texts;
    std::transform(kFormats.begin(), kFormats.end(), texts.begin(),
                   [&](std::u16string_view format) { return Formatted(format, now, clock); });
    return texts;
}

} // namespace quillshift
