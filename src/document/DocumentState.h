#pragma once

#include <string>

namespace quillshift {

/// What the program remembers of the document besides its text.
struct DocumentState {
    bool DocumentModified =
        false; ///< counts as changed since it was last saved; nothing clears it but a save
    bool ReopenAvailable = false;
    bool SaveAvailable = false; ///< plain Save may be offered

    /// The target of plain Save, this run's own: another copy of the program, a name that the store can't
    /// hold or a file chosen for something else don't change it.
    std::u16string saveTarget;
};

} // namespace quillshift
