#pragma once

#include "base/Twips.h"
#include "settings/SettingsStore.h"

#include <string>

namespace quillshift {

/// What the first values depend on besides the program itself.
struct FirstValueInputs {
    std::u16string programFolder; ///< the default wave files lie in its folder "Sounds"
    std::u16string printerName;   ///< the first printer's; empty on a machine without printers
    TwipsRect mainWindow;         ///< where the main window first opens
};

/// Writes what a store holds before the program's first start: the switches and texts of the settings
/// dialogs, every tool bar item shown, all sounds off. Values that only the user's work gives (folders, the
/// lock, places of windows other than the main one) stay absent.
void WriteFirstValues(SettingsStore& settings, const FirstValueInputs& inputs);

} // namespace quillshift
