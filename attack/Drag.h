#pragma once

#include <string>

namespace quillshift::attack {

/// Drags a text from another program over a window and drops it there; what is dropped is the selection
/// `XdndSelection`. Returns when the window has told that the drop is done, or after `seconds`.
void DragAndDrop(const std::string& display, unsigned long window, int seconds);

} // namespace quillshift::attack
