#include "datetime/WeekNumber.h"

#include "framework/OleDate.h"

namespace datetime {
namespace {

// The first Monday of a year whose 1 January is a Friday, Saturday or Sunday; else the Monday on or before that day.
int StartOfWeekOne(int year)
{
    const int firstOfJanuary = framework::DayNumber(year, 1, 1);
    const int daysSinceMonday = framework::DayOfWeek(firstOfJanuary - 1) - 1;
    return firstOfJanuary - daysSinceMonday + (daysSinceMonday > 3 ? 7 : 0);
}

} // namespace

int IsoWeek(int day, int year) noexcept
{
    int start = StartOfWeekOne(year);
    if (start > day)
        start = StartOfWeekOne(year - 1);
    const int nextStart = StartOfWeekOne(year + 1);
    return day < nextStart ? (day - start) / 7 + 1 : 1;
}

} // namespace datetime
