#pragma once

#include "platform/CalendarFields.h"

#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace platform {

enum class DateOrder
{
    dayMonthYear,
    monthDayYear,
    yearMonthDay
};

/// The order of day, month and year in a strftime pattern; year, month, day when one of the three is missing.
DateOrder OrderOfPattern(std::string_view pattern);

/// The texts between the conversions of a strftime pattern that are more than separators, such as those of
/// "%Y\u5E74%m\u6708%d\u65E5".
std::vector<std::wstring> WordsOfPattern(std::wstring_view pattern);

/// What a locale contributes to reading a date. All names in lower case.
struct DateVocabulary
{
    DateOrder order;
    std::array<std::wstring, 12> months;
    std::array<std::wstring, 12> shortMonths;
    std::wstring am;
    std::wstring pm;
    std::vector<std::wstring> ignoredWords; ///< weekday names and the words of the date pattern
};

/// Reads a text in lower case by the rules of `ParseLocaleDate`.
bool ParseDateText(std::wstring_view text, const DateVocabulary& vocabulary, int currentYear, uint32_t flags,
                   CalendarFields& result);

} // namespace platform
