#pragma once

#include "platform/Clock.h"

namespace quillshift {

/// The machine's clock and the locale of the environment. Without a locale the separators are the Russian
/// ones, "." and ":".
class PosixClock final : public Clock {
public:
    /// Reads the locale once.
    PosixClock();

    Moment Now() const override;
    char16_t DateSeparator() const override { return dateSeparator_; }
    char16_t TimeSeparator() const override { return timeSeparator_; }

private:
    char16_t dateSeparator_ = u'.';
    char16_t timeSeparator_ = u':';
};

} // namespace quillshift
