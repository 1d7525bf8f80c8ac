#pragma once

#include "platform/CalendarFields.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace platform {

/// The longest short date, in bytes of the locale's encoding. Windows counts 78 of them, with the zero behind the text.
inline constexpr size_t longestShortDate = 77;

/// The short date form of the user's locale, in UTF-8. Empty when the form is empty or longer than that, and on Windows
/// before the year 1601. The date must exist.
std::string ShortDate(const CalendarFields& date);

/// What a locale text may hold. Bits, by the numbers that Windows gives them.
enum LocaleDateFlags : uint32_t
{
    timeOnly = 0x1,                 ///< accept only a time of day
    dateOnly = 0x2,                 ///< accept only a date
    ignoreUserOverride = 0x80000000 ///< ignore the user's changes to the locale; POSIX knows none
};

/// Reads a date, a time or both as a user of the user's locale writes them. With `flags` 0 all three are accepted; with
/// both `timeOnly` and `dateOnly` nothing is. A missing time is midnight, a missing date 1899-12-30, a missing year
/// this one, a missing day the first. False, and `result` untouched, for every other text.
///
/// Which shapes are accepted is the platform's affair. On Windows, which leaves out what `flags` does not ask for in
/// place of refusing the text, docs/porting.md has examples. On POSIX, whose locale is LC_TIME of the environment:
/// - the ISO forms 2024-03-05, 20240305, 2024-03-05 14:07:09 and 2024-03-05T14:07:09, seconds optional;
/// - day, month and year as numbers in the locale's order, separated by "." "/" "-" "," or blanks; where that is no
///   date, another order (31/12/2024 where the month comes first). Day and month alone, or month and a year of more
///   than two digits or above 31, do too;
/// - the month as the locale's name or abbreviation, before or behind the day; a weekday name is skipped;
/// - a year of up to two digits is 1969 to 2068;
/// - a time as 14:07, 14:07:09, 14:07:09.5 (the fraction is dropped) and, with the locale's or the English letters,
///   2:07 PM or 2 PM.
bool ParseLocaleDate(std::string_view utf8, uint32_t flags, CalendarFields& result);

} // namespace platform
