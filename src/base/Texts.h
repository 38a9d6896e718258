#pragma once

#include "base/Error.h"

#include <string>
#include <string_view>

namespace quillshift {

/// The title of every message box, and of the main window.
inline constexpr std::u16string_view kProgramTitle = u"Morvane Quillshift 3.0 Preview";

/// A whole number in decimal.
std::u16string WholeNumberText(int number);
/// With each line break as CR LF, whatever its kind: a lone CR or LF, a separator of lines or paragraphs, or
/// one of the two codes that rich text is framed by. It stands behind so many units of room.
std::u16string WithWholeBreaks(std::u16string_view text, std::size_t room = 0);
/// A text to be quoted in a message box: a long one is cut off, so that the box stays on the screen.
std::u16string Quotable(std::u16string_view text);
/// The text that reports a failure to a person.
std::u16string FailureText(int number, std::u16string_view description);

} // namespace quillshift
