#pragma once

struct _XDisplay; // NOLINT(bugprone-reserved-identifier): the X library calls it so

namespace quillshift {

/// Whether somebody composites the screens of an X11 display, so that windows can be translucent.
bool IsComposited(_XDisplay* display);

} // namespace quillshift
