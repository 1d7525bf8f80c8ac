#pragma once

namespace datetime {

/// The ISO 8601 week, 1 to 53, of the day with this number (days from 1899-12-30), which lies in `year`.
int IsoWeek(int day, int year) noexcept;

} // namespace datetime
