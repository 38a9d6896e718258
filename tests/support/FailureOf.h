#pragma once

#include "base/Error.h"

namespace quillshift {

/// The failure that an action throws; number 0 if it throws none.
template <typename Action>
Error FailureOf(Action action) {
    try {
        action();
    } catch (const Error& error) {
        return error;
    }
    return {0, u"", u""};
}

} // namespace quillshift
