#pragma once

#include <QIcon>

#include <string_view>

namespace quillshift {

/// The picture that the desktop has for files of this kind, told by the name alone; `otherwise` where its
/// icons hold none.
QIcon IconOfFile(std::u16string_view path, const QIcon& otherwise);

} // namespace quillshift
