#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

namespace quillshift::wizard {

/// What a character is in Russian text: one of its letters, or a kind of sign.
std::uint8_t LetterCode(char16_t character);

/// Whether it is one of the signs beyond ASCII that Russian is written with.
bool IsUsualSign(char16_t character);

/// How plausible a line, each character of it as its code, is as Russian at a glance, at memory speed: in
/// bits above the least that is clearly plausible. It sums up what `RussianFit` does but for rare neighbours;
/// below nothing, that has to be asked.
double RussianGlance(const std::vector<std::uint8_t>& codes, std::size_t count);

} // namespace quillshift::wizard
