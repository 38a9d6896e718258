#pragma once

#include "platform/Clock.h"

#include <array>
#include <string>

namespace quillshift {

inline constexpr std::size_t kTimeAndDateFormats = 14;

/// The present moment in each of the forms that are offered, in their order: with the full names of months
/// in Russian and the separators of the user's country. All of them tell the same moment.
std::array<std::u16string, kTimeAndDateFormats> TimeAndDateTexts(const Clock& clock);

} // namespace quillshift
