#pragma once

#include "base/Error.h"

#include <string>
#include <string_view>

namespace quillshift {

/// The title of every message box, and of the main window.
inline constexpr std::u16string_view kProgramTitle = u"Morvane Quillshift 3.0 Preview";

/// A whole number in decimal.
std::u16string WholeNumberText(int number);
/// The text that reports a failure to a person.
std::u16string FailureText(int number, std::u16string_view description);

} // namespace quillshift
