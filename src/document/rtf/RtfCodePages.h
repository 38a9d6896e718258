#pragma once

#include <string>
#include <string_view>

namespace quillshift {

inline constexpr int kWindows1251 = 1251;
inline constexpr int kWindows1252 = 1252;

/// The code page that a font's `\fcharset` number stands for; `defaultPage` for one that names none.
int CodePageOfCharset(int charset, int defaultPage);

/// Whether a character of the page may take two bytes. Such pages have no table here.
bool IsDoubleByte(int codePage);

/// Appends what `bytes` say in a code page. A byte that the page leaves open gives U+FFFD, and so does each
/// character of a double-byte page beyond ASCII. Windows-1251 is read as everywhere in the program, with 0x98
/// as U+0098; an unknown page is read as Windows-1252.
void AppendDecoded(std::u16string& text, std::string_view bytes, int codePage);

} // namespace quillshift
