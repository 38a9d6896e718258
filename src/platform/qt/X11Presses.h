#pragma once

#include <vector>

struct _XDisplay; // NOLINT(bugprone-reserved-identifier): the X library calls it so

namespace quillshift {

/// Has the X server tell of buttons that are pressed over whatever window, or no longer.
void WatchPresses(_XDisplay* display, bool on);

/// Whether an event, as it came over the wire, tells that one of the three mouse buttons was pressed over
/// whatever window.
bool IsWatchedPress(_XDisplay* display, const void* event);

/// The windows that the pointer is in, from the root's child down.
std::vector<unsigned long> WindowsUnderPointer(_XDisplay* display);

} // namespace quillshift
