#pragma once

#include "platform/SettingsBackend.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace quillshift {

/// The hives of the store; the program uses the user's own.
enum class Hive : std::uint32_t { CurrentUser = 0x80000001U };

/// What the program keeps between runs, read and written at the moment it is needed. Nothing is cached here,
/// and nothing fails visibly.
class SettingsStore {
public:
    explicit SettingsStore(SettingsBackend& backend) : backend_(backend) {}

    /// Nothing if the value is missing or a number. A stored text ends at its first zero byte.
    std::optional<std::u16string> ReadString(Hive hive, std::string_view path, std::string_view name);
    /// A character without a Windows-1251 byte is stored as "?".
    void WriteString(Hive hive, std::string_view path, std::string_view name, std::u16string_view text);
    /// 0 if the value is missing, a text, or shorter than 4 bytes.
    std::int32_t ReadDword(Hive hive, std::string_view path, std::string_view name);
    void WriteDword(Hive hive, std::string_view path, std::string_view name, std::int32_t value);

private:
    SettingsBackend& backend_;
};

/// The number a text begins with, blanks before it skipped, as single precision; 0 for a text without one or
/// with one out of range. Reads "." as the decimal point whatever the locale is.
float NumberIn(std::u16string_view text);
/// Shortest decimal text, without an exponent, that gives the number back; "0" for what is no finite number.
std::u16string DecimalText(float number);

} // namespace quillshift
