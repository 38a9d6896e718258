#include "document/modDocumentProperties.h"

#include "base/Texts.h"

#include <chrono>
#include <cmath>

namespace quillshift {
namespace {

constexpr std::u16string_view kNotSaved = u"<Файл не сохранен>";
constexpr std::u16string_view kUnknown = u"<Неизвестно>";
constexpr std::array<std::u16string_view, 6> kUnits{u"КБ", u"МБ", u"ГБ", u"ТБ", u"ПБ", u"ЭБ"};

std::u16string WithZeros(int number, std::size_t digits) {
    std::u16string text = WholeNumberText(number);
    return std::u16string(digits - std::min(digits, text.size()), u'0') + text;
}

// Such as 21 байт would be wrong: a number takes the form that its last digits ask for.
std::u16string_view BytesAfter(std::uint64_t number) {
    const bool isTeen = number / 10 % 10 == 1;
    if (!isTeen && number % 10 >= 2 && number % 10 <= 4)
        return u" байта";
    return u" байт";
}

} // namespace

std::u16string SizeText(std::uint64_t bytes) {
    if (bytes < 1024)
        return WholeNumberText(static_cast<int>(bytes)) + std::u16string(BytesAfter(bytes));
    double amount = static_cast<double>(bytes) / 1024;
    std::size_t unit = 0;
    for (; amount >= 1000 && unit + 1 < kUnits.size(); ++unit)
        amount /= 1024;
    const std::size_t decimals = amount < 1 ? 3 : amount < 10 ? 2 : amount < 100 ? 1 : 0;
    const int whole = static_cast<int>(amount);
    std::u16string text = WholeNumberText(whole);
    if (decimals > 0)
        text += u',' + WithZeros(static_cast<int>((amount - whole) * std::pow(10, decimals)), decimals);
    return text + u' ' + std::u16string(kUnits[unit]);
}

std::u16string DateText(std::int64_t seconds) {
    using namespace std::chrono;
    const sys_seconds moment{std::chrono::seconds(seconds)};
    const auto day = floor<days>(moment);
    const year_month_day date(day);
    const hh_mm_ss time(moment - day);
    return WithZeros(static_cast<int>(static_cast<unsigned>(date.day())), 2) + u'.' +
           WithZeros(static_cast<int>(static_cast<unsigned>(date.month())), 2) + u'.' +
           WithZeros(static_cast<int>(date.year()), 4) + u" г., " +
           WholeNumberText(static_cast<int>(time.hours().count())) + u':' +
           WholeNumberText(static_cast<int>(time.minutes().count())) + u':' +
           WholeNumberText(static_cast<int>(time.seconds().count()));
}

DocumentProperties PropertiesOf(std::u16string_view path, FileSystem& files) {
    const auto facts = path.empty() ? std::nullopt : files.Facts(path);
    if (!facts) {
        const std::u16string notSaved(kNotSaved);
        const std::u16string unknown(kUnknown);
        return {.name = u"Документ",
                .location = notSaved,
                .size = notSaved,
                .dates = {unknown, unknown, unknown}};
    }
    return {.name = std::u16string(path.substr(path.rfind(u'/') + 1)),
            .location = std::u16string(path),
            .size = SizeText(facts->size),
            .dates = {facts->created ? DateText(*facts->created) : std::u16string(kUnknown),
                      DateText(facts->modified), DateText(facts->accessed)},
            .hidden = facts->hidden,
            .readOnly = facts->readOnly,
            .hasFile = true};
}

} // namespace quillshift
