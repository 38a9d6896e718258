#pragma once

#include "wizard/detect/LineRepair.h"
#include "wizard/files/Output.h"

#include <ostream>

namespace quillshift::wizard {

/// Writes a text piece by piece in the set of a target. A charset that it declares is corrected in the first
/// piece.
class LineWriter {
public:
    LineWriter(std::ostream& out, Target target) : out_(out), target_(target) {}

    /// What the text is stored in; before anything but `Pass`.
    void SetStored(Set stored) { stored_ = stored; }
    /// What comes is well, and stays in its set.
    void LeaveAlone() { target_ = Target::Utf8; }
    /// Writes bytes as they are.
    void Pass(std::string_view bytes);
    /// Writes the text that bytes became; the bytes themselves where the set can't hold it.
    void Write(const std::string& text, std::string_view bytes);
    /// Writes what becomes of whole lines.
    void Repair(LineRepair& lines, std::string_view block);

    bool IsUnfit() const { return unfit_; } ///< the set could not hold all

private:
    void RepairEach(LineRepair& lines, std::string_view block);

    std::ostream& out_;
    Target target_;
    Set stored_ = Set::Utf8;
    std::string text_; ///< of the lines at hand
    bool isFirst_ = true, unfit_ = false;
};

} // namespace quillshift::wizard
