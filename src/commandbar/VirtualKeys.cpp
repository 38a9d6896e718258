#include "commandbar/VirtualKeys.h"

#include "base/Texts.h"

#include <array>
#include <string_view>
#include <utility>

namespace quillshift {
namespace {

constexpr auto kNames = std::to_array<std::pair<int, std::u16string_view>>({
    {8, u"Backspace"}, {9, u"Tab"},        {13, u"Enter"},  {19, u"Pause"}, {27, u"Esc"},    {32, u"Space"},
    {33, u"Page up"},  {34, u"Page down"}, {35, u"End"},    {36, u"Home"},  {37, u"Left"},   {38, u"Up"},
    {39, u"Right"},    {40, u"Down"},      {45, u"Ins"},    {46, u"Del"},   {106, u"Num *"}, {107, u"Num +"},
    {109, u"Num -"},   {110, u"Num ."},    {111, u"Num /"}, {186, u";"},    {187, u"+"},     {188, u","},
    {189, u"-"},       {190, u"."},        {191, u"/"},     {192, u"`"},    {219, u"["},     {220, u"\\"},
    {221, u"]"},       {222, u"'"},
});
constexpr int kNumberPad0 = 96;

constexpr bool IsBetween(int value, int first, int last) {
    return value >= first && value <= last;
}

} // namespace

std::u16string KeyName(int virtualKey) {
    if (IsBetween(virtualKey, 'A', 'Z') || IsBetween(virtualKey, '0', '9'))
        return {static_cast<char16_t>(virtualKey)};
    if (IsBetween(virtualKey, FunctionKey(1), FunctionKey(24)))
        return u"F" + WholeNumberText(virtualKey - FunctionKey(0));
    if (IsBetween(virtualKey, kNumberPad0, kNumberPad0 + 9))
        return u"Num " + WholeNumberText(virtualKey - kNumberPad0);
    for (const auto& [code, name] : kNames)
        if (code == virtualKey)
            return std::u16string(name);
    return {};
}

int VirtualKeyOf(char16_t character) {
    if (IsBetween(character, 'a', 'z'))
        return character - 'a' + 'A';
    const bool isItsOwnCode =
        IsBetween(character, 'A', 'Z') || IsBetween(character, '0', '9') || character == u' ';
    return isItsOwnCode ? character : 0;
}

} // namespace quillshift
