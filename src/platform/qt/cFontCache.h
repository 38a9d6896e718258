#pragma once

#include "platform/Surface.h"

#include <QFont>
#include <QFontMetrics>

#include <deque>

namespace quillshift {

/// The fonts of the bars, each made when it is first asked for and kept as long as the cache. Text that runs
/// down is the surface's concern: it turns the sheet, not the font.
class cFontCache {
public:
    struct Record {
        FontSpec spec;
        double dpi; ///< dots per inch of the display, upwards
        QFont font; ///< in whole pixels, so that text is as large on every device as it was measured
        QFontMetrics metrics;
    };

    /// By the display as it is now. The record stays where it is.
    const Record& Find(const FontSpec& spec);

private:
    std::deque<Record> records_;
};

} // namespace quillshift
