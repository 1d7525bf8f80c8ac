#pragma once

namespace platform {

/// A date of the Gregorian calendar (also before its introduction) with a time of day.
struct CalendarFields
{
    int year;
    int month;  ///< 1 to 12
    int day;    ///< 1 to 31
    int hour;   ///< 0 to 23
    int minute; ///< 0 to 59
    int second; ///< 0 to 59

    bool operator==(const CalendarFields&) const = default;
};

inline constexpr int smallestYear = 100;
inline constexpr int largestYear = 9999;

constexpr bool IsLeapYear(int year) noexcept
{
    return (year % 25 == 0 ? year % 16 : year % 4) == 0;
}

/// The days of each month, 1 to 12, in a year that is no leap year.
inline constexpr signed char commonDaysInMonth[] = {0, 31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};

/// The number of days of a month, 1 to 12.
constexpr int DaysInMonth(int year, int month) noexcept
{
    return commonDaysInMonth[month] + (month == 2 && IsLeapYear(year));
}

/// True for a date that exists in the years 100 to 9999, the range of the OLE automation date.
constexpr bool IsCalendarDate(int year, int month, int day) noexcept
{
    return static_cast<unsigned>(year) - smallestYear <= largestYear - smallestYear &&
           static_cast<unsigned>(month) - 1 < 12 && day >= 1 &&
           (day <= commonDaysInMonth[month] || (month == 2 && day == 29 && IsLeapYear(year)));
}

/// True for a time from 00:00:00 to 23:59:59.
constexpr bool IsTimeOfDay(int hour, int minute, int second) noexcept
{
    return static_cast<unsigned>(hour) < 24 && static_cast<unsigned>(minute) < 60 && static_cast<unsigned>(second) < 60;
}

} // namespace platform
