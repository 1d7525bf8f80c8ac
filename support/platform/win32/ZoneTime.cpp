#include "platform/win32/ZoneTime.h"

#include <limits>

namespace platform {
namespace {

constexpr int64_t unitsPerSecond = 10'000'000;
constexpr int64_t secondsFrom1601To1970 = 11'644'473'600;
constexpr int64_t secondsPerDay = 86'400;

bool SystemTimeOf(int64_t seconds, SYSTEMTIME& time) noexcept
{
    constexpr int64_t most = std::numeric_limits<int64_t>::max() / unitsPerSecond - secondsFrom1601To1970;
    if (seconds < -secondsFrom1601To1970 || seconds > most)
        return false;
    const auto units = static_cast<uint64_t>((seconds + secondsFrom1601To1970) * unitsPerSecond);
    const FILETIME fileTime = {static_cast<DWORD>(units), static_cast<DWORD>(units >> 32)};
    return FileTimeToSystemTime(&fileTime, &time) != 0;
}

bool CountSeconds(const SYSTEMTIME& time, int64_t& seconds) noexcept
{
    FILETIME fileTime;
    if (!SystemTimeToFileTime(&time, &fileTime))
        return false;
    seconds = platform::SecondsOf(fileTime);
    return true;
}

bool RulesOf(WORD year, const DYNAMIC_TIME_ZONE_INFORMATION* zone, TIME_ZONE_INFORMATION& rules) noexcept
{
    DYNAMIC_TIME_ZONE_INFORMATION copy; // the system takes it as no constant
    if (zone)
        copy = *zone;
    return GetTimeZoneInformationForYear(year, zone ? &copy : nullptr, &rules) != 0;
}

/// The seconds of the fields as if they were UTC, with whatever goes beyond the month and the day carried over.
bool SecondsOfFields(const CalendarFields& fields, int64_t& seconds) noexcept
{
    constexpr int64_t mostMonths = 12 * 30828;
    const int64_t months = int64_t{12} * fields.year + fields.month - 1;
    if (months < 0 || months >= mostMonths)
        return false;
    SYSTEMTIME month{};
    month.wYear = static_cast<WORD>(months / 12);
    month.wMonth = static_cast<WORD>(months % 12 + 1);
    month.wDay = 1;
    if (!CountSeconds(month, seconds))
        return false;
    seconds += (int64_t{fields.day} - 1) * secondsPerDay + int64_t{fields.hour} * 3600 + int64_t{fields.minute} * 60 +
               fields.second;
    return true;
}

/// `local` is a local time counted as if it were UTC.
int64_t Placed(int64_t local, const SYSTEMTIME& time, const TIME_ZONE_INFORMATION& rules,
               DaylightSaving daylightSaving) noexcept
{
    if (daylightSaving != DaylightSaving::decidedBySystem) {
        const bool isOn = daylightSaving == DaylightSaving::on;
        return local + int64_t{60} * (rules.Bias + (isOn ? rules.DaylightBias : rules.StandardBias));
    }
    SYSTEMTIME universal;
    int64_t seconds = -1;
    return TzSpecificLocalTimeToSystemTime(&rules, &time, &universal) && CountSeconds(universal, seconds) ? seconds
                                                                                                          : -1;
}

} // namespace

int64_t SecondsOf(const FILETIME& time) noexcept
{
    const uint64_t units = static_cast<uint64_t>(time.dwHighDateTime) << 32 | time.dwLowDateTime;
    return static_cast<int64_t>(units / unitsPerSecond) - secondsFrom1601To1970;
}

bool ZoneTimeFromSeconds(const DYNAMIC_TIME_ZONE_INFORMATION* zone, int64_t seconds, CalendarFields& fields) noexcept
{
    SYSTEMTIME universal;
    SYSTEMTIME local;
    TIME_ZONE_INFORMATION rules;
    if (!SystemTimeOf(seconds, universal) || !RulesOf(universal.wYear, zone, rules) ||
        !SystemTimeToTzSpecificLocalTime(&rules, &universal, &local))
        return false;
    fields = {local.wYear, local.wMonth, local.wDay, local.wHour, local.wMinute, local.wSecond};
    return true;
}

int64_t SecondsFromZoneTime(const DYNAMIC_TIME_ZONE_INFORMATION* zone, const CalendarFields& fields,
                            DaylightSaving daylightSaving) noexcept
{
    int64_t local = 0;
    SYSTEMTIME time;
    TIME_ZONE_INFORMATION rules;
    if (!SecondsOfFields(fields, local) || !SystemTimeOf(local, time) || !RulesOf(time.wYear, zone, rules))
        return -1;
    return Placed(local, time, rules, daylightSaving);
}

} // namespace platform
