#include "framework/LocalTime.h"

CTime framework::TimeOfLocalFields(const platform::CalendarFields& fields) noexcept
try {
    return CTime(fields.year, fields.month, fields.day, fields.hour, fields.minute, fields.second);
} catch (CException* refused) {
    refused->Delete();
    return CTime(0);
} catch (...) {
    return CTime(0);
}
