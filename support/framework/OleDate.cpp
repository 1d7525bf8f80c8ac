#include "framework/OleDate.h"

#include <cmath>

namespace framework {
namespace {

constexpr int smallestDay = DayNumber(platform::smallestYear, 1, 1);
constexpr int largestDay = DayNumber(platform::largestYear, 12, 31);

constexpr int daysIn400Years = 146097;
constexpr int daysIn4Years = 1461;

// Counts from a 1 March, as DayNumber does; the shifts keep every intermediate result positive.
void SetDate(int dayNumber, platform::CalendarFields& fields)
{
    const int days = dayNumber + 693899;
    const int centuries = (4 * days + 3) / daysIn400Years;
    const int dayOfCentury = days - centuries * daysIn400Years / 4;
    const int yearOfCentury = (4 * dayOfCentury + 3) / daysIn4Years;
    const int dayOfYear = dayOfCentury - yearOfCentury * daysIn4Years / 4;
    const int monthFromMarch = (5 * dayOfYear + 2) / 153;
    fields.day = dayOfYear - (153 * monthFromMarch + 2) / 5 + 1;
    fields.month = monthFromMarch < 10 ? monthFromMarch + 3 : monthFromMarch - 9;
    fields.year = centuries * 100 + yearOfCentury + (monthFromMarch >= 10);
}

} // namespace

double OleDateFromDayAndFraction(double day, double fraction) noexcept
{
    const double value = day < 0 ? day - fraction : day + fraction;
    return std::trunc(value) == day ? value : day + 1;
}

bool SplitOleDate(double value, DayAndSecond& result) noexcept
{
    if (!(value > smallestDay - 1 && value < largestDay + 1))
        return false;
    int day = static_cast<int>(value);
    int second = static_cast<int>(std::fabs(value - day) * secondsPerDay + 0.5);
    if (second == secondsPerDay) {
        second = 0;
        ++day;
    }
    if (day > largestDay)
        return false;
    result = {day, second};
    return true;
}

bool FieldsFromOleDate(double value, platform::CalendarFields& fields) noexcept
{
    DayAndSecond split;
    if (!SplitOleDate(value, split))
        return false;
    SetDate(split.day, fields);
    fields.hour = split.second / 3600;
    fields.minute = split.second / 60 % 60;
    fields.second = split.second % 60;
    return true;
}

} // namespace framework
