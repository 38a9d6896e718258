#include "platform/posix/PosixClock.h"

#include <array>
#include <clocale>
#include <cstdlib>
#include <ctime>
#include <langinfo.h>
#include <locale.h> // NOLINT(*-deprecated-headers): newlocale is no part of the standard's header
#include <string_view>

namespace quillshift {
namespace {

// The locale of dates that the environment names; "C" names none.
std::string_view LocaleName() {
    for (const char* variable : {"LC_ALL", "LC_TIME", "LANG"})
        if (const char* name = std::getenv(variable); name != nullptr && *name != '\0')
            return name;
    return "C";
}

bool NamesNoCountry(std::string_view locale) {
    return locale == "C" || locale == "POSIX" || locale.starts_with("C.");
}

// The first mark that the locale's own form of a moment has between two numbers.
char16_t SeparatorIn(nl_item form, locale_t locale, char16_t otherwise) {
    std::tm moment{};
    moment.tm_year = 113;
    moment.tm_mon = 10;
    moment.tm_mday = 25;
    moment.tm_hour = 11;
    moment.tm_min = 22;
    moment.tm_sec = 33;
    std::array<char, 100> written{};
    const std::size_t length =
        strftime_l(written.data(), written.size(), nl_langinfo_l(form, locale), &moment, locale);
    const std::size_t at = std::string_view(written.data(), length).find_first_of(".-/: ");
    return at == std::string_view::npos ? otherwise : static_cast<unsigned char>(written[at]);
}

} // namespace

PosixClock::PosixClock() {
    if (NamesNoCountry(LocaleName()))
        return;
    const locale_t locale = newlocale(LC_TIME_MASK, "", nullptr);
    if (locale == nullptr) // one that isn't installed
        return;
    dateSeparator_ = SeparatorIn(D_FMT, locale, dateSeparator_);
    timeSeparator_ = SeparatorIn(T_FMT, locale, timeSeparator_);
    freelocale(locale);
}

Moment PosixClock::Now() const {
    const std::time_t now = std::time(nullptr);
    std::tm local{};
    localtime_r(&now, &local);
    return {local.tm_year + 1900, local.tm_mon + 1, local.tm_mday, local.tm_hour, local.tm_min, local.tm_sec};
}

} // namespace quillshift
