#pragma once

#include "base/Error.h"

#include <string_view>

namespace quillshift {

/// The ways in which an operation on bars and buttons fails.
enum class ToolkitFailure {
    Unloaded = 1,
    NoControl = 2,    ///< the handle's window has gone, or holds no bar control
    NoSuchItem = 3,   ///< a bar or a button that is not there
    TypeMismatch = 4, ///< a new key is numeric text
    KeyInUse = 5,     ///< the key is taken, or the button is on the bar already
    SubscriptOutOfRange = 6,
    AddFailed = 7, ///< a new key is empty
    NothingSet = 8 ///< a button is needed and none was given
};

/// The error to throw for a failure, with the number and the description that belong to it.
Error ErrorOf(ToolkitFailure failure);

/// Whether a text reads as a number, so that it could be taken for an ordinal where a key is meant.
bool IsNumericText(std::string_view text);

} // namespace quillshift
