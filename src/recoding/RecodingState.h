#pragma once

#include "recoding/modDecode.h"

#include <string>

namespace quillshift {

/// What the program remembers of recoding, besides the document itself.
struct RecodingState {
    std::u16string SavedText; ///< the document just before the last recoding
    bool RecodeUndoAvailable =
        false;                  ///< there is something to bring back; never cleared while the program runs
    bool StopRequested = false; ///< the user asked a running job to stop

    // The pair of the next job, as places in the two selectors; a place plus 1 is a `Charset`. Nothing else
    // records the pair in use.
    int Combo1 = 0;
    int Combo2 = 1;

    Direction Pair() const { return {static_cast<Charset>(Combo1 + 1), static_cast<Charset>(Combo2 + 1)}; }
    void SetPair(Direction pair) {
        Combo1 = pair.source - 1;
        Combo2 = pair.target - 1;
    }

    bool walking = false; ///< a job is between its start and its end
};

} // namespace quillshift
