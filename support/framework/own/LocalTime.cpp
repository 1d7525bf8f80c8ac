#include "framework/LocalTime.h"

#include "platform/LocalTime.h"

// At once: each field of a CTime would ask the system anew.
bool framework::LocalFieldsOf(const CTime& time, platform::CalendarFields& fields) noexcept
{
    return platform::LocalTimeFromSeconds(time.GetTime(), fields);
}

CTime framework::TimeOfLocalFields(const platform::CalendarFields& fields) noexcept
{
    return CTime(fields.year, fields.month, fields.day, fields.hour, fields.minute, fields.second);
}
