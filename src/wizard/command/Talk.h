#pragma once

#include "wizard/command/Words.h"

#include <ostream>
#include <string_view>

namespace quillshift::wizard {

/// The command's exit status: all is clean or repaired, something was left as unsure, trouble.
constexpr int fine = 0, unsure = 1, trouble = 2;

/// Where the command says what.
struct Talk {
    std::ostream& out;
    std::ostream& err;
    Language language;
    bool errIsTerminal = false; ///< then long work shows how far it is

    /// Returns `trouble`.
    int Fail(std::string_view name, Word word) const {
        err << "quillshift-wizard: " << Shown(name) << ": " << Say(word, language) << '\n';
        return trouble;
    }
};

} // namespace quillshift::wizard
