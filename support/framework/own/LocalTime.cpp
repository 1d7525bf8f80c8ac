#include "framework/LocalTime.h"

CTime framework::TimeOfLocalFields(const platform::CalendarFields& fields) noexcept
{
    return CTime(fields.year, fields.month, fields.day, fields.hour, fields.minute, fields.second);
}
