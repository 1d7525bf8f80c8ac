#pragma once

#include "platform/CalendarFields.h"

#include <optional>
#include <string_view>

namespace datetime {

/// Day, month and year by the rules of `CDateTime::SetDate(const UtCString&)`, one byte per character; the time is 0.
/// The month need not have the day. Nothing for a text that is refused.
std::optional<platform::CalendarFields> ReadDayMonthYear(std::string_view text);

/// The fields by the rules of `CDateTime::ConvertDate`; they need not exist. Nothing for a wrong number of characters
/// or one that is no digit.
std::optional<platform::CalendarFields> ReadCompact(std::string_view text);

} // namespace datetime
