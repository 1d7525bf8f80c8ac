#include "datetime/DateText.h"

#include <algorithm>
#include <array>
#include <string>

namespace datetime {
namespace {

bool IsDigit(char character)
{
    return character >= '0' && character <= '9';
}

// Every number too large for a date reads as this one, however long it is.
constexpr int tooLarge = 100000;

int AppendDigit(int number, char digit)
{
    return std::min(number * 10 + (digit - '0'), tooLarge);
}

std::array<int, 3> FirstThreeNumbers(std::string_view text)
{
    std::array<int, 3> numbers{};
    size_t index = 0;
    for (const char character : text) {
        if (!IsDigit(character))
            ++index;
        else if (index < numbers.size())
            numbers[index] = AppendDigit(numbers[index], character);
    }
    return numbers;
}

// KEPT K-57: a missing year is 0 here and so becomes 2000.
int CompletedYear(int year)
{
    if (year >= 1000)
        return year;
    return year + (year < 70 ? 2000 : 1900);
}

// KEPT K-58: from 1980 to the last whole day of 32-bit seconds since 1970, although a date may lie in 1600 to 2999.
bool IsAccepted(int year, int month, int day)
{
    if (year < 1980 || year > 2038 || month < 1 || month > 12 || day < 1 || day > 31)
        return false;
    return year < 2038 || (month == 1 && day <= 18);
}

int Number(std::string_view digits)
{
    int number = 0;
    for (const char digit : digits)
        number = AppendDigit(number, digit);
    return number;
}

} // namespace

std::optional<platform::CalendarFields> ReadDayMonthYear(std::string_view text)
{
    if (text.find_first_of("./-") == std::string_view::npos)
        return std::nullopt;
    const auto [day, month, yearAsWritten] = FirstThreeNumbers(text);
    const int year = CompletedYear(yearAsWritten);
    if (!IsAccepted(year, month, day))
        return std::nullopt;
    return platform::CalendarFields{year, month, day, 0, 0, 0};
}

std::optional<platform::CalendarFields> ReadCompact(std::string_view text)
{
    std::string digits(text);
    std::erase_if(digits,
                  [](char character) { return std::string_view(" .:-/").find(character) != std::string::npos; });
    const bool hasTime = digits.size() == 14;
    if ((!hasTime && digits.size() != 8) || !std::all_of(digits.begin(), digits.end(), IsDigit))
        return std::nullopt;
    if (!hasTime)
        digits.append(6, '0');
    const auto piece = [&digits](size_t start, size_t count) { return Number(digits.substr(start, count)); };
    return platform::CalendarFields{piece(0, 4), piece(4, 2), piece(6, 2), piece(8, 2), piece(10, 2), piece(12, 2)};
}

} // namespace datetime
