#include "base/Texts.h"

namespace quillshift {

std::u16string WholeNumberText(int number) {
    const std::string digits = std::to_string(number);
    return {digits.begin(), digits.end()};
}

std::u16string FailureText(int number, std::u16string_view description) {
    std::u16string text = u"Произошла ошибка № " + WholeNumberText(number) + u"\r\n";
    text += description;
    return text;
}

} // namespace quillshift
