#include "platform/LocalTime.h"

#include <climits>
#include <ctime>

namespace platform {

int64_t CurrentTime() noexcept
{
    return time(nullptr);
}

bool LocalTimeFromSeconds(int64_t secondsSince1970, CalendarFields& fields) noexcept
{
    const time_t seconds = secondsSince1970;
    tm local{};
    if (!localtime_r(&seconds, &local) || local.tm_year > INT_MAX - 1900)
        return false;
    fields = {local.tm_year + 1900, local.tm_mon + 1, local.tm_mday, local.tm_hour, local.tm_min, local.tm_sec};
    return true;
}

int64_t SecondsFromLocalTime(const CalendarFields& fields, DaylightSaving daylightSaving) noexcept
{
    if (fields.year < INT_MIN + 1900 || fields.month == INT_MIN)
        return -1;
    tm local{};
    local.tm_year = fields.year - 1900;
    local.tm_mon = fields.month - 1;
    local.tm_mday = fields.day;
    local.tm_hour = fields.hour;
    local.tm_min = fields.minute;
    local.tm_sec = fields.second;
    local.tm_isdst = daylightSaving == DaylightSaving::decidedBySystem ? -1 : daylightSaving == DaylightSaving::on;
    return mktime(&local);
}

} // namespace platform
