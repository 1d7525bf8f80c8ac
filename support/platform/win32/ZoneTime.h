#pragma once

#include "platform/LocalTime.h"
#include "platform/win32/WinApi.h"

namespace platform {

/// Whole seconds since 1970-01-01 00:00:00 UTC.
int64_t SecondsOf(const FILETIME& time) noexcept;

/// `LocalTimeFromSeconds` and `SecondsFromLocalTime` for the years 1601 to 30827 in a time zone of the system; null is
/// the one that is set. The rules are those that the system knows for the year.
bool ZoneTimeFromSeconds(const DYNAMIC_TIME_ZONE_INFORMATION* zone, int64_t seconds, CalendarFields& fields) noexcept;
int64_t SecondsFromZoneTime(const DYNAMIC_TIME_ZONE_INFORMATION* zone, const CalendarFields& fields,
                            DaylightSaving daylightSaving) noexcept;

} // namespace platform
