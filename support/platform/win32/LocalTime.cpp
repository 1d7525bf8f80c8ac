#include "platform/LocalTime.h"

#include "platform/win32/WinApi.h"

namespace platform {
namespace {

constexpr int64_t unitsPerSecond = 10'000'000;
constexpr int64_t secondsFrom1601To1970 = 11'644'473'600;

int64_t SecondsOf(const FILETIME& time) noexcept
{
    const uint64_t units = static_cast<uint64_t>(time.dwHighDateTime) << 32 | time.dwLowDateTime;
    return static_cast<int64_t>(units / unitsPerSecond) - secondsFrom1601To1970;
}

FILETIME FileTimeOf(int64_t seconds) noexcept
{
    const auto units = static_cast<uint64_t>((seconds + secondsFrom1601To1970) * unitsPerSecond);
    return {static_cast<DWORD>(units), static_cast<DWORD>(units >> 32)};
}

} // namespace

int64_t CurrentTime() noexcept
{
    FILETIME now;
    GetSystemTimeAsFileTime(&now);
    return SecondsOf(now);
}

bool LocalTimeFromSeconds(int64_t secondsSince1970, CalendarFields& fields) noexcept
{
    const FILETIME time = FileTimeOf(secondsSince1970);
    SYSTEMTIME universal;
    SYSTEMTIME local;
    if (!FileTimeToSystemTime(&time, &universal) || !SystemTimeToTzSpecificLocalTime(nullptr, &universal, &local))
        return false;
    fields = {local.wYear, local.wMonth, local.wDay, local.wHour, local.wMinute, local.wSecond};
    return true;
}

int64_t SecondsFromLocalTime(const CalendarFields& fields, DaylightSaving) noexcept
{
    SYSTEMTIME local{};
    local.wYear = static_cast<WORD>(fields.year);
    local.wMonth = static_cast<WORD>(fields.month);
    local.wDay = static_cast<WORD>(fields.day);
    local.wHour = static_cast<WORD>(fields.hour);
    local.wMinute = static_cast<WORD>(fields.minute);
    local.wSecond = static_cast<WORD>(fields.second);
    SYSTEMTIME universal;
    FILETIME time;
    if (!TzSpecificLocalTimeToSystemTime(nullptr, &local, &universal) || !SystemTimeToFileTime(&universal, &time))
        return -1;
    return SecondsOf(time);
}

} // namespace platform
