#pragma once

#include <string>

namespace quillshift {

/// What the program remembers of the document besides its text.
struct DocumentState {
    bool DocumentModified =
        false; ///< counts as changed since it was last saved; nothing clears it but a save
    bool ReopenAvailable = false;
    bool SaveAvailable = false; ///< plain Save may be offered

    /// The target of plain Save as this run has chosen it. The store holds it too, but there another copy of
    /// the program may replace it, or a letter may be lost; a save then must not hit another file.
    std::u16string saveTarget;
};

} // namespace quillshift
