#pragma once

#include "platform/CalendarFields.h"

namespace framework {

// The OLE automation date: a double whose integer part counts days from 1899-12-30 and whose fraction, by its absolute
// value, is the time of day. So -1.25 is 1899-12-29 06:00, and a value strictly between -1 and 0 reads as its absolute
// value, a time on the day 0. It reaches from 0100-01-01 to 9999-12-31 and is read to the nearest second.

inline constexpr int secondsPerDay = 86400;

/// A date as a whole number of days from 1899-12-30 and seconds since midnight.
struct DayAndSecond
{
    int day;
    int second;
};

/// The days from 1899-12-30 to a date. The year is at least 1; the date must exist.
constexpr int DayNumber(int year, int month, int day) noexcept
{
    // The year is taken to begin in March, so that the leap day is its last. Counted from 0000-02-29 that makes
    // 1899-12-30 day 693900; January and February are those of the year that began in March before.
    constexpr int daysBeforeMonth[] = {0, 306, 337, 0, 31, 61, 92, 122, 153, 184, 214, 245, 275};
    const unsigned years = static_cast<unsigned>(year) - (month <= 2);
    const unsigned centuries = years / 100;
    const unsigned days = years * 1461 / 4 - centuries + centuries / 4;
    return static_cast<int>(days) + daysBeforeMonth[month] + day - 693900;
}

/// 1 Sunday to 7 Saturday, of a day counted from 1899-12-30 (a Saturday).
constexpr int DayOfWeek(int day) noexcept
{
    return ((day - 1) % 7 + 7) % 7 + 1;
}

/// The value of a day and a fraction of it, 0 <= fraction < 1. Where the fraction is so near 1 that a double cannot
/// hold it beside the day, the value is the start of the next day.
double OleDateFromDayAndFraction(double day, double fraction) noexcept;

/// Turns calendar fields into a value. False, and `value` untouched, when the fields are no `platform::IsCalendarDate`
/// and `platform::IsTimeOfDay`. Fields that are both are read back from the value as the same six numbers.
constexpr bool OleDateFromFields(const platform::CalendarFields& fields, double& value) noexcept
{
    if (!platform::IsCalendarDate(fields.year, fields.month, fields.day) ||
        !platform::IsTimeOfDay(fields.hour, fields.minute, fields.second))
        return false;
    const int day = DayNumber(fields.year, fields.month, fields.day);
    const double time = (fields.hour * 3600 + fields.minute * 60 + fields.second) / double(secondsPerDay);
    value = day < 0 ? day - time : day + time;
    return true;
}

/// Splits a value at the nearest second. False, and `result` untouched, for NaN and outside years 100 to 9999.
bool SplitOleDate(double value, DayAndSecond& result) noexcept;

/// Reads the calendar fields of a value at the nearest second. False, and `fields` untouched, as for `SplitOleDate`.
bool FieldsFromOleDate(double value, platform::CalendarFields& fields) noexcept;

} // namespace framework
