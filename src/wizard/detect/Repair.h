#pragma once

#include "wizard/detect/Detector.h"

namespace quillshift::wizard {

struct Repaired {
    std::string text; ///< what to write; the bytes as they were where nothing was done
    bool changed = false;
    std::size_t unsure = 0; ///< lines that stayed as they were because no reading is sure
    std::size_t apart = 0;  ///< lines that went another way than most
};

/// Repairs bytes by the verdict on them: what is sure and proves lossless. Each line is held against the
/// verdict; one that speaks against it goes its own way if that is sure, and stays as it is if not.
Repaired Repair(std::string_view bytes, const Verdict& verdict, const DetectOptions& options = {});

} // namespace quillshift::wizard
