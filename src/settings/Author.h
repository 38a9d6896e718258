#pragma once

#include <string_view>

namespace quillshift {

/// Where the program's author can be reached, and where newer versions are.
inline constexpr std::u16string_view kAuthorMail = u"author@quillshift.example";
inline constexpr std::u16string_view kHomePage = u"https://quillshift.example/";

} // namespace quillshift
