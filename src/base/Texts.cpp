#include "base/Texts.h"

#include <algorithm>

namespace quillshift {
namespace {

constexpr bool IsBreak(char16_t unit) {
    const bool isCommon = unit > u'\r' && unit < u'\u2028';
    return !isCommon && (unit == u'\r' || unit == u'\n' || unit == u'\u2028' || unit == u'\u2029' ||
                         unit == u'\uFDD0' || unit == u'\uFDD1');
}

} // namespace

std::u16string WholeNumberText(int number) {
    const std::string digits = std::to_string(number);
    return {digits.begin(), digits.end()};
}

std::u16string WithWholeBreaks(std::u16string_view text, std::size_t room) {
    constexpr std::size_t kSlack = 64; // a part of what is long, for what is typed into it
    std::u16string whole;
    whole.reserve(room + text.size() + text.size() / kSlack);
    whole.resize(room);
    for (std::size_t from = 0; from <= text.size();) {
        std::size_t at = from;
        while (at < text.size() && !IsBreak(text[at]))
            ++at;
        whole += text.substr(from, at - from);
        if (at < text.size())
            whole += u"\r\n";
        from = at + (text.substr(at, 2) == u"\r\n" ? 2 : 1);
    }
    return whole;
}

std::u16string Quotable(std::u16string_view text) {
    constexpr std::size_t kMostCharacters = 100;
    constexpr int kMostLines = 5;
    std::size_t end = std::min(text.size(), kMostCharacters);
    int lines = 0;
    for (std::size_t i = 0; i < end; ++i)
        if (text[i] == u'\n' && ++lines == kMostLines)
            end = i;
    return std::u16string(text.substr(0, end)) + (end < text.size() ? u"…" : u"");
}

std::u16string FailureText(int number, std::u16string_view description) {
    std::u16string text = u"Произошла ошибка № " + WholeNumberText(number) + u"\r\n";
    text += description;
    return text;
}

} // namespace quillshift
