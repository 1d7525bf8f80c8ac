#include "platform/LocalTime.h"

#include "platform/win32/ZoneTime.h"

namespace platform {

int64_t CurrentTime() noexcept
{
    FILETIME now;
    GetSystemTimeAsFileTime(&now);
    return SecondsOf(now);
}

bool LocalTimeFromSeconds(int64_t secondsSince1970, CalendarFields& fields) noexcept
{
    return ZoneTimeFromSeconds(nullptr, secondsSince1970, fields);
}

int64_t SecondsFromLocalTime(const CalendarFields& fields, DaylightSaving daylightSaving) noexcept
{
    return SecondsFromZoneTime(nullptr, fields, daylightSaving);
}

} // namespace platform
