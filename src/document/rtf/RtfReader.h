#pragma once

#include "base/RichText.h"

#include <string_view>

namespace quillshift {

/// Whether the contents of a file are RTF; the name does not matter.
bool IsRtf(std::string_view bytes);

/// Reads RTF into its text and formatting. Malformed input gives what was read up to there; nothing fails.
/// Time grows linearly with the input, and memory with the text.
RichText ReadRtf(std::string_view bytes);

} // namespace quillshift
