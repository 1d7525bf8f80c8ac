#include "framework/LocalTime.h"

bool framework::LocalFieldsOf(const CTime& time, platform::CalendarFields& fields) noexcept
try {
    fields = {time.GetYear(), time.GetMonth(), time.GetDay(), time.GetHour(), time.GetMinute(), time.GetSecond()};
    return true;
} catch (CException* refused) {
    refused->Delete();
    return false;
} catch (...) {
    return false;
}

CTime framework::TimeOfLocalFields(const platform::CalendarFields& fields) noexcept
try {
    return CTime(fields.year, fields.month, fields.day, fields.hour, fields.minute, fields.second);
} catch (CException* refused) {
    refused->Delete();
    return CTime(0);
} catch (...) {
    return CTime(0);
}
