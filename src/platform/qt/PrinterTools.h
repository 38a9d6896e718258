#pragma once

namespace quillshift {

/// Starts the desktop's own program for printers, or what adds a printer and nothing else, where the desktop
/// has that. False if none that is known is in the path.
bool StartPrinterTool(bool toAdd);

} // namespace quillshift
