#pragma once

#include "base/Twips.h"
#include "settings/Settings.h"

#include <string>

namespace quillshift {

/// What the first values depend on besides the program itself.
struct FirstValueInputs {
    std::u16string programFolder; ///< the default wave files lie in its folder "Sounds"
    std::u16string printerName;   ///< the first printer's; empty on a machine without printers
    TwipsRect mainWindow;         ///< where the main window first opens
};

/// Writes what a store holds before the program's first start: the first values of the settings' table, every
/// toolbar item shown, the default wave files. Values that only the user's work gives stay absent.
void WriteFirstValues(Settings& settings, const FirstValueInputs& inputs);

} // namespace quillshift
