#pragma once

#include "wizard/detect/Detector.h"

namespace quillshift::wizard {

struct Repaired {
    std::string text; ///< what to write; the bytes as they were where nothing was done
    bool changed = false;
    std::size_t unsure = 0; ///< lines that stayed as they were because no reading is sure
};

/// Repairs bytes by the verdict on them: what is sure and proves lossless, whole if it can be, else line by
/// line.
Repaired Repair(std::string_view bytes, const Verdict& verdict, const DetectOptions& options = {});

} // namespace quillshift::wizard
