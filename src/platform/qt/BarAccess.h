#pragma once

#include "platform/BarItem.h"

namespace quillshift {

class QtBarWindow;

/// Makes screen readers meet each bar with its items and their menus, though none of them is a widget. Once
/// is enough.
void AnnounceBars();

/// Tells them that the keyboard is on an item of the bar; with an empty path that it is back where it was.
void AnnounceBarItem(QtBarWindow& bar, const BarPath& path);

} // namespace quillshift
