#include "settings/SettingsStore.h"

#include "base/Windows1251.h"

#include <array>
#include <charconv>
#include <cmath>
#include <system_error>

namespace quillshift {
namespace {

constexpr std::size_t kNumberBytes = 4;

} // namespace

std::optional<std::u16string> SettingsStore::ReadString(Hive /*hive*/, std::string_view path,
                                                        std::string_view name) {
    const auto value = backend_.Read(path, name);
    if (!value || value->type != ValueType::Text)
        return std::nullopt;
    const std::string_view bytes = value->data;
    return windows1251::Decode(bytes.substr(0, bytes.find('\0')));
}

void SettingsStore::WriteString(Hive /*hive*/, std::string_view path, std::string_view name,
                                std::u16string_view text) {
    backend_.Write(path, name, {ValueType::Text, windows1251::Encode(text)});
}

std::int32_t SettingsStore::ReadDword(Hive /*hive*/, std::string_view path, std::string_view name) {
    const auto value = backend_.Read(path, name);
    if (!value || value->type != ValueType::Number || value->data.size() < kNumberBytes)
        return 0;
    std::uint32_t number = 0;
    for (std::size_t i = kNumberBytes; i-- > 0;)
        number = (number << 8U) | static_cast<std::uint8_t>(value->data[i]);
    return static_cast<std::int32_t>(number);
}

void SettingsStore::WriteDword(Hive /*hive*/, std::string_view path, std::string_view name,
                               std::int32_t value) {
    auto rest = static_cast<std::uint32_t>(value);
    std::string bytes(kNumberBytes, '\0');
    for (char& byte : bytes) {
        byte = static_cast<char>(rest & 0xFFU);
        rest >>= 8U;
    }
    backend_.Write(path, name, {ValueType::Number, bytes});
}

float NumberIn(std::u16string_view text) {
    const std::string bytes = windows1251::Encode(text);
    std::size_t start = bytes.find_first_not_of(" \t\r\n");
    if (start == std::string::npos)
        return 0;
    if (bytes[start] == '+' && bytes.substr(start, 2) != "+-")
        ++start;
    // The words for infinity and "no number" are texts here.
    const std::size_t first = bytes.find_first_not_of('-', start);
    if (first == std::string::npos || std::string_view("0123456789.").find(bytes[first]) == std::string::npos)
        return 0;
    float number = 0;
    std::from_chars(bytes.data() + start, bytes.data() + bytes.size(), number);
    return number;
}

std::u16string DecimalText(float number) {
    if (!std::isfinite(number) || number == 0)
        return u"0";
    std::array<char, 128> buffer{}; // the longest is the smallest negative denormal, some 50 places
    const auto end =
        std::to_chars(buffer.data(), buffer.data() + buffer.size(), number, std::chars_format::fixed).ptr;
    return {buffer.data(), end};
}

} // namespace quillshift
