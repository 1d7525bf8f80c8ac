#pragma once

#include "framework/CTime.h"
#include "platform/CalendarFields.h"

namespace framework {

/// The time whose fields in local time are these, whose shape is that of a date and a time of day; the system decides
/// about daylight saving. Where it cannot represent the time, what its CTime has then: -1 seconds, or 0 with the host
/// framework's own, which refuses.
CTime TimeOfLocalFields(const platform::CalendarFields& fields) noexcept;

} // namespace framework
