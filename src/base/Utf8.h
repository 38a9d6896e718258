#pragma once

#include <string>
#include <string_view>

namespace quillshift {

/// UTF-8 and back, as names of files need it. A broken sequence or a lone surrogate becomes U+FFFD.
std::string ToUtf8(std::u16string_view text);
std::u16string FromUtf8(std::string_view bytes);

} // namespace quillshift
