#pragma once

namespace quillshift {

/// A date and time of the calendar.
struct Moment {
    int year = 0;
    int month = 0; ///< from 1
    int day = 0;
    int hour = 0;
    int minute = 0;
    int second = 0;

    bool operator==(const Moment&) const = default;
};

/// The clock on the user's wall, and how the user's country writes what it shows.
class Clock {
public:
    virtual ~Clock() = default;

    /// Local time.
    virtual Moment Now() const = 0;
    /// What stands between the numbers of a date, and between those of a time.
    virtual char16_t DateSeparator() const = 0;
    virtual char16_t TimeSeparator() const = 0;
};

} // namespace quillshift
