#include "datetime/DateArithmetic.h"

#include "framework/OleDate.h"

#include <algorithm>
#include <cmath>

namespace datetime {

double AddDays(double value, int days) noexcept
{
    const double day = std::trunc(value);
    return framework::OleDateFromDayAndFraction(day + days, std::fabs(value - day));
}

bool AddMonths(double& value, long long months, int dayOfMonth) noexcept
{
    platform::CalendarFields fields;
    if (!framework::FieldsFromOleDate(value, fields))
        return false;
    const long long monthCount = fields.year * 12LL + (fields.month - 1) + months;
    if (monthCount < platform::smallestYear * 12LL || monthCount >= (platform::largestYear + 1) * 12LL)
        return false;
    fields.year = static_cast<int>(monthCount / 12);
    fields.month = static_cast<int>(monthCount % 12) + 1;
    const int day = dayOfMonth >= 1 && dayOfMonth <= 31 ? dayOfMonth : fields.day;
    fields.day = std::min(day, platform::DaysInMonth(fields.year, fields.month));
    return framework::OleDateFromFields(fields, value);
}

} // namespace datetime
