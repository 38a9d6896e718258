#pragma once

#include "platform/Platform.h"

#include <string_view>

class QWidget;

namespace quillshift {

/// The picture of a dialog, from the file of that name among the program's pictures; empty where there is
/// none.
QWidget* DialogPicture(const Platform& platform, std::u16string_view name);

} // namespace quillshift
