#pragma once

#include <QString>
#include <QStringView>

#include <string>
#include <string_view>

namespace quillshift {

/// The border between our text and Qt's; a view costs nothing.
inline QStringView ViewOf(std::u16string_view text) {
    return {text.data(), static_cast<qsizetype>(text.size())};
}
inline std::u16string_view ViewOf(const QString& text) {
    return {reinterpret_cast<const char16_t*>(text.utf16()), static_cast<std::size_t>(text.size())};
}
inline QString ToQString(std::u16string_view text) {
    return ViewOf(text).toString();
}
inline std::u16string FromQString(const QString& text) {
    return std::u16string(ViewOf(text));
}

/// With the line ends of the desktop.
inline QString WithLineFeeds(std::u16string_view text) {
    return ToQString(text).replace(QLatin1String("\r\n"), QLatin1String("\n"));
}

} // namespace quillshift
