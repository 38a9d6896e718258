#pragma once

#include <string>

namespace quillshift {

/// The failures of message hooks and timers. Up to 1000 they are raised as they stand, above with the bits of
/// the object-error base set.
enum class HookFailure {
    InvalidCall = 5,
    CantSubclass = 13081,
    AlreadyHandled = 13082,
    InvalidWindow = 13083,
    ExternalWindow = 13084,
    TooManyTimers = 13651,
    NoSystemTimer = 13652
};

/// Throws the Error of a failure, with the source `executable` + ".WindowProc".
[[noreturn]] void RaiseHookError(HookFailure failure, const std::u16string& executable);

} // namespace quillshift
