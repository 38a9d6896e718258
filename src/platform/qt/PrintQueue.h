#pragma once

#include <string>
#include <vector>

namespace quillshift {

/// What the print system tells of a queue's printer. All lengths are hundredths of a millimetre.
struct PrintQueueFacts {
    struct Range {
        int least, most;
    };
    struct Size {
        Range width, height;
    };
    std::vector<Size> papers; ///< of upright sheets; none where it doesn't say
    /// The edges of an upright sheet that can't be printed on.
    struct {
        int left = 0, top = 0, right = 0, bottom = 0;
    } edges;

    /// True, too, where nobody knows.
    bool Takes(int paperWidth, int paperHeight) const;
};

/// Asks the print system. A queue that it doesn't know, and a machine without one, tell nothing, and so does
/// a server that keeps silent for a second.
PrintQueueFacts AskPrintQueue(const std::string& queue);

} // namespace quillshift
