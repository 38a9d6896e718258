#include "document/GoToLine.h"

#include "base/Texts.h"

#include <charconv>
#include <cmath>
#include <limits>
#include <optional>

namespace quillshift {
namespace {

std::u16string_view WithoutBlanksAround(std::u16string_view text) {
    constexpr std::u16string_view kBlanks = u" \t\r\n\u00A0\u202F";
    const std::size_t begin = std::min(text.find_first_not_of(kBlanks), text.size());
    return text.substr(begin, text.find_last_not_of(kBlanks) + 1 - begin);
}

// One too large to be told counts as infinite.
std::optional<double> NumberIn(std::u16string_view text) {
    text = WithoutBlanksAround(text);
    if (text.starts_with(u'+') && !text.starts_with(u"+-"))
        text.remove_prefix(1);
    std::string plain;
    for (const char16_t character : text) {
        if (std::u16string_view(u"0123456789.,eE+-").find(character) == std::u16string_view::npos)
            return std::nullopt; // also what a reader of numbers would take for infinity
        plain += character == u',' ? '.' : static_cast<char>(character);
    }
    double number = 0;
    const char* const end = plain.data() + plain.size();
    const auto [read, failure] = std::from_chars(plain.data(), end, number);
    if (read != end || failure == std::errc::invalid_argument)
        return std::nullopt;
    return failure == std::errc() ? number : std::numeric_limits<double>::infinity();
}

} // namespace

bool GoToLine::Go(std::u16string_view text) {
    std::optional<double> number = 0;
    if (text.empty())
        messageBox_.Inform(u"Введите номер строки!");
    else
        number = NumberIn(text);
    if (!number) {
        messageBox_.Warn(u"Это не номер строки: " + Quotable(text));
        return false;
    }
    std::optional<std::size_t> place;
    const double line = std::nearbyint(*number - 1);
    if (*number >= 0 && line <= std::numeric_limits<int>::max())
        place = document_.LineIndex(static_cast<int>(line));
    if (!place) {
        messageBox_.Warn(u"Неверный номер строки!\nСтрока №" + Quotable(text) + u" не существует.");
        return false;
    }
    document_.SetSelStart(*place);
    document_.SetFocus();
    return true;
}

std::u16string GoToLine::Range() const {
    return u"1–" + WholeNumberText(document_.LineCount());
}

} // namespace quillshift
