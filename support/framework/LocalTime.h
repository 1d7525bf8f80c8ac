#pragma once

#include "framework/CTime.h"
#include "platform/CalendarFields.h"

namespace framework {

/// The fields that the CTime shows. False, and what it shows then is no date, where the system cannot break the time
/// down.
bool LocalFieldsOf(const CTime& time, platform::CalendarFields& fields) noexcept;

/// The time whose fields in local time are these, whose shape is that of a date and a time of day; the system decides
/// about daylight saving. Where it cannot represent the time, what its CTime has then: -1 seconds, or 0 with the host
/// framework's own, which refuses.
CTime TimeOfLocalFields(const platform::CalendarFields& fields) noexcept;

} // namespace framework
