#pragma once

#include "platform/CalendarFields.h"

#include <string>

namespace platform {

/// What `ShortDate` gives for a form of the system's, in place of the one of the user's locale; null for that.
std::string DateInForm(const CalendarFields& date, const char* form);

} // namespace platform
