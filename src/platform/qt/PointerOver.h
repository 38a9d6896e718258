#pragma once

class QWidget;

namespace quillshift {

/// Whether the pointer is over a widget, and over no window of this or another program that covers it there,
/// as far as the window system tells. Under Wayland it tells only when the pointer comes and leaves.
bool IsPointerOver(const QWidget& widget);

} // namespace quillshift
