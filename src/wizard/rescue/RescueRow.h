#pragma once

#include "wizard/files/Repairs.h"

#include <optional>
#include <string>

namespace quillshift::wizard {

/// What the list shows: a file, or the text from the clipboard.
struct RescueRow {
    Finding finding;
    std::optional<std::string> text{};  ///< from the clipboard; else it is a file
    bool byHand = false;                ///< somebody has chosen
    std::optional<Chain> chosen{};      ///< by hand
    std::optional<Outcome> outcome{};   ///< of the last repair
    std::optional<Returned> returned{}; ///< from the way back; then the finding is a new one
    bool isCopied = false;              ///< the text as it was chosen is on the clipboard

    /// What would be undone; none: it stays as it is.
    const std::optional<Chain>& Way() const { return byHand ? chosen : finding.chain; }
    bool IsUnsure() const { return finding.How() == Answer::Unsure; }
};

/// Whether repairing would change it: what is in the target's set already is well.
bool WouldRepair(const RescueRow& row, Target target);

} // namespace quillshift::wizard
