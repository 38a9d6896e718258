#include "document/rtf/RtfTokenizer.h"

#include <algorithm>
#include <limits>

namespace quillshift {
namespace {

using Kind = RtfToken::Kind;

constexpr std::string_view kEndsText("\\{}\r\n\0", 6);
constexpr std::string_view kBlank("\r\n\0", 3);

bool IsLetter(char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
}

bool IsDigit(char c) {
    return c >= '0' && c <= '9';
}

int HexDigit(char c) {
    if (IsDigit(c))
        return c - '0';
    if (c >= 'a' && c <= 'f')
        return c - 'a' + 10;
    return c >= 'A' && c <= 'F' ? c - 'A' + 10 : -1;
}

} // namespace

RtfToken RtfTokenizer::Next() {
    rest_.remove_prefix(std::min(rest_.find_first_not_of(kBlank), rest_.size()));
    if (rest_.empty())
        return {};
    const char first = rest_.front();
    if (first == '\\')
        return Control();
    if (first == '{' || first == '}') {
        rest_.remove_prefix(1);
        return {.kind = first == '{' ? Kind::GroupStart : Kind::GroupEnd};
    }
    const std::string_view span = rest_.substr(0, rest_.find_first_of(kEndsText));
    rest_.remove_prefix(span.size());
    return {.kind = Kind::Text, .text = span};
}

RtfToken RtfTokenizer::Control() {
    rest_.remove_prefix(1);
    if (rest_.empty())
        return {};
    if (IsLetter(rest_.front()))
        return Word();
    const char symbol = rest_.front();
    rest_.remove_prefix(1);
    return symbol == '\'' ? HexByte() : RtfToken{.kind = Kind::Symbol, .character = symbol};
}

// A broken `\'` counts as a symbol that nobody knows.
RtfToken RtfTokenizer::HexByte() {
    if (rest_.size() < 2 || HexDigit(rest_[0]) < 0 || HexDigit(rest_[1]) < 0)
        return {.kind = Kind::Symbol, .character = '\''};
    const int byte = HexDigit(rest_[0]) * 16 + HexDigit(rest_[1]);
    rest_.remove_prefix(2);
    return {.kind = Kind::Byte, .character = static_cast<char>(byte)};
}

RtfToken RtfTokenizer::Word() {
    const auto* const end = std::find_if_not(rest_.begin(), rest_.end(), IsLetter);
    RtfToken token{.kind = Kind::Word,
                   .text = rest_.substr(0, static_cast<std::size_t>(end - rest_.begin()))};
    rest_.remove_prefix(token.text.size());
    token.number = Parameter();
    if (!rest_.empty() && rest_.front() == ' ')
        rest_.remove_prefix(1);
    if (token.text == "bin" && token.number.value_or(0) > 0)
        rest_.remove_prefix(std::min(static_cast<std::size_t>(*token.number), rest_.size()));
    return token;
}

// A number out of range stays at the end of the range.
std::optional<int> RtfTokenizer::Parameter() {
    const bool negative = rest_.size() > 1 && rest_[0] == '-' && IsDigit(rest_[1]);
    if (negative)
        rest_.remove_prefix(1);
    if (rest_.empty() || !IsDigit(rest_.front()))
        return std::nullopt;
    constexpr long long kMost = std::numeric_limits<int>::max();
    long long value = 0;
    for (; !rest_.empty() && IsDigit(rest_.front()); rest_.remove_prefix(1))
        value = std::min(value * 10 + (rest_.front() - '0'), kMost);
    return static_cast<int>(negative ? -value : value);
}

} // namespace quillshift
