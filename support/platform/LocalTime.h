#pragma once

#include "platform/CalendarFields.h"

#include <cstdint>

namespace platform {

/// Seconds since 1970-01-01 00:00:00 UTC, whole seconds, leap seconds not counted.
int64_t CurrentTime() noexcept;

/// Breaks a time down in the local time zone: that of the process (the variable TZ) on POSIX, of the system on Windows.
/// False, and `fields` untouched, when the system cannot; Windows has the years 1601 to 30827.
bool LocalTimeFromSeconds(int64_t secondsSince1970, CalendarFields& fields) noexcept;

/// Whether daylight saving time is in effect at a local time.
enum class DaylightSaving
{
    off,
    on,
    decidedBySystem
};

/// The time in seconds since 1970 UTC of a local time. Fields out of their range carry over into the next larger one; a
/// local time that the clock skipped or showed twice is placed by the system. -1 when the system cannot represent it.
int64_t SecondsFromLocalTime(const CalendarFields& fields, DaylightSaving daylightSaving) noexcept;

} // namespace platform
