#pragma once

namespace quillshift {

/// Whether letters are typed as capitals now, as far as the window system tells: only X11 does.
bool IsCapsLockOn();

} // namespace quillshift
