#pragma once

namespace datetime {

/// A value that can be read, `days` later. The fraction of the day stays as it is.
double AddDays(double value, int days) noexcept;

/// A value that can be read, `months` later, at its time of day. `dayOfMonth` 1 to 31 takes the place of the value's
/// day. A day above 28 that the month lacks becomes the month's last. False, and `value` untouched, outside the years
/// 100 to 9999 and when the value cannot be read.
bool AddMonths(double& value, long long months, int dayOfMonth) noexcept;

} // namespace datetime
