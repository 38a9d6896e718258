#pragma once

#include "platform/Keys.h"

#include <cstdint>
#include <string>

namespace quillshift {

/// The code of the function key F1 to F24.
constexpr std::int16_t FunctionKey(int number) {
    return static_cast<std::int16_t>(key::kF1 + number - 1);
}

/// The name that a shortcut shows for a key, such as "Del"; empty for a key without one.
std::u16string KeyName(int virtualKey);
/// The code of the key that types a Latin letter, a digit or a blank; 0 for any other character.
int VirtualKeyOf(char16_t character);

} // namespace quillshift
